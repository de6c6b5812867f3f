// One frame of a server world: the arena's script, every fighter's script,
// input, speech and physics, without drawing.
#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <vector>

#include "gameplay/Arena.h"
#include "gameplay/Character.h"
#include "gameplay/ControllerDummy.h"

namespace {

const std::string DATA = std::string(KORVANE_SOURCE_DIR) + "/tests/data/gameplay/";
const float FRAME = 1.0f / 60.0f;

struct World {
    explicit World(int fighterCount) {
        arena.objectType = OBJECT_SERVER;
        arena.init(DATA + "arena.lua");
        for (int i = 0; i < fighterCount; ++i) {
            auto fighter = std::make_unique<Character>();
            auto pad = std::make_unique<ControllerDummy>();
            fighter->objectType = OBJECT_SERVER;
            fighter->init(DATA + "bench_fighter.lua");
            fighter->id = i;
            fighter->controller = pad.get();
            fighter->maxHp = 1e9f;  // nobody dies, so every frame does full work
            fighter->moveSpeed = 120.0f;
            fighter->voiceVolume = 10.0f;
            fighter->speakSpeed = 0.3f;
            fighter->lungCapacity = 100.0f;
            fighter->airUsage = 25.0f;
            fighter->restart();
            arena.addCharacter(fighter.get());
            fighters.push_back(std::move(fighter));
            pads.push_back(std::move(pad));
        }
    }

    // Everybody walks and speaks; the keys change now and then so that
    // words are released and defence comes and goes.
    void steer(int frame) {
        for (std::size_t i = 0; i < pads.size(); ++i) {
            int phase = (frame / 20 + static_cast<int>(i)) % 4;
            ControllerDummy& pad = *pads[i];
            pad.pressed[ACTION_A] = phase != 3;
            pad.pressed[ACTION_B] = phase == 3;
            pad.pressed[ACTION_LEFT] = phase == 0;
            pad.pressed[ACTION_RIGHT] = phase == 2;
            pad.pressed[ACTION_UP] = (frame / 30) % 2 == 0;
            pad.pressed[ACTION_DOWN] = (frame / 30) % 2 == 1;
        }
    }

    Arena arena;
    std::vector<std::unique_ptr<Character>> fighters;
    std::vector<std::unique_ptr<ControllerDummy>> pads;
};

void BM_ServerWorldFrame(benchmark::State& state) {
    World world(static_cast<int>(state.range(0)));
    int frame = 0;
    for (auto _ : state) {
        world.steer(frame++);
        world.arena.update(FRAME);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_ServerWorldFrame)->Arg(2)->Arg(8)->Arg(64);

}  // namespace
