// One frame of a game server with N ready players connected over the
// loopback: an ordinary frame (controls in, the world, no snapshot), and the
// quarter-second frame in which every player's snapshot goes to everybody.
#include <benchmark/benchmark.h>

#include <string>

#include "../support/HostedWorld.h"
#include "BenchSupport.h"
#include "network/Server.h"
#include "shell/Log.h"

namespace {

const float FRAME = 1.0f / 60.0f;
const uint16_t PORT = 17299;

// The players are bare transports that say what a client says and read what comes.
struct Host {
    explicit Host(int players) {
        HostedWorld world;
        if (!server.init(world.rules, world.arena, PORT) || !world.loaded) return;
        const int32_t unknown[2] = {-1, -1};
        const std::string fighter = std::string(4, '\xff') + "character/default/init.lua" + std::string(5, '\0');
        clients = connectClients(players, PORT);
        for (auto& client : clients) {
            client->send(HANDSHAKE, 0, nullptr);
            client->send(CONNECT, sizeof unknown, unknown);
            client->send(CHARACTER_INFO, fighter.size(), fighter.data());
        }
        for (int frame = 0; frame < 100000 && !ready; ++frame, SDL_Delay(1)) {
            server.tick(FRAME);
            drain(clients);
            int count = 0;
            for (const Network::Player* player : server.players) count += player->isReady() ? 1 : 0;
            ready = count == players && server.started;
        }
    }

    Network::Server server;
    std::vector<std::unique_ptr<SocketClient>> clients;
    bool ready = false;
};

void runFrames(benchmark::State& state, float timerBeforeFrame) {
    Log::setFlags(0);
    if (SDLNet_Init() != 0 || !enterGameData()) return state.SkipWithError("no network or no game data");
    {
        Host host(static_cast<int>(state.range(0)));
        if (!host.ready) state.SkipWithError("the players never got ready");
        for (auto _ : state) {
            state.PauseTiming();
            drain(host.clients);
            for (Network::Player* player : host.server.players) player->stateTimer = timerBeforeFrame;
            state.ResumeTiming();
            host.server.tick(FRAME);
        }
    }
    SDLNet_Quit();
}

void BM_ServerFrameOrdinary(benchmark::State& state) { runFrames(state, 0.0f); }
BENCHMARK(BM_ServerFrameOrdinary)->Arg(8)->Arg(64)->Unit(benchmark::kMicrosecond);

void BM_ServerFrameAllSnapshots(benchmark::State& state) { runFrames(state, Network::Server::SNAPSHOT_PERIOD); }
BENCHMARK(BM_ServerFrameAllSnapshots)->Arg(8)->Arg(64)->Unit(benchmark::kMicrosecond);

}  // namespace
