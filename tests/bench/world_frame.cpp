// One frame of a server's world with the game's own arena and fighters: the
// scripts, input, speech and physics.
#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

#include "BenchSupport.h"
#include "gameplay/Arena.h"
#include "gameplay/Character.h"
#include "gameplay/ControllerDummy.h"

namespace {

struct World {
    explicit World(int fighters) {
        arena.objectType = OBJECT_SERVER;
        arena.init("arena/osmiornica/init.lua");
        for (int i = 0; i < fighters; ++i) {
            auto& fighter = *characters.emplace_back(std::make_unique<Character>());
            fighter.objectType = OBJECT_SERVER;
            fighter.init("character/default/init.lua");
            fighter.id = i;
            fighter.controller = pads.emplace_back(std::make_unique<ControllerDummy>()).get();
            fighter.maxHp = 1e9f;  // nobody dies, so every frame does full work
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
    if (!enterGameData()) return state.SkipWithError("no game data");
    World world(static_cast<int>(state.range(0)));
    int frame = 0;
    for (auto _ : state) world.update(frame++);
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_ServerWorldFrame)->Arg(2)->Arg(8)->Arg(64);

}  // namespace
