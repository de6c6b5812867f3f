#pragma once
#include <cstdint>
#include <string>

#include "graphics/SpriteInstance.h"

class Character;

// A short-lived picture owned by the arena: it has a sprite and a lifetime,
// and the arena drops it once isDone() holds.
class Effect {
public:
    Effect() = default;
    virtual ~Effect();
    Effect(const Effect&) = delete;
    Effect& operator=(const Effect&) = delete;

    // Takes the sprite of that name; the lifetime is given in milliseconds.
    virtual void init(const std::string& spriteName, int32_t ms);
    virtual void update(float dt);
    virtual void draw() = 0;
    virtual void clear();
    virtual bool isDone() const;
    // Whether the effect points at this fighter and must go with it.
    virtual bool follows(const Character* character) const;

    Graphics::SpriteInstance sprite;
    float lifetime = 0.0f;   // seconds
    float remaining = 0.0f;  // seconds
};
