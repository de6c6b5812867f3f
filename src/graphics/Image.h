#pragma once
#include <cstdint>

#include "graphics/RefCounter.h"

struct SDL_Surface;

namespace Graphics {

// One picture as an OpenGL texture, shared by name through ImageManager.
class Image final : public RefCounter {
public:
    uint32_t texture = 0;
    // Pixels in display format with alpha, owned; null once uploaded from a file.
    SDL_Surface* surface = nullptr;
    // Full size in pixels, also the divisors of texture coordinates.
    int32_t width = 0;
    int32_t height = 0;
};

}  // namespace Graphics
