#include "graphics/SpriteInstance.h"

#include "graphics/Sprite.h"
#include "graphics/SpriteManager.h"

namespace Graphics {

namespace {
int32_t fieldOf(const Frame* frame, int32_t Frame::*field) { return frame ? frame->*field : 0; }
}  // namespace

SpriteInstance::SpriteInstance(Sprite* shared) { setSprite(shared); }

SpriteInstance::SpriteInstance(const std::string& spriteName) { setSprite(spriteName); }

SpriteInstance::SpriteInstance(const SpriteInstance& other) { setSprite(other.sprite); }

SpriteInstance& SpriteInstance::operator=(const SpriteInstance& other) {
    setSprite(other.sprite);
    return *this;
}

SpriteInstance::~SpriteInstance() { setSprite(static_cast<Sprite*>(nullptr)); }

void SpriteInstance::setSprite(Sprite* shared) {
    // Take the new reference first: giving the same sprite again must not kill it.
    if (shared) shared->addRef();
    Sprite* old = sprite;
    sprite = shared;
    animPtr = nullptr;
    dirPtr = nullptr;
    time = 0.0f;
    if (old) SpriteManager::release(old);
    if (!shared) return;
    anim = -1;
    setAnim(0);
}

void SpriteInstance::setSprite(const std::string& spriteName) {
    setSprite(SpriteManager::get(spriteName));
}

void SpriteInstance::setSprite(const SpriteInstance& other) { setSprite(other.sprite); }

void SpriteInstance::setAnim(int32_t number) {
    if (anim == number) return;
    animPtr = sprite ? sprite->anim(number) : nullptr;
    anim = number;
    time = 0.0f;
    dirPtr = animPtr ? animPtr->dir(dir) : nullptr;
}

void SpriteInstance::setAnim(const std::string& animName) {
    setAnim(sprite ? sprite->indexOf(animName) : 0);
}

void SpriteInstance::setDir(int32_t slot) {
    if (dir == slot) return;
    dirPtr = animPtr ? animPtr->dir(slot) : nullptr;
    dir = slot;
    time = 0.0f;
}

void SpriteInstance::update(float dt) {
    if (!dirPtr) return;
    time += dirPtr->spd * dt;
    const float count = static_cast<float>(dirPtr->frameCount());
    if (time >= count) time -= count;
}

int32_t SpriteInstance::animCount() const { return sprite ? sprite->animCount() : 0; }

int32_t SpriteInstance::frameCount() const { return dirPtr ? dirPtr->frameCount() : 0; }

const Frame* SpriteInstance::currentFrame() const {
    // A negative or huge time must not become an index (or overflow the cast).
    if (!dirPtr || !(time >= 0.0f) || time >= static_cast<float>(dirPtr->frameCount()))
        return nullptr;
    return dirPtr->frame(static_cast<int32_t>(time));
}

int32_t SpriteInstance::getW() const { return fieldOf(currentFrame(), &Frame::w); }

int32_t SpriteInstance::getH() const { return fieldOf(currentFrame(), &Frame::h); }

int32_t SpriteInstance::getSX() const { return fieldOf(currentFrame(), &Frame::sx); }

int32_t SpriteInstance::getSY() const { return fieldOf(currentFrame(), &Frame::sy); }

int32_t SpriteInstance::getAX() const { return fieldOf(currentFrame(), &Frame::ax); }

int32_t SpriteInstance::getAY() const { return fieldOf(currentFrame(), &Frame::ay); }

void SpriteInstance::getSize(int32_t& w, int32_t& h) const {
    w = getW();
    h = getH();
}

void SpriteInstance::getS(int32_t& sx, int32_t& sy) const {
    sx = getSX();
    sy = getSY();
}

void SpriteInstance::getA(int32_t& ax, int32_t& ay) const {
    ax = getAX();
    ay = getAY();
}

}  // namespace Graphics
