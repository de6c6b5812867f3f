#include <benchmark/benchmark.h>

#include "gameplay/Arena.h"
#include "gameplay/Character.h"
#include "script/Lua.h"
#include "script/LuaFuncs.h"

namespace {

const int CALLS_PER_RUN = 100;

// An arena's script with two fighters, running a loop of one native call.
struct ArenaScript {
    ArenaScript(const char* body) {
        for (Character& fighter : fighters) arena.characters.push_back(&fighter);
        lua.start();
        lua.setPtr("char", nullptr);
        lua.setPtr("arena", &arena);
        LuaFuncs::registerAll(lua, 0);
        lua.run(std::string("function run() for i = 1, 100 do ") + body + " end end");
    }
    Arena arena;
    Character fighters[2];
    Lua lua;
};

void runScript(benchmark::State& state, const char* body) {
    ArenaScript script(body);
    for (auto _ : state) script.lua.call("run");
    state.SetItemsProcessed(state.iterations() * CALLS_PER_RUN);
}

void BM_ReadFighterPosition(benchmark::State& state) { runScript(state, "getCharacterPosition(1)"); }
void BM_SetFighterHp(benchmark::State& state) { runScript(state, "setCharacterHp(1, 10)"); }
void BM_SetArenaFromTable(benchmark::State& state) {
    runScript(state, "setArena({dimension = {0, 300, 800, 300}})");
}

}  // namespace

BENCHMARK(BM_ReadFighterPosition);
BENCHMARK(BM_SetFighterHp);
BENCHMARK(BM_SetArenaFromTable);
