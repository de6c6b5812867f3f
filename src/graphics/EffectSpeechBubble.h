#pragma once
#include "graphics/Effect.h"

class Character;

namespace Effects {

// What players see of a spoken word: one of the speech sprite's scribbles at
// the speaker's mouth, fading in and out over the word's duration.
class SpeechBubble : public Effect {
public:
    void init(const std::string& spriteName, int32_t ms) override;
    void update(float dt) override;
    void draw() override;
    bool follows(const Character* speaker) const override;

    Character* character = nullptr;  // the speaker, not owned; must outlive the bubble
};

}  // namespace Effects
