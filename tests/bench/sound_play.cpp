#include <benchmark/benchmark.h>

#include <cstdio>
#include <string>

#include "audio/Sound.h"

namespace {

// Playing a sound already in a cache of `range(0)` names, the wanted one
// last; the channels are halted each time so that every play is heard.
void BM_PlayCachedSound(benchmark::State& state) {
    Sound::init(32);
    std::string last;
    std::string dots;
    for (int i = 0; i < state.range(0); ++i) {
        // Names differ, the file is the same: each is read and decoded once.
        last = std::string(KORVANE_SOURCE_DIR) + dots + "/tests/data/audio/beep.ogg";
        Sound::play(last, 1.0f);
        dots += "/.";
    }
    for (auto _ : state) {
        Sound::play(last, 1.0f);
        Sound::halt(-1);
    }
    Sound::clear();
}

}  // namespace

BENCHMARK(BM_PlayCachedSound)->Arg(1)->Arg(64);
