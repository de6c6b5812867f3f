#include "graphics/Text.h"

#include "graphics/Render.h"

namespace UI {

Text::Text(const std::string& fontName, const std::string& string, int32_t boxWidth, int32_t boxHeight,
           int32_t lineSpacing, int32_t blankWidth, int32_t tabStop) {
    init(fontName, string, boxWidth, boxHeight, lineSpacing, blankWidth, tabStop);
}

Text::~Text() { clear(); }

void Text::init(const std::string& fontName, const std::string& string, int32_t boxWidth, int32_t boxHeight,
                int32_t lineSpacing, int32_t blankWidth, int32_t tabStop) {
    width = boxWidth;
    height = boxHeight;
    lineHeight = lineSpacing;
    spaceWidth = blankWidth;
    tabWidth = tabStop;
    setFont(fontName);
    setText(string);
    bind();
}

void Text::setFont(const std::string& fontName) {
    font.setSprite(fontName);
    const Graphics::Frame* space = glyph(' ');
    if (lineHeight < 0) lineHeight = space ? space->h : 0;
    if (spaceWidth < 0) spaceWidth = space ? space->w : 0;
    if (tabWidth < 0) tabWidth = 4 * spaceWidth;
}

void Text::setText(const std::string& string) {
    text = string;
    dirty = true;
}

void Text::appendText(const std::string& string) { setText(text + string); }

void Text::bind() {
    buffer.setSprite(font);
    buffer.init();
}

void Text::update() {
    if (!dirty) return;
    dirty = false;
    buffer.clear();
    cutLines();
    buildQuads();
}

void Text::draw(float x, float y, float z, float drawAlpha) { Render::drawBuffer(&buffer, x, y, z, drawAlpha); }

void Text::clear() {
    dirty = true;
    buffer.free();
    font.setSprite(static_cast<Graphics::Sprite*>(nullptr));
}

void Text::buildQuads() {
    const uint8_t glyphAlpha = alpha >= 255.0f ? 255 : alpha > 0.0f ? static_cast<uint8_t>(alpha) : 0;
    int32_t y = 0;
    if (flags & FLAG_TOP)
        y = 0;
    else if (flags & FLAG_MIDDLE)
        y = (height - textHeight) / 2;
    else if (flags & FLAG_BOTTOM)
        y = height - textHeight;
    int32_t glyphs = 0;
    for (const Line& line : lines) {
        int32_t x = 0;
        if (flags & FLAG_LEFT)
            x = 0;
        else if (flags & FLAG_CENTRE)
            x = (width - line.width) / 2;
        else if (flags & FLAG_RIGHT)
            x = width - line.width;
        for (int32_t i = line.start; i < line.start + line.length; ++i) {
            const uint8_t c = static_cast<uint8_t>(text[static_cast<size_t>(i)]);
            if (c > 32 && glyph(c)) {
                buffer.addFrame(c - 32, Graphics::DIR_DOWN, 0, static_cast<float>(x), static_cast<float>(y), 0.0f,
                                glyphAlpha, 255, 255, 255);
                ++glyphs;
            }
            x += advance(c, x);
        }
        y += lineHeight;
    }
    // The buffer keeps its old count through clear(): an empty text must not
    // show the glyphs of the one before.
    if (glyphs == 0) buffer.count = 0;
}

}  // namespace UI
