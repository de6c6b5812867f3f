#include <benchmark/benchmark.h>

#include "gameplay/ComboManager.h"

namespace {

Event input(int mask) {
    Event event;
    event.type = EVENT_CHARACTER;
    event.input = mask;
    return event;
}

void addCombos(ComboManager& manager, int count) {
    const int32_t steps[] = {INPUT_DEFEND, INPUT_CHARGE, INPUT_SAY, INPUT_LEFT, INPUT_HIT};
    for (int i = 0; i < count; ++i) {
        Combo combo;
        combo.ref = i + 1;
        // Sequences that a fighter walking about never completes.
        for (int step = 0; step < 3; ++step) combo.sequence.push_back(steps[(i + step) % 5] | INPUT_JUMP);
        manager.combos.push_back(combo);
    }
}

// A fighter's frame: one event into its manager, then the check.
void BM_ComboEventAndCheck(benchmark::State& state) {
    ComboManager manager;
    addCombos(manager, static_cast<int>(state.range(0)));
    const int inputs[] = {INPUT_MOVE | INPUT_LEFT, INPUT_MOVE | INPUT_LEFT | INPUT_UP, 0, INPUT_DEFEND, 0,
                          INPUT_CHARGE, INPUT_SAY, 0};
    size_t i = 0;
    for (auto _ : state) {
        manager.onEvent(input(inputs[i++ % 8]));
        manager.check();
        benchmark::DoNotOptimize(manager.matched);
    }
}
BENCHMARK(BM_ComboEventAndCheck)->Arg(1)->Arg(8);

// A held input every frame: collapsed, and the check returns at once.
void BM_ComboHeldInput(benchmark::State& state) {
    ComboManager manager;
    addCombos(manager, 8);
    const Event held = input(INPUT_MOVE | INPUT_RIGHT);
    for (auto _ : state) {
        manager.onEvent(held);
        manager.check();
        benchmark::DoNotOptimize(manager.queue.size());
    }
}
BENCHMARK(BM_ComboHeldInput);

}  // namespace
