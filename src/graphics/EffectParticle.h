#pragma once
#include "graphics/Effect.h"
#include "graphics/Vector.h"

namespace Effects {

// A sprite thrown on a ballistic path that fades out over its life. Its
// creator sets position and acceleration before init.
class Particle : public Effect {
public:
    void update(float dt) override;
    void draw() override;

    // Velocity in the floor plane; angle in radians.
    void setDirection(float angle, float speed);

    Vector position;  // x, y on the floor, z height
    Vector velocity;  // per second
    Vector acceleration;  // per second squared

protected:
    // Sets the fade alpha and draws the sprite; returns the alpha used.
    uint8_t drawFaded();
};

}  // namespace Effects
