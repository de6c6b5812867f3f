#include "graphics/EffectFade.h"

#include <cmath>

namespace {

// Truncates to a whole number and keeps its low 8 bits, as a wrapped
// colour byte; values beyond any sensible range give 0 instead of UB.
uint8_t lowByte(float value) {
    if (!(std::fabs(value) < 1e18f)) return 0;
    return static_cast<uint8_t>(static_cast<int64_t>(value));
}

}  // namespace

namespace Effects {

bool bubbleAlpha(float remaining, float lifetime, uint8_t& alpha) {
    float left = remaining / lifetime;
    float t = 1.0f - left;
    if (t < 0.25f) {
        alpha = lowByte(t * 4.0f * 255.0f);
        return true;
    }
    if (t > 0.75f) {
        alpha = lowByte(left * 4.0f * 255.0f);
        return true;
    }
    return false;
}

uint8_t fadeOutAlpha(float remaining, float lifetime) { return lowByte(remaining / lifetime * 255.0f); }

float slideProgress(float t, bool eased) {
    if (!eased) return t;
    float centred = t - 0.5f;
    return (centred * centred * centred * 8.0f + 1.0f) * 0.5f;
}

}  // namespace Effects
