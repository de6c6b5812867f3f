// Reading a resource out of an archive through the one door the game reads by.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdio>
#include <memory>
#include <string>

#include "cres/CresWriter.h"
#include "resources/Resource.h"
#include "shell/Log.h"

namespace {

void readThroughResource(benchmark::State& state, const char* name) {
    const std::string archive = "/tmp/bench-resources-" + std::to_string(getpid()) + ".cres";
    const std::string list = archive + ".ini";
    std::string noise(65536, '\0');
    for (size_t i = 0; i < noise.size(); ++i) noise[i] = char((i * 2654435761u) >> 13);
    CresWriter::write(archive, {CresWriter::packEntry("plain.bin", noise),
                                CresWriter::packEntry("packed.txt", std::string(65536, 'a'))});
    FILE* file = fopen(list.c_str(), "w");
    fprintf(file, "[list]\n0=%s\n", archive.c_str());
    fclose(file);
    const uint32_t flags = Log::getFlags();
    Log::setFlags(0);  // the store logs its clear; keep the report clean
    Resource::open(list);
    for (auto _ : state) {
        std::unique_ptr<char[]> data(Resource::read(name));
        benchmark::DoNotOptimize(data.get());
    }
    state.SetBytesProcessed(int64_t(state.iterations()) * Resource::lastSize());
    Resource::clear();
    Log::setFlags(flags);
    remove(list.c_str());
    remove(archive.c_str());
}
// 64 KiB of noise stored plain, and 64 KiB of one letter stored compressed.
void BM_ResourceReadPlain64K(benchmark::State& state) { readThroughResource(state, "plain.bin"); }
void BM_ResourceReadCompressed64K(benchmark::State& state) { readThroughResource(state, "packed.txt"); }
BENCHMARK(BM_ResourceReadPlain64K);
BENCHMARK(BM_ResourceReadCompressed64K);

}  // namespace
