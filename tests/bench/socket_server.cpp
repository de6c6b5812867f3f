#include <SDL/SDL.h>
#include <SDL/SDL_net.h>
#include <benchmark/benchmark.h>
#include <dirent.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "network/SocketClient.h"
#include "network/SocketServer.h"

namespace {

const uint16_t PORT = 17190;

std::set<long> threadIds() {
    std::set<long> ids;
    if (DIR* dir = opendir("/proc/self/task")) {
        while (dirent* entry = readdir(dir)) ids.insert(strtol(entry->d_name, nullptr, 10));
        closedir(dir);
    }
    return ids;
}

// Nanoseconds a thread of this process has spent on a processor.
double cpuNanoseconds(long threadId) {
    unsigned long long ns = 0;
    if (FILE* file = fopen(("/proc/self/task/" + std::to_string(threadId) + "/schedstat").c_str(), "r")) {
        if (fscanf(file, "%llu", &ns) != 1) ns = 0;
        fclose(file);
    }
    return double(ns);
}

struct Hosting {
    explicit Hosting(int waitMs, int clientCount) {
        SDLNet_Init();
        std::set<long> before = threadIds();
        server.waitMs = waitMs;
        server.init(PORT, 8);
        for (long id : threadIds())
            if (!before.count(id)) worker = id;
        for (int i = 0; i < clientCount; ++i) {
            clients.emplace_back(new SocketClient());
            clients.back()->init("127.0.0.1", PORT);
        }
        while (server.getClientCount() < clientCount) SDL_Delay(1);
    }
    ~Hosting() {
        clients.clear();
        server.close();
        SDLNet_Quit();
    }
    SocketServer server;
    std::vector<std::unique_ptr<SocketClient>> clients;
    long worker = 0;
};

// The worker's share of a core over 10 s of a hosted game at 60 frames a
// second: every client polled each frame and, each quarter second, sent a
// snapshot of every fighter, the arena and the rules (all of 56 bytes).
void BM_SocketServerWorkerCpu(benchmark::State& state) {
    const int clientCount = int(state.range(1));
    const char snapshot[56] = {};
    for (auto _ : state) {
        Hosting hosting(int(state.range(0)), clientCount);
        double startCpu = cpuNanoseconds(hosting.worker);
        uint32_t start = SDL_GetTicks();
        for (uint32_t frame = 0; SDL_GetTicks() - start < 10000; ++frame, SDL_Delay(16)) {
            for (int to = 0; to < clientCount && frame % 15 == 0; ++to)
                for (int packet = 0; packet < clientCount + 2; ++packet)
                    hosting.server.send(to, CHARACTER_STATE, sizeof snapshot, snapshot);
            for (auto& client : hosting.clients) {
                client->updatePing();
                while (Packet* packet = client->pop()) Packet::destroy(packet);
            }
        }
        double wallNs = double(SDL_GetTicks() - start) * 1e6;
        state.SetIterationTime(wallNs / 1e9);
        state.counters["worker_cpu_percent"] = 100.0 * (cpuNanoseconds(hosting.worker) - startCpu) / wallNs;
    }
}
BENCHMARK(BM_SocketServerWorkerCpu)
    ->ArgNames({"wait_ms", "clients"})
    ->ArgsProduct({{0, 1, 100}, {8, 0}})
    ->Iterations(1)
    ->UseManualTime()
    ->Unit(benchmark::kSecond);

// From a packet queued on the main thread to its arrival at a client: the
// worker must not sleep through it, however long it may wait.
void BM_SocketServerSendLatency(benchmark::State& state) {
    Hosting hosting(int(state.range(0)), 1);
    const char payload[56] = {};
    for (auto _ : state) {
        hosting.server.send(0, CHARACTER_STATE, sizeof payload, payload);
        Packet* packet = nullptr;
        for (; !packet; packet = hosting.clients[0]->pop()) hosting.clients[0]->updatePing();
        Packet::destroy(packet);
    }
}
BENCHMARK(BM_SocketServerSendLatency)->ArgName("wait_ms")->Arg(1)->Arg(100)->Unit(benchmark::kMicrosecond);

}  // namespace
