// Measuring and cutting a UI::Text into lines.
#include <algorithm>

#include "graphics/Sprite.h"
#include "graphics/Text.h"

namespace UI {

namespace {

const uint8_t LINE_FEED = 10;
const uint8_t CARRIAGE_RETURN = 13;
const uint8_t TAB = 9;
// Codes below this are blanks and control characters: break points, no glyph.
const uint8_t FIRST_GLYPH = 33;

bool isBlank(char c) { return static_cast<uint8_t>(c) < FIRST_GLYPH; }

}  // namespace

const Graphics::Frame* Text::glyph(uint8_t c) const {
    if (!font.sprite) return nullptr;
    const Graphics::Anim* anim = font.sprite->anim(static_cast<int32_t>(c) - 32);
    const Graphics::Dir* dir = anim ? anim->dir(Graphics::DIR_DOWN) : nullptr;
    return dir ? dir->frame(0) : nullptr;
}

// Glyphs stand one pixel apart; a byte the font lacks takes no room.
int32_t Text::glyphWidth(uint8_t c) const {
    const Graphics::Frame* frame = glyph(c);
    return frame ? frame->w + 1 : 0;
}

int32_t Text::advance(uint8_t c, int32_t pen) const {
    if (c == CARRIAGE_RETURN) return -pen;
    if (c == LINE_FEED) return 0;
    if (c == TAB) return tabWidth > 0 ? tabWidth * (pen / tabWidth + 1) - pen : 0;
    if (c < FIRST_GLYPH) return spaceWidth;
    return glyphWidth(c);
}

int32_t Text::stretchWidth(int32_t start, int32_t length) const {
    if (!font.sprite) return 0;
    int32_t pen = 0;
    int32_t widest = 0;
    for (int32_t i = start; i < start + length; ++i) {
        const uint8_t c = static_cast<uint8_t>(text[static_cast<size_t>(i)]);
        if (c == LINE_FEED) break;
        pen += advance(c, pen);
        widest = std::max(widest, pen);
    }
    return widest;
}

int32_t Text::wordWidth(int32_t start, int32_t length) const {
    if (!font.sprite) return 0;
    int32_t sum = 0;
    for (int32_t i = start; i < start + length; ++i) {
        const uint8_t c = static_cast<uint8_t>(text[static_cast<size_t>(i)]);
        if (c < FIRST_GLYPH) break;
        sum += glyphWidth(c);
    }
    return sum;
}

void Text::splitLines() {
    lines.clear();
    int32_t start = 0;
    const int32_t size = static_cast<int32_t>(text.size());
    for (int32_t i = 0; i < size; ++i) {
        if (text[static_cast<size_t>(i)] != '\n') continue;
        int32_t end = i;
        if (end > start && text[static_cast<size_t>(end - 1)] == '\r') --end;
        lines.push_back(Line{start, end - start, 0});
        start = i + 1;
    }
    lines.push_back(Line{start, size - start, 0});
}

void Text::trimLines() {
    for (Line& line : lines) {
        if (flags & (FLAG_CENTRE | FLAG_RIGHT)) {
            while (line.length > 0 && isBlank(text[static_cast<size_t>(line.start)])) {
                ++line.start;
                --line.length;
            }
        }
        if (flags & (FLAG_LEFT | FLAG_CENTRE)) {
            while (line.length > 1 && isBlank(text[static_cast<size_t>(line.start + line.length - 1)]))
                --line.length;
        }
    }
}

void Text::measureLines() {
    for (Line& line : lines) line.width = stretchWidth(line.start, line.length);
}

void Text::wrapLines() {
    // Lines made here are wrapped in their turn as the walk reaches them.
    for (size_t i = 0; i < lines.size(); ++i) {
        const Line line = lines[i];
        int32_t pen = 0;
        for (int32_t k = 0; k < line.length; ++k) {
            const int32_t at = line.start + k;
            const uint8_t c = static_cast<uint8_t>(text[static_cast<size_t>(at)]);
            pen += advance(c, pen);
            if (c >= FIRST_GLYPH) continue;
            if (pen + wordWidth(at + 1, line.length - k - 1) <= width) continue;
            Line rest{at, line.length - k, 0};
            while (rest.length > 0 && isBlank(text[static_cast<size_t>(rest.start)])) {
                ++rest.start;
                --rest.length;
            }
            rest.width = stretchWidth(rest.start, rest.length);
            lines[i].length = k;
            lines[i].width = stretchWidth(line.start, k);
            lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(i) + 1, rest);
            break;
        }
    }
}

void Text::clipLinesX() {
    for (Line& line : lines) {
        int32_t pen = 0;
        for (int32_t k = 0; k < line.length; ++k) {
            const int32_t step = advance(static_cast<uint8_t>(text[static_cast<size_t>(line.start + k)]), pen);
            if (pen + step > width) {
                line.length = k;
                break;
            }
            pen += step;
        }
    }
}

void Text::sizeText() {
    textWidth = width;
    textHeight = lineHeight * static_cast<int32_t>(lines.size());
    if (!(flags & FLAG_LEFT)) return;
    for (const Line& line : lines) textWidth = std::max(textWidth, line.width);
}

void Text::clipLinesY() {
    if ((flags & FLAG_NO_CLIP_Y) || height >= textHeight || lineHeight <= 0) return;
    const int32_t keep = std::max(0, height / lineHeight);
    if (static_cast<size_t>(keep) < lines.size()) lines.resize(static_cast<size_t>(keep));
    textHeight = lineHeight * static_cast<int32_t>(lines.size());
}

void Text::cutLines() {
    splitLines();
    trimLines();
    measureLines();
    if (flags & FLAG_WRAP) wrapLines();
    if (!(flags & FLAG_NO_CLIP_X)) clipLinesX();
    sizeText();
    clipLinesY();
    // Clipping and wrapping may leave blanks at line ends and stale widths.
    if ((flags & FLAG_WRAP) || !(flags & (FLAG_NO_CLIP_X | FLAG_NO_CLIP_Y))) {
        trimLines();
        measureLines();
        sizeText();
    }
}

}  // namespace UI
