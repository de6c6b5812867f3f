#pragma once
#include <cstdint>
#include <vector>

namespace Graphics {

// One picture cut out of a sprite's image.
struct Frame {
    int32_t x = 0, y = 0;    // top left corner in the image
    int32_t w = 0, h = 0;    // size
    int32_t sx = 0, sy = 0;  // the point placed on the drawing position
    int32_t ax = 0, ay = 0;  // attachment point, relative to the object's position
};

// The frames of one direction of an animation.
class Dir {
public:
    float spd = 0.0f;  // frames per second
    int32_t ret = 0;   // kept from list files; playback doesn't read it
    std::vector<Frame> frames;

    void addFrame(const Frame& frame) { frames.push_back(frame); }
    int32_t frameCount() const { return static_cast<int32_t>(frames.size()); }
    // Null for a number the direction doesn't have.
    const Frame* frame(int32_t number) const;
};

enum : int32_t {
    DIR_RIGHT = 0,
    DIR_DOWN = 2,
    DIR_LEFT = 4,
    DIR_UP = 6,
    DIR_SLOTS = 8,
};

// Eight direction slots that may share one Dir; the anim owns each Dir once,
// however many slots hold it.
class Anim {
public:
    Anim();
    ~Anim();
    Anim(const Anim&) = delete;
    Anim& operator=(const Anim&) = delete;

    // Takes ownership of dir. The first Dir fills every slot, and a new slot 2
    // fills the slots still empty, so a direction a file leaves out falls back
    // to the first one given.
    void setDir(int32_t slot, Dir* dir);
    // Null for an empty slot or a slot number outside 0..7.
    Dir* dir(int32_t slot) const;

private:
    bool holds(const Dir* dir) const;

    Dir* dirs[DIR_SLOTS];
};

}  // namespace Graphics
