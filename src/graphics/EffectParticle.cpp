#include "graphics/EffectParticle.h"

#include "graphics/EffectFade.h"
#include "graphics/Render.h"

namespace Effects {

void Particle::update(float dt) {
    remaining -= dt;
    velocity += acceleration * Vector(dt);
    position += velocity * Vector(dt);
}

void Particle::draw() {
    drawFaded();
    Render::setAlpha(255);
}

uint8_t Particle::drawFaded() {
    uint8_t alpha = fadeOutAlpha(remaining, lifetime);
    Render::setAlpha(alpha);
    Render::drawSprite(&sprite, position.x, position.y - position.z, 0.0f, 0.0f);
    return alpha;
}

void Particle::setDirection(float angle, float speed) {
    float s = 0.0f, c = 0.0f;
    sinCos(angle, s, c);
    velocity = Vector(speed * c, speed * s, 0.0f, 0.0f);
}

}  // namespace Effects
