// The price of one callback through Lua::call, as fighters and arenas pay it every frame.
#include <benchmark/benchmark.h>

#include "script/Lua.h"

namespace {

void BM_CallEmptyCallback(benchmark::State& state) {
    Lua lua;
    lua.start();
    lua.run("function update() end");
    for (auto _ : state) lua.call("update");
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_CallEmptyCallback);

// Two pushed arguments and three results left for the next call to drop.
void BM_CallWithArgumentsAndResults(benchmark::State& state) {
    Lua lua;
    lua.start();
    lua.run("function onHit(amount, self) return amount, amount * 2, 'hit' end");
    for (auto _ : state) {
        lua.pushNumber(12.5f);
        lua.pushNumber(0.0f);
        lua.call("onHit");
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_CallWithArgumentsAndResults);

}  // namespace
