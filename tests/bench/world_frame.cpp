// One frame of a world: on the server the arena's script, every fighter's
// script, input, speech and physics; in a local world the same and drawing.
#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <vector>

#include "BenchSupport.h"
#include "gameplay/Arena.h"
#include "gameplay/Character.h"
#include "gameplay/ControllerDummy.h"

namespace {

const std::string DATA = std::string(KORVANE_SOURCE_DIR) + "/tests/data/gameplay/";

struct World {
    World(int fighters, int32_t side, const std::string& arenaScript, const std::string& fighterScript) {
        arena.objectType = side;
        arena.init(arenaScript);
        for (int i = 0; i < fighters; ++i) {
            auto& fighter = *characters.emplace_back(std::make_unique<Character>());
            fighter.objectType = side;
            fighter.init(fighterScript);
            fighter.id = i;
            fighter.controller = pads.emplace_back(std::make_unique<ControllerDummy>()).get();
            fighter.maxHp = 1e9f;  // nobody dies, so every frame does full work
            fighter.moveSpeed = 120.0f;
            fighter.voiceVolume = 10.0f;
            fighter.speakSpeed = 0.3f;
            fighter.lungCapacity = 100.0f;
            fighter.airUsage = 25.0f;
            fighter.restart();
            arena.addCharacter(&fighter);
        }
    }

    // Everybody walks and speaks; the keys change now and then so that words
    // are released and defence comes and goes.
    void update(int frame) {
        for (std::size_t i = 0; i < pads.size(); ++i) {
            const int phase = (frame / 20 + static_cast<int>(i)) % 4;
            bool* pressed = pads[i]->pressed;
            pressed[ACTION_A] = phase != 3;
            pressed[ACTION_B] = phase == 3;
            pressed[ACTION_LEFT] = phase == 0;
            pressed[ACTION_RIGHT] = phase == 2;
            pressed[ACTION_UP] = (frame / 30) % 2 == 0;
            pressed[ACTION_DOWN] = (frame / 30) % 2 == 1;
        }
        arena.update(1.0f / 60);
    }

    Arena arena;
    std::vector<std::unique_ptr<Character>> characters;
    std::vector<std::unique_ptr<ControllerDummy>> pads;
};

void BM_ServerWorldFrame(benchmark::State& state) {
    World world(static_cast<int>(state.range(0)), OBJECT_SERVER, DATA + "arena.lua", DATA + "bench_fighter.lua");
    int frame = 0;
    for (auto _ : state) world.update(frame++);
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_ServerWorldFrame)->Arg(2)->Arg(8)->Arg(64);

// The game's own arena and fighters, updated, drawn and flipped in a window.
void BM_LocalWorldFrameDrawn(benchmark::State& state) {
    if (!openWindow() || !enterGameData()) return state.SkipWithError("no window or no game data");
    World world(static_cast<int>(state.range(0)), OBJECT_LOCAL, "arena/osmiornica/init.lua",
                "character/default/init.lua");
    int frame = 0;
    for (auto _ : state) {
        world.update(frame++);
        world.arena.draw();
        Render::flip();
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_LocalWorldFrameDrawn)->Arg(2)->Arg(8);

}  // namespace
