#pragma once
#include <cstdint>

#include "graphics/Text.h"

// How the screens set up their texts.
namespace ScreenText {

extern const char* const FONT;
constexpr uint32_t CENTRED = UI::Text::FLAG_CENTRE | UI::Text::FLAG_MIDDLE;
constexpr uint32_t CENTRED_WRAPPED = CENTRED | UI::Text::FLAG_WRAP;

// An empty text in the screens' font, with the font's own metrics, in a box
// of the given size, with `layout` in place of the alignment and wrap flags.
void init(UI::Text& text, int32_t width, int32_t height, uint32_t layout);

}  // namespace ScreenText
