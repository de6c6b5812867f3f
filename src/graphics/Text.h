#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "graphics/Buffer2D.h"
#include "graphics/SpriteAnim.h"
#include "graphics/SpriteInstance.h"

namespace UI {

// A string shown in a bitmap font: animation n of the font is the glyph of
// byte n + 32. The glyphs are laid out into a buffer only when the text has
// changed, so drawing a text costs one draw call whatever its length.
class Text {
public:
    enum : uint32_t {
        FLAG_LEFT = 0x001,
        FLAG_CENTRE = 0x002,
        FLAG_RIGHT = 0x004,
        FLAG_TOP = 0x008,
        FLAG_MIDDLE = 0x010,
        FLAG_BOTTOM = 0x020,
        FLAG_WRAP = 0x040,
        FLAG_NO_CLIP_X = 0x100,
        FLAG_NO_CLIP_Y = 0x200,
        FLAGS_DEFAULT = FLAG_LEFT | FLAG_TOP | FLAG_WRAP | FLAG_NO_CLIP_X | FLAG_NO_CLIP_Y,
    };

    // A stretch of `text` shown as one line.
    struct Line {
        int32_t start;
        int32_t length;
        int32_t width;
    };

    Text() = default;
    // A negative metric is taken from the font's space glyph.
    Text(const std::string& fontName, const std::string& string, int32_t boxWidth, int32_t boxHeight,
         int32_t lineSpacing, int32_t blankWidth, int32_t tabStop);
    virtual ~Text();
    Text(const Text&) = delete;
    Text& operator=(const Text&) = delete;

    // Once per object between clear()s: a second init would drop the font
    // from the buffer.
    void init(const std::string& fontName, const std::string& string, int32_t boxWidth, int32_t boxHeight,
              int32_t lineSpacing, int32_t blankWidth, int32_t tabStop);
    void setFont(const std::string& fontName);
    void setText(const std::string& string);
    void appendText(const std::string& string);
    void bind();
    // Lays the text out again if it changed since the last call.
    void update();
    // Shows what the last update built.
    void draw(float x, float y, float z, float drawAlpha);
    void clear();

    // Layout, exposed for measuring.
    int32_t advance(uint8_t c, int32_t pen) const;
    int32_t glyphWidth(uint8_t c) const;
    int32_t stretchWidth(int32_t start, int32_t length) const;
    int32_t wordWidth(int32_t start, int32_t length) const;
    void cutLines();

    bool dirty = true;
    int32_t width = 0, height = 0;
    int32_t textWidth = 0, textHeight = 0;
    int32_t lineHeight = 0;
    int32_t spaceWidth = 0;
    int32_t tabWidth = 0;
    float alpha = 255.0f;
    std::string text;
    std::vector<Line> lines;
    uint32_t flags = FLAGS_DEFAULT;
    Render::Buffer2D buffer;
    Graphics::SpriteInstance font;

private:
    // Frame 0 of slot 2 of the byte's animation; null when the font lacks it.
    const Graphics::Frame* glyph(uint8_t c) const;
    void splitLines();
    void trimLines();
    void measureLines();
    void wrapLines();
    void clipLinesX();
    void sizeText();
    void clipLinesY();
    void buildQuads();
};

}  // namespace UI
