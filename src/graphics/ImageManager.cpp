#include "graphics/ImageManager.h"

#include <GL/glew.h>
#include <SDL/SDL.h>
#include <SDL/SDL_image.h>

#include <map>
#include <new>

#include "graphics/Image.h"
#include "graphics/Render.h"
#include "resources/Resource.h"
#include "shell/Log.h"

namespace ImageManager {

namespace {

std::map<std::string, Graphics::Image*>& images() {
    static std::map<std::string, Graphics::Image*> map;
    return map;
}

Graphics::Image* newImage() { return new (std::nothrow) Graphics::Image(); }

void destroy(Graphics::Image* image) {
    // Batched quads may still use this texture: draw them while it exists.
    Render::bindTexture(0);
    if (image->texture) glDeleteTextures(1, &image->texture);
    if (image->surface) SDL_FreeSurface(image->surface);
    delete image;
}

// Deletes every image without holders. Either message may be null; the
// first names each deleted image, the second each one still held.
void sweep(const char* deletedMessage, const char* heldMessage) {
    auto& map = images();
    for (auto it = map.begin(); it != map.end();) {
        Graphics::Image* image = it->second;
        if (image->refs() < 1) {
            if (deletedMessage) Log::debug(deletedMessage, it->first.c_str());
            destroy(image);
            it = map.erase(it);
        } else {
            if (heldMessage) Log::debug(heldMessage, it->first.c_str(), image->refs());
            ++it;
        }
    }
}

Graphics::Image* find(const std::string& name) {
    auto it = images().find(name);
    return it == images().end() ? nullptr : it->second;
}

}  // namespace

Graphics::Image* load(const std::string& name) {
    if (Graphics::Image* known = find(name)) return known;
    // Without a window a world only simulates (a dedicated server's bots, a
    // benchmark): it has nothing to show a picture on, and nothing to report.
    if (!SDL_GetVideoSurface()) return nullptr;
    Graphics::Image* image = newImage();
    if (!image) {
        Log::fail("ImageManager.load: Nie udalo sie zajac miejsca na \"%s\"", name.c_str());
        return nullptr;
    }
    if (!loadGfx(name, image)) {
        Log::fail("ImageManager.load: Nie udalo sie wczytac grafiki \"%s\"", name.c_str());
        destroy(image);
        return nullptr;
    }
    if (!loadTex(name, image)) {
        Log::fail("ImageManager.load: Nie udalo sie wygenerowac tekstury \"%s\"", name.c_str());
        destroy(image);
        return nullptr;
    }
    // The card has the pixels now.
    SDL_FreeSurface(image->surface);
    image->surface = nullptr;
    Log::debug("ImageManager.load: Wczytano \"%s\"", name.c_str());
    images()[name] = image;
    return image;
}

Graphics::Image* load(const std::string& name, SDL_Surface* surface) {
    if (Graphics::Image* known = find(name)) return known;
    if (!surface) return nullptr;
    Log::debug("ImageManger.load(srf): Wczytywanie \"%s\"", name.c_str());
    Graphics::Image* image = newImage();
    if (!image) {
        Log::fail("ImageManager.load(srf): Nie udalo sie zajac pamieci na \"%s\"", name.c_str());
        return nullptr;
    }
    image->surface = SDL_DisplayFormatAlpha(surface);
    image->width = surface->w;
    image->height = surface->h;
    if (!image->surface || !loadTex(name, image)) {
        Log::fail("ImageManager.load: Nie udalo sie wygenerowac tekstury \"%s\"", name.c_str());
        destroy(image);
        return nullptr;
    }
    images()[name] = image;
    return image;
}

Graphics::Image* load(const std::string& name, const void* pixels, int32_t width, int32_t height,
                      int32_t /*extra*/) {
    if (Graphics::Image* known = find(name)) return known;
    if (!pixels || width < 0 || height < 0) return nullptr;
    Log::debug("ImageManger.load(pixs): Wczytywanie \"%s\"", name.c_str());
    // No pixel layout was ever agreed on, so there is nothing to decode with.
    Log::debug("ImageManager.loadGfx(pixs): NOPE");
    Log::fail("ImageManager.load(pixs): Nie udalo sie wygenerowac bitmapy \"%s\"", name.c_str());
    return nullptr;
}

bool loadGfx(const std::string& name, Graphics::Image* image) {
    char* bytes = Resource::read(name.c_str());
    if (!bytes) {
        Log::fail("ImageManager.loadGfx: Nie udalo sie wczytac grafiki \"%s\"", name.c_str());
        return false;
    }
    SDL_RWops* stream = SDL_RWFromMem(bytes, static_cast<int>(Resource::lastSize()));
    SDL_Surface* decoded = stream ? IMG_Load_RW(stream, 1) : nullptr;
    delete[] bytes;
    if (!decoded) {
        Log::fail("ImageManager.loadGfx: Nie udalo sie zdekompresowac grafiki \"%s\"\n\terr: %s",
                  name.c_str(), SDL_GetError());
        return false;
    }
    // Without a window there is no display format and no GL context to
    // upload into (a world that only simulates, such as a benchmark's).
    SDL_Surface* converted = SDL_GetVideoSurface() ? SDL_DisplayFormatAlpha(decoded) : nullptr;
    SDL_FreeSurface(decoded);
    if (!converted) {
        Log::fail("ImageManager.loadGfx: Nie udalo sie przekonwertowac grafiki \"%s\"", name.c_str());
        return false;
    }
    if (image->surface) SDL_FreeSurface(image->surface);
    image->surface = converted;
    image->width = converted->w;
    image->height = converted->h;
    return true;
}

bool loadTex(const std::string& name, Graphics::Image* image) {
    image->texture = 0;
    Render::bindTexture(0);
    GLuint texture = 0;
    glGenTextures(1, &texture);
    if (texture == 0 || glGetError() != GL_NO_ERROR) {
        Log::fail("ImageManager.loadTex: Nie udalo sie dostac tekstury dla \"%s\"", name.c_str());
        return false;
    }
    image->texture = texture;
    Render::bindTexture(texture);
    // The display format with alpha is 32-bit BGRA with no row padding.
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, image->width, image->height, 0, GL_BGRA,
                 GL_UNSIGNED_BYTE, image->surface ? image->surface->pixels : nullptr);
    // Sharp pixels, no mipmaps: one upload call.
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_REPEAT);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_REPEAT);
    GLenum error = glGetError();
    if (error != GL_NO_ERROR) {
        Log::fail("ImageManager.loadTex: Nie udalo sie wygenerowac tekstury dla \"%s\"\n\terr: %04X (%d)",
                  name.c_str(), static_cast<unsigned>(error), static_cast<int>(error));
        return false;
    }
    return true;
}

void free(Graphics::Image* image) {
    auto& map = images();
    for (auto it = map.begin(); it != map.end(); ++it) {
        if (it->second != image) continue;
        if (image->refs() > 0) return;
        Log::debug("ImageManager.free: Kasowanie \"%s\"", it->first.c_str());
        destroy(image);
        map.erase(it);
        return;
    }
}

void flush() { sweep("ImageManager.flush: Kasowanie \"%s\"", nullptr); }

void clear() {
    auto& map = images();
    if (map.empty()) return;
    Log::info("ImageManager.clear: Czyszczenie, %d obrazków", static_cast<int>(map.size()));
    sweep(nullptr, "ImageManager.clear: Obrazek \"%s\" ma %d referencji");
    Log::ok("ImageManager.clear: Wyczyszczono");
}

void reload() {
    auto& map = images();
    Log::debug("ImageManager.clear: Ponowne wczytywanie %d obrazków", static_cast<int>(map.size()));
    for (auto& entry : map) {
        if (!entry.second->surface) loadGfx(entry.first, entry.second);
        loadTex(entry.first, entry.second);
    }
}

}  // namespace ImageManager
