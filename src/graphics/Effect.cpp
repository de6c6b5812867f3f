#include "graphics/Effect.h"

Effect::~Effect() { Effect::clear(); }

void Effect::init(const std::string& spriteName, int32_t ms) {
    sprite.setSprite(spriteName);
    lifetime = remaining = static_cast<float>(ms / 1000.0);
}

void Effect::update(float dt) { remaining -= dt; }

void Effect::clear() { sprite.setSprite(static_cast<Graphics::Sprite*>(nullptr)); }

bool Effect::isDone() const { return remaining <= 0.0f; }

bool Effect::follows(const Character*) const { return false; }
