// What a frame's picture costs: quads through the batch, and a text of 504
// glyphs in the game's font, laid out and drawn. Run under a display (xvfb-run).
#include <GL/glew.h>
#include <benchmark/benchmark.h>

#include <climits>
#include <string>

#include "BenchSupport.h"
#include "graphics/ImageManager.h"
#include "graphics/Text.h"

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

// 504 glyphs in 14 sentences, centred in a box of 600 by 400.
UI::Text* sampleText() {
    static UI::Text* text = []() -> UI::Text* {
        if (!openWindow() || !enterGameData()) return nullptr;
        std::string sentences;
        for (int i = 0; i < 14; ++i) sentences += "The quick brown fox jumps over the lazy dog. ";
        auto* made = new UI::Text("font/font_02.xml", sentences, 600, 400, -1, -1, -1);
        made->flags = (made->flags & ~0x3Fu) | UI::Text::FLAG_CENTRE | UI::Text::FLAG_MIDDLE;
        return made;
    }();
    return text;
}

void BM_TextLayout(benchmark::State& state) {
    UI::Text* text = sampleText();
    if (!text) return state.SkipWithError("no window or no game data");
    for (auto _ : state) {
        text->dirty = true;
        text->update();
    }
    state.SetItemsProcessed(state.iterations() * 504);
}
BENCHMARK(BM_TextLayout);

void BM_TextDraw(benchmark::State& state) {
    UI::Text* text = sampleText();
    if (!text) return state.SkipWithError("no window or no game data");
    text->update();
    for (auto _ : state) {
        text->draw(100, 100, 0, 255);
        glFinish();
    }
    state.SetItemsProcessed(state.iterations() * 504);
}
BENCHMARK(BM_TextDraw);

}  // namespace
