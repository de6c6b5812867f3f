#include <benchmark/benchmark.h>

#include "gameplay/ControllerManager.h"
#include "resources/Database.h"

namespace {

// Menus ask every action of every controller each frame.
void BM_ControllerManagerAnyPressed(benchmark::State& state) {
    ControllerManager::init("config.nvo");
    for (auto _ : state) benchmark::DoNotOptimize(ControllerManager::anyPressed());
    ControllerManager::clear();
    Database::clearAll();
}
BENCHMARK(BM_ControllerManagerAnyPressed);

}  // namespace
