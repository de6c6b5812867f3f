#pragma once
#include <cstdint>
#include <string>

struct SDL_Surface;

namespace Graphics {
class Image;
}

// One texture per picture file, shared by name. Loading takes no reference:
// holders addRef/release, and an image is deleted only when free, flush or
// clear find it without holders.
namespace ImageManager {

Graphics::Image* load(const std::string& name);
// The caller keeps its surface; the image holds a converted copy.
Graphics::Image* load(const std::string& name, SDL_Surface* surface);
// Raw pixels have no decoder: this always fails with a log line.
Graphics::Image* load(const std::string& name, const void* pixels, int32_t width, int32_t height,
                      int32_t extra);

void free(Graphics::Image* image);
void flush();
void clear();
// Makes every texture again, after the OpenGL context was lost.
void reload();

bool loadGfx(const std::string& name, Graphics::Image* image);
bool loadTex(const std::string& name, Graphics::Image* image);

}  // namespace ImageManager
