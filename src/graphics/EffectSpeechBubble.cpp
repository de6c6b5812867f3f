#include "graphics/EffectSpeechBubble.h"

#include <cstdlib>

#include "gameplay/Character.h"
#include "graphics/EffectFade.h"
#include "graphics/Render.h"

namespace Effects {

void SpeechBubble::init(const std::string& spriteName, int32_t ms) {
    Effect::init(spriteName, ms);
    int32_t count = sprite.animCount();
    // Each bubble shows one scribble of the set, picked at random.
    if (count > 0) sprite.setAnim(rand() % count);
}

void SpeechBubble::update(float dt) {
    remaining -= dt;
    sprite.update(dt);
}

void SpeechBubble::draw() {
    if (!character) return;
    // The mouth moves with the speaker's body animation.
    Vector mouth(static_cast<float>(character->sprite.getAX()), static_cast<float>(character->sprite.getAY()),
                 0.0f, 0.0f);
    Vector at = character->position + mouth;
    uint8_t alpha = 255;
    if (bubbleAlpha(remaining, lifetime, alpha)) Render::setAlpha(alpha);
    Render::drawSprite(&sprite, at.x, at.y - at.z, 0.0f, 0.0f);
    Render::setAlpha(255);
}

bool SpeechBubble::follows(const Character* speaker) const { return character == speaker; }

}  // namespace Effects
