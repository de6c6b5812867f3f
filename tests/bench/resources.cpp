#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "cres/CresWriter.h"
#include "resources/Resfile.h"
#include "resources/Resource.h"
#include "shell/Log.h"

namespace {

// 1000 small entries and two of 64 KiB, one stored plain and one compressed.
const std::string& archivePath() {
    static const std::string path = [] {
        std::string file = "/tmp/bench-resources-" + std::to_string(getpid()) + ".cres";
        std::vector<CresWriter::Entry> entries;
        for (int i = 0; i < 1000; ++i)
            entries.push_back(CresWriter::packEntry("character/c" + std::to_string(i) + "/init.lua", "x = 1"));
        std::string noise(65536, '\0');
        for (size_t i = 0; i < noise.size(); ++i) noise[i] = char((i * 2654435761u) >> 13);
        entries.push_back(CresWriter::packEntry("plain.bin", noise));
        entries.push_back(CresWriter::packEntry("packed.txt", std::string(65536, 'a')));
        CresWriter::write(file, entries);
        return file;
    }();
    return path;
}

void BM_ResfileOpenTableOf1002(benchmark::State& state) {
    const std::string& path = archivePath();  // built before the clock runs
    for (auto _ : state) {
        Resfile resfile;
        benchmark::DoNotOptimize(resfile.open(path));
    }
}
BENCHMARK(BM_ResfileOpenTableOf1002);

void readThroughResource(benchmark::State& state, const char* name) {
    FILE* list = fopen("/tmp/bench-resources.ini", "w");
    fprintf(list, "[list]\n0=%s\n", archivePath().c_str());
    fclose(list);
    uint32_t flags = Log::getFlags();
    Log::setFlags(0);  // the store logs its clear; keep the report clean
    Resource::open("/tmp/bench-resources.ini");
    for (auto _ : state) {
        std::unique_ptr<char[]> data(Resource::read(name));
        benchmark::DoNotOptimize(data.get());
    }
    state.SetBytesProcessed(int64_t(state.iterations()) * Resource::lastSize());
    Resource::clear();
    Log::setFlags(flags);
}
void BM_ResourceReadPlain64K(benchmark::State& state) { readThroughResource(state, "plain.bin"); }
void BM_ResourceReadCompressed64K(benchmark::State& state) { readThroughResource(state, "packed.txt"); }
BENCHMARK(BM_ResourceReadPlain64K);
BENCHMARK(BM_ResourceReadCompressed64K);

}  // namespace
