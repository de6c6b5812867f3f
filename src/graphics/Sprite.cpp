#include "graphics/Sprite.h"

#include "graphics/Image.h"
#include "graphics/ImageManager.h"

#include <iterator>

namespace Graphics {

namespace {
// Single-letter names are too easily mistaken for numbers to be looked up.
const size_t MIN_NAME_LENGTH = 2;
}  // namespace

Sprite::~Sprite() {
    setImage(nullptr);
    for (Anim* each : anims) delete each;
    anims.clear();
    names.clear();
}

Anim* Sprite::anim(int32_t number) const {
    if (number < 0 || number >= animCount()) return nullptr;
    return anims[static_cast<size_t>(number)];
}

Anim* Sprite::anim(const std::string& animName) const {
    auto found = names.find(animName);
    return found == names.end() ? nullptr : found->second;
}

int32_t Sprite::indexOf(const Anim* target) const {
    for (size_t i = 0; i < anims.size(); ++i)
        if (anims[i] == target) return static_cast<int32_t>(i);
    return 0;
}

int32_t Sprite::indexOf(const std::string& animName) const { return indexOf(anim(animName)); }

void Sprite::enterName(const std::string& animName, Anim* target) {
    if (animName.size() >= MIN_NAME_LENGTH) names[animName] = target;
}

int32_t Sprite::addAnim(Anim* added, const std::string& animName) {
    anims.push_back(added);
    enterName(animName, added);
    return animCount() - 1;
}

void Sprite::setAnim(int32_t number, Anim* replacement, const std::string& animName) {
    if (number < 0 || number >= animCount()) {
        addAnim(replacement, animName);
        return;
    }
    Anim*& slot = anims[static_cast<size_t>(number)];
    if (slot != replacement) {
        // No name may keep pointing at the deleted animation.
        for (auto it = names.begin(); it != names.end();)
            it = it->second == slot ? names.erase(it) : std::next(it);
        delete slot;
        slot = replacement;
    }
    enterName(animName, replacement);
}

void Sprite::setImage(Image* newImage) {
    if (newImage) newImage->addRef();
    Image* old = image;
    image = newImage;
    if (!old) return;
    old->release();
    if (old->refs() < 1) ImageManager::free(old);
}

}  // namespace Graphics
