#pragma once
#include <cstdint>

// The arithmetic of the effects' fades and motions, apart from drawing.
namespace Effects {

// Alpha of a bubble with this much of its life left: rising over the first
// quarter, falling over the last. False in the middle half, where the alpha
// is left alone.
bool bubbleAlpha(float remaining, float lifetime, uint8_t& alpha);

// Alpha of a particle, fading linearly over its whole life.
uint8_t fadeOutAlpha(float remaining, float lifetime);

// Share of a slide's way covered at time share t (0 to 1); eased slides
// start and end fast and linger in the middle.
float slideProgress(float t, bool eased);

}  // namespace Effects
