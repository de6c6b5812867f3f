// spriteview: shows one sprite file exactly as the game draws it, every
// animation in every direction slot, for content authors.
//
//   spriteview SPRITE [--page N] [--frames N] [--shot FILE.bmp]
//
// Run it where the game's data lies: the staged game folder (its data.ini is
// opened when present) or the source data/ folder (plain files). PageUp and
// PageDown turn pages; Escape quits. --frames stops after that many frames,
// --shot then writes the last frame as a BMP.
#include <GL/gl.h>
#include <SDL/SDL.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "SpriteSheetView.h"
#include "graphics/ImageManager.h"
#include "graphics/Render.h"
#include "graphics/SpriteManager.h"
#include "resources/Resource.h"
#include "shell/Log.h"

namespace {

struct Options {
    std::string sprite;
    int page = 0;
    long frames = -1;  // run until quit
    std::string shot;
};

int usage() {
    fprintf(stderr, "usage: spriteview SPRITE [--page N] [--frames N] [--shot FILE.bmp]\n");
    return 2;
}

bool parse(int argc, char** argv, Options& options) {
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        const bool hasValue = i + 1 < argc;
        if (arg == "--page" && hasValue) options.page = atoi(argv[++i]) - 1;
        else if (arg == "--frames" && hasValue) options.frames = atol(argv[++i]);
        else if (arg == "--shot" && hasValue) options.shot = argv[++i];
        else if (!arg.empty() && arg[0] != '-' && options.sprite.empty()) options.sprite = arg;
        else return false;
    }
    return !options.sprite.empty();
}

// Reads the finished frame back from the card, bottom row first as GL gives it.
bool saveShot(const std::string& file) {
    const int w = Render::getWidth(), h = Render::getHeight();
    std::vector<unsigned char> pixels(size_t(w) * h * 3);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, w, h, GL_RGB, GL_UNSIGNED_BYTE, pixels.data());
    SDL_Surface* shot = SDL_CreateRGBSurface(SDL_SWSURFACE, w, h, 24, 0x0000FF, 0x00FF00, 0xFF0000, 0);
    if (!shot) return false;
    for (int y = 0; y < h; ++y)
        memcpy(static_cast<unsigned char*>(shot->pixels) + size_t(y) * shot->pitch, &pixels[size_t(h - 1 - y) * w * 3],
               size_t(w) * 3);
    const bool saved = SDL_SaveBMP(shot, file.c_str()) == 0;
    SDL_FreeSurface(shot);
    return saved;
}

}  // namespace

int main(int argc, char** argv) {
    Options options;
    if (!parse(argc, argv, options)) return usage();
    Log::setFlags(Log::getFlags() & ~uint32_t(Log::LOG_DEBUG));  // no debug chatter on the console
    if (Resource::isRaw("data.ini") && !Resource::open("data.ini")) return 1;

    Render::setCaption("spriteview");
    if (!Render::init(800, 600, false)) {
        fprintf(stderr, "spriteview: no window\n");
        return 1;
    }
    SpriteSheetView view;
    if (!view.init(options.sprite)) {
        fprintf(stderr, "spriteview: %s has no animations to show\n", options.sprite.c_str());
        return 1;
    }
    view.showPage(options.page);

    bool running = true;
    uint32_t last = SDL_GetTicks();
    for (long frame = 0; running; ++frame) {
        SDL_Event event;
        while (SDL_PollEvent(&event)) {
            if (event.type == SDL_QUIT) running = false;
            if (event.type != SDL_KEYDOWN) continue;
            if (event.key.keysym.sym == SDLK_ESCAPE) running = false;
            if (event.key.keysym.sym == SDLK_PAGEDOWN) view.showPage(view.currentPage() + 1);
            if (event.key.keysym.sym == SDLK_PAGEUP) view.showPage(view.currentPage() - 1);
        }
        const uint32_t now = SDL_GetTicks();
        view.update(std::min(0.25f, (now - last) / 1000.0f));
        last = now;
        view.draw();
        const bool lastFrame = options.frames >= 0 && frame + 1 >= options.frames;
        if (lastFrame) {
            Render::flush();
            if (!options.shot.empty() && !saveShot(options.shot)) fprintf(stderr, "spriteview: can't write %s\n", options.shot.c_str());
            running = false;
        }
        Render::flip();
    }
    view.clear();
    SpriteManager::clear();
    ImageManager::clear();
    Resource::clear();
    // The window goes with the process: SDL_Quit would unload the GL driver
    // first, and the leak checker could then no longer tell the driver's own
    // allocations from ours.
    return 0;
}
