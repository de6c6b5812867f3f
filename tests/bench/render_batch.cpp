#include <GL/glew.h>
#include <SDL/SDL.h>
#include <benchmark/benchmark.h>

#include "graphics/Image.h"
#include "graphics/ImageManager.h"
#include "graphics/Render.h"

namespace {

// One window for the whole run; two small images to batch from.
Graphics::Image* image(int which) {
    static Graphics::Image* images[2] = {};
    static const bool opened = [] {
        if (!Render::init(800, 600, false)) return false;
        for (int i = 0; i < 2; ++i) {
            SDL_Surface* s = SDL_CreateRGBSurface(SDL_SWSURFACE, 32, 32, 32, 0xff, 0xff00,
                                                  0xff0000, 0xff000000);
            SDL_FillRect(s, nullptr, SDL_MapRGBA(s->format, 200, 100 * i, 50, 255));
            images[i] = ImageManager::load(i ? "bench_b" : "bench_a", s);
            SDL_FreeSurface(s);
        }
        return true;
    }();
    return opened ? images[which] : nullptr;
}

// A whole run of one texture through to the finished picture.
void BM_OneTextureDrawn(benchmark::State& state) {
    Graphics::Image* a = image(0);
    if (!a) return state.SkipWithError("no window");
    const int quads = static_cast<int>(state.range(0));
    for (auto _ : state) {
        for (int i = 0; i < quads; ++i)
            Render::drawImage(a, static_cast<float>(i % 700), static_cast<float>(i % 500), 0, 0, 0, 0);
        Render::flush();
        glFinish();
    }
    state.SetItemsProcessed(state.iterations() * quads);
}
BENCHMARK(BM_OneTextureDrawn)->Arg(1000)->Arg(10000)->UseRealTime();

// The worst case: every quad changes the texture and so costs a draw call.
void BM_AlternatingTexturesDrawn(benchmark::State& state) {
    Graphics::Image* images[2] = {image(0), image(1)};
    if (!images[0]) return state.SkipWithError("no window");
    const int quads = static_cast<int>(state.range(0));
    for (auto _ : state) {
        for (int i = 0; i < quads; ++i)
            Render::drawImage(images[i & 1], static_cast<float>(i % 700), static_cast<float>(i % 500),
                              0, 0, 0, 0);
        Render::flush();
        glFinish();
    }
    state.SetItemsProcessed(state.iterations() * quads);
}
BENCHMARK(BM_AlternatingTexturesDrawn)->Arg(1000)->UseRealTime();

}  // namespace
