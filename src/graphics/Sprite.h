#pragma once
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "graphics/RefCounter.h"
#include "graphics/SpriteAnim.h"

namespace Graphics {

class Image;

// One image with animations cut out of it, shared by name through
// SpriteManager and held by SpriteInstance.
class Sprite : public RefCounter {
public:
    Sprite() = default;
    virtual ~Sprite();
    Sprite(const Sprite&) = delete;
    Sprite& operator=(const Sprite&) = delete;

    Image* image = nullptr;  // counted: see setImage
    std::string name;        // the file path for sprites from XML, else empty
    std::vector<Anim*> anims;              // owned, by number in file order
    std::map<std::string, Anim*> names;    // not owned; names of 2+ characters only

    int32_t animCount() const { return static_cast<int32_t>(anims.size()); }
    // Null for a number or name the sprite doesn't have.
    Anim* anim(int32_t number) const;
    Anim* anim(const std::string& animName) const;
    // 0 when the animation isn't there, which falls back to the first one.
    int32_t indexOf(const Anim* target) const;
    int32_t indexOf(const std::string& animName) const;
    // Takes ownership; returns the new animation's number.
    int32_t addAnim(Anim* added, const std::string& animName);
    // Replaces (and deletes) number `number`, or appends past the end.
    void setAnim(int32_t number, Anim* replacement, const std::string& animName);
    // Holds a reference on the new image; the old one goes back to
    // ImageManager when its last holder lets go.
    void setImage(Image* newImage);

private:
    void enterName(const std::string& animName, Anim* target);
};

}  // namespace Graphics
