#include "frontend/ScreenText.h"

namespace ScreenText {

namespace {

// Alignment and wrapping; the clipping bits above them stay as they are.
const uint32_t LAYOUT_BITS = 0x7F;

}  // namespace

const char* const FONT = "font/font_02.xml";

void init(UI::Text& text, int32_t width, int32_t height, uint32_t layout) {
    text.init(FONT, "", width, height, -1, -1, -1);
    text.dirty = true;
    text.flags = (text.flags & ~LAYOUT_BITS) | layout;
}

}  // namespace ScreenText
