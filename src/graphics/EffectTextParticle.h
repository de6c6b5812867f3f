#pragma once
#include "graphics/EffectParticle.h"
#include "graphics/Text.h"

namespace Effects {

// A particle that carries a line of text, centred on it and fading with it.
class TextParticle : public Particle {
public:
    ~TextParticle() override;

    void init(const std::string& spriteName, int32_t ms) override;
    void draw() override;
    void clear() override;

    // The text box takes the size of the sprite's current frame.
    void setFont(const std::string& fontName);

    UI::Text text;
};

}  // namespace Effects
