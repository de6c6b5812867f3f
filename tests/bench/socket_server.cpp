#include <SDL/SDL.h>
#include <SDL/SDL_net.h>
#include <benchmark/benchmark.h>
#include <dirent.h>
#include <unistd.h>

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
const uint32_t MEASURED_MS = 10000;

std::set<long> threadIds() {
    std::set<long> ids;
    if (DIR* dir = opendir("/proc/self/task")) {
        while (dirent* entry = readdir(dir))
            if (entry->d_name[0] != '.') ids.insert(strtol(entry->d_name, nullptr, 10));
        closedir(dir);
    }
    return ids;
}

// Nanoseconds a thread of this process has spent on a processor.
uint64_t cpuNanoseconds(long threadId) {
    std::string path = "/proc/self/task/" + std::to_string(threadId) + "/schedstat";
    unsigned long long ns = 0;
    if (FILE* file = fopen(path.c_str(), "r")) {
        if (fscanf(file, "%llu", &ns) != 1) ns = 0;
        fclose(file);
    }
    return ns;
}

// The worker's share of one core while the main thread plays a hosting game
// at 60 frames a second: its clients polled each frame, and each quarter
// second a snapshot of every fighter, the arena and the rules to each of them.
void BM_SocketServerWorkerCpu(benchmark::State& state) {
    const int waitMs = int(state.range(0));
    const int clientCount = int(state.range(1));
    SDLNet_Init();
    for (auto _ : state) {
        std::set<long> before = threadIds();
        SocketServer server;
        server.waitMs = waitMs;
        if (!server.init(PORT, 8)) {
            state.SkipWithError("no server");
            break;
        }
        long worker = 0;
        for (long id : threadIds())
            if (!before.count(id)) worker = id;
        std::vector<std::unique_ptr<SocketClient>> clients;
        for (int i = 0; i < clientCount; ++i) {
            clients.emplace_back(new SocketClient());
            clients.back()->init("127.0.0.1", PORT);
        }
        while (server.getClientCount() < clientCount) SDL_Delay(1);

        const char snapshot[56] = {};
        uint64_t startCpu = cpuNanoseconds(worker);
        uint32_t start = SDL_GetTicks();
        uint32_t lastSnapshot = start;
        while (SDL_GetTicks() - start < MEASURED_MS) {
            SDL_Delay(16);
            if (SDL_GetTicks() - lastSnapshot >= 250) {
                lastSnapshot += 250;
                for (int to = 0; to < clientCount; ++to) {
                    for (int fighter = 0; fighter < clientCount; ++fighter)
                        server.send(to, CHARACTER_STATE, sizeof snapshot, snapshot);
                    server.send(to, ARENA_STATE, 4, snapshot);
                    server.send(to, GAMEMODE_STATE, 8, snapshot);
                }
            }
            for (int id = 0; id < clientCount; ++id) Packet::destroy(server.pop(id));
            for (auto& client : clients) {
                client->updatePing();
                while (Packet* packet = client->pop()) Packet::destroy(packet);
            }
        }
        double wallNs = double(SDL_GetTicks() - start) * 1e6;
        state.SetIterationTime(wallNs / 1e9);
        state.counters["worker_cpu_percent"] = 100.0 * double(cpuNanoseconds(worker) - startCpu) / wallNs;
        uint64_t in = 0, out = 0;
        server.getTraffic(&in, &out);
        state.counters["bytes_out"] = double(out);
    }
    SDLNet_Quit();
}
BENCHMARK(BM_SocketServerWorkerCpu)
    ->ArgNames({"wait_ms", "clients"})
    ->ArgsProduct({{0, 1, 100}, {8, 0}})
    ->Iterations(1)
    ->UseManualTime()
    ->Unit(benchmark::kSecond);

// From a packet queued on the main thread to its arrival at a client: the
// worker must not sleep through it, whatever its longest wait.
void BM_SocketServerSendLatency(benchmark::State& state) {
    SDLNet_Init();
    {
        SocketServer server;
        server.waitMs = int(state.range(0));
        SocketClient client;
        if (!server.init(PORT + 1, 1) || !client.init("127.0.0.1", PORT + 1)) state.SkipWithError("no connection");
        while (server.getClientCount() < 1) SDL_Delay(1);
        const char payload[56] = {};
        for (auto _ : state) {
            server.send(0, CHARACTER_STATE, sizeof payload, payload);
            Packet* packet = nullptr;
            while (!packet) {
                client.updatePing();
                packet = client.pop();
            }
            Packet::destroy(packet);
        }
    }
    SDLNet_Quit();
}
BENCHMARK(BM_SocketServerSendLatency)->ArgName("wait_ms")->Arg(1)->Arg(100)->Unit(benchmark::kMicrosecond);

}  // namespace
