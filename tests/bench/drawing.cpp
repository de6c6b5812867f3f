// What a frame's picture costs: quads through the batch. Run under a display (xvfb-run).
#include <GL/glew.h>
#include <benchmark/benchmark.h>

#include <climits>

#include "BenchSupport.h"
#include "graphics/ImageManager.h"

namespace {

// A fighter's body and shadow, which a frame draws by turns.
Graphics::Image* image(int which) {
    static Graphics::Image* images[2] = {};
    if (!images[which] && openWindow() && enterGameData())
        images[which] = ImageManager::load(which ? "character/default/shadow.png" : "character/default/character.png");
    return images[which];
}

// range(0) quads of 32 by 32 to the finished picture, the image changing after every `run` of them.
void drawQuads(benchmark::State& state, int run) {
    Graphics::Image* images[2] = {image(0), image(1)};
    if (!images[0] || !images[1]) return state.SkipWithError("no window or no game data");
    const int quads = static_cast<int>(state.range(0));
    for (auto _ : state) {
        for (int i = 0; i < quads; ++i)
            Render::drawImage(images[i / run & 1], float(i % 700), float(i % 500), 0, 0, 0, 32, 32, 0, 0, 0);
        Render::flush();
        glFinish();
    }
    state.SetItemsProcessed(state.iterations() * quads);
}
void BM_QuadsOfOneImage(benchmark::State& state) { drawQuads(state, INT_MAX); }
// The worst case: every quad changes the texture and so costs a draw call.
void BM_QuadsOfAlternatingImages(benchmark::State& state) { drawQuads(state, 1); }
BENCHMARK(BM_QuadsOfOneImage)->Arg(1000)->Arg(10000)->UseRealTime();
BENCHMARK(BM_QuadsOfAlternatingImages)->Arg(1000)->UseRealTime();

}  // namespace
