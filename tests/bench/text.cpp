// The cost of a 500-glyph text: laying it out (cutting, wrapping, quads),
// and drawing it from its buffer. Run under a display (xvfb-run).
#include <GL/glew.h>
#include <SDL/SDL.h>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <string>

#include "../graphics/BlockFont.h"
#include "graphics/ImageManager.h"
#include "graphics/Render.h"
#include "graphics/Sprite.h"
#include "graphics/Text.h"

namespace {

// Glyphs 6 by 8 (the space 4 wide), all cut from one small picture.
Graphics::Sprite* makeFont() {
    Graphics::Sprite* font = makeBlockFont(4, 6, 6, 8);
    SDL_Surface* s = SDL_CreateRGBSurface(SDL_SWSURFACE, 16, 8, 32, 0xff, 0xff00, 0xff0000, 0xff000000);
    SDL_FillRect(s, nullptr, SDL_MapRGBA(s->format, 255, 255, 255, 255));
    font->setImage(ImageManager::load("bench_font", s));
    SDL_FreeSurface(s);
    return font;
}

// 500 glyphs in words of 2 to 9 letters.
std::string sampleText() {
    std::string text;
    int glyphs = 0;
    for (int word = 0; glyphs < 500; ++word) {
        const int length = std::min(2 + word % 8, 500 - glyphs);
        for (int i = 0; i < length; ++i) text += static_cast<char>('a' + (word + i) % 26);
        glyphs += length;
        text += ' ';
    }
    return text;
}

struct Scene {
    Scene() {
        Render::init(800, 600, false);
        text.font.setSprite(makeFont());
        text.width = 600;
        text.height = 400;
        text.lineHeight = 10;
        text.spaceWidth = 4;
        text.tabWidth = 16;
        text.flags = (text.flags & ~0x3Fu) | UI::Text::FLAG_CENTRE | UI::Text::FLAG_MIDDLE;
        text.bind();
        text.setText(sampleText());
        text.update();
    }
    UI::Text text;
};

Scene& scene() {
    static Scene instance;
    return instance;
}

void BM_TextLayout(benchmark::State& state) {
    UI::Text& text = scene().text;
    for (auto _ : state) {
        text.dirty = true;
        text.update();
        benchmark::DoNotOptimize(text.buffer.vertices.data());
    }
    state.SetItemsProcessed(state.iterations() * 500);
}
BENCHMARK(BM_TextLayout);

void BM_TextDraw(benchmark::State& state) {
    UI::Text& text = scene().text;
    text.draw(0, 0, 0, 255);
    for (auto _ : state) {
        const uint32_t calls = Render::frameStats().drawCalls;
        text.draw(100, 100, 0, 255);
        glFinish();
        state.counters["drawCalls"] = static_cast<double>(Render::frameStats().drawCalls - calls);
    }
    state.SetItemsProcessed(state.iterations() * 500);
}
BENCHMARK(BM_TextDraw);

void BM_TextLayoutAndDraw(benchmark::State& state) {
    UI::Text& text = scene().text;
    for (auto _ : state) {
        text.dirty = true;
        text.update();
        text.draw(100, 100, 0, 255);
        glFinish();
    }
    state.SetItemsProcessed(state.iterations() * 500);
}
BENCHMARK(BM_TextLayoutAndDraw);

}  // namespace
