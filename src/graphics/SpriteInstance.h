#pragma once
#include <cstdint>
#include <string>

namespace Graphics {

class Sprite;
class Anim;
class Dir;
struct Frame;

// What a game object holds: a counted pointer to a shared sprite plus its own
// animation, direction and time. A null sprite is allowed; it has no frames.
class SpriteInstance {
public:
    SpriteInstance() = default;
    explicit SpriteInstance(Sprite* shared);
    explicit SpriteInstance(const std::string& spriteName);
    // Copies only the sprite: animation and direction start anew.
    SpriteInstance(const SpriteInstance& other);
    SpriteInstance& operator=(const SpriteInstance& other);
    ~SpriteInstance();

    Sprite* sprite = nullptr;
    int32_t anim = 0;
    int32_t dir = 2;
    Anim* animPtr = nullptr;
    Dir* dirPtr = nullptr;
    float time = 0.0f;  // position in the animation, in frames

    void setSprite(Sprite* shared);
    void setSprite(const std::string& spriteName);
    void setSprite(const SpriteInstance& other);
    // The current number keeps running; a new one starts at time 0 in the same slot.
    void setAnim(int32_t number);
    // An unknown name stands for animation 0.
    void setAnim(const std::string& animName);
    void setDir(int32_t slot);
    // Animations loop: past the end, time falls back by one frame count.
    void update(float dt);

    int32_t animCount() const;
    int32_t frameCount() const;
    // The frame `time` points at; null when there is none to show.
    const Frame* currentFrame() const;

    // Fields of the current frame; 0 when there is none.
    int32_t getW() const;
    int32_t getH() const;
    int32_t getSX() const;
    int32_t getSY() const;
    int32_t getAX() const;
    int32_t getAY() const;
    void getSize(int32_t& w, int32_t& h) const;
    void getS(int32_t& sx, int32_t& sy) const;
    void getA(int32_t& ax, int32_t& ay) const;
};

}  // namespace Graphics
