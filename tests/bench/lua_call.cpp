// The price of one callback through Lua::call, as fighters pay it every frame.
#include <benchmark/benchmark.h>

#include "script/Lua.h"

namespace {

void startScript(Lua& lua) {
    lua.start();
    lua.run("function update() end\n"
            "function onHit(amount, self) return amount, amount * 2, 'hit' end");
}

void BM_CallEmptyCallback(benchmark::State& state) {
    Lua lua;
    startScript(lua);
    for (auto _ : state) lua.call("update");
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_CallEmptyCallback);

// Two pushed arguments and three results left for the next call to drop.
void BM_CallWithArgumentsAndResults(benchmark::State& state) {
    Lua lua;
    startScript(lua);
    for (auto _ : state) {
        lua.pushNumber(12.5f);
        lua.pushNumber(0.0f);
        lua.call("onHit");
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_CallWithArgumentsAndResults);

void BM_CallRef(benchmark::State& state) {
    Lua lua;
    startScript(lua);
    int reference = lua.ref("update");
    for (auto _ : state) lua.callRef(reference);
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_CallRef);

}  // namespace
