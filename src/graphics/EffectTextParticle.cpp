#include "graphics/EffectTextParticle.h"

#include "graphics/Render.h"

namespace {

const uint32_t LAYOUT_BITS = 0x3FF;
// Centred both ways on the particle, never clipped.
const uint32_t CENTRED_UNCLIPPED =
    UI::Text::FLAG_CENTRE | UI::Text::FLAG_MIDDLE | UI::Text::FLAG_NO_CLIP_X | UI::Text::FLAG_NO_CLIP_Y;

}  // namespace

namespace Effects {

TextParticle::~TextParticle() { TextParticle::clear(); }

void TextParticle::init(const std::string& spriteName, int32_t ms) {
    Effect::init(spriteName, ms);
    text.dirty = true;
    text.flags = (text.flags & ~LAYOUT_BITS) | CENTRED_UNCLIPPED;
}

void TextParticle::setFont(const std::string& fontName) {
    text.width = sprite.getW();
    text.height = sprite.getH();
    text.dirty = true;
    text.setFont(fontName);
    text.bind();
}

void TextParticle::draw() {
    uint8_t alpha = drawFaded();
    text.alpha = alpha;
    // The fade changes every frame, so the glyph quads are rebuilt with it.
    text.dirty = true;
    text.update();
    text.draw(position.x, position.y - position.z, 0.0f, alpha);
    Render::setAlpha(255);
}

void TextParticle::clear() {
    Effect::clear();
    text.clear();
}

}  // namespace Effects
