// The transport worker's share of a core, spinning or waiting, idle or with
// clients.
#include <SDL/SDL_net.h>
#include <benchmark/benchmark.h>

#include <ctime>

#include "BenchSupport.h"
#include "network/SocketServer.h"

namespace {

const uint16_t PORT = 17190;

// Processor time of every thread but the calling one, in nanoseconds: with
// the clients polled on this thread, that is the worker's.
double workerCpuNanoseconds() {
    timespec all, mine;
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &all);
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &mine);
    return double(all.tv_sec - mine.tv_sec) * 1e9 + double(all.tv_nsec - mine.tv_nsec);
}

struct Hosting {
    Hosting(int waitMs, int clientCount) {
        SDLNet_Init();
        server.waitMs = waitMs;
        server.init(PORT, 8);
        clients = connectClients(clientCount, PORT);
        while (server.getClientCount() < clientCount) SDL_Delay(1);
    }
    ~Hosting() {
        clients.clear();
        server.close();
        SDLNet_Quit();
    }
    SocketServer server;
    std::vector<std::unique_ptr<SocketClient>> clients;
};

// Over 10 s of a hosted game at 60 frames a second: every client polled each
// frame and, each quarter second, sent a snapshot of every fighter, the arena
// and the rules (all of 56 bytes).
void BM_SocketServerWorkerCpu(benchmark::State& state) {
    const int clientCount = int(state.range(1));
    const char snapshot[56] = {};
    for (auto _ : state) {
        Hosting hosting(int(state.range(0)), clientCount);
        double startCpu = workerCpuNanoseconds();
        uint32_t start = SDL_GetTicks();
        for (uint32_t frame = 0; SDL_GetTicks() - start < 10000; ++frame, SDL_Delay(16)) {
            for (int to = 0; to < clientCount && frame % 15 == 0; ++to)
                for (int packet = 0; packet < clientCount + 2; ++packet)
                    hosting.server.send(to, CHARACTER_STATE, sizeof snapshot, snapshot);
            drain(hosting.clients);
        }
        double wallNs = double(SDL_GetTicks() - start) * 1e6;
        state.SetIterationTime(wallNs / 1e9);
        state.counters["worker_cpu_percent"] = 100.0 * (workerCpuNanoseconds() - startCpu) / wallNs;
    }
}
BENCHMARK(BM_SocketServerWorkerCpu)
    ->ArgNames({"wait_ms", "clients"})
    ->ArgsProduct({{0, 1, 100}, {8, 0}})
    ->Iterations(1)
    ->UseManualTime()
    ->Unit(benchmark::kSecond);

}  // namespace
