// One frame of a game server with N ready players connected over the
// loopback: an ordinary frame (controls in, the world, no snapshot), and the
// quarter-second frame in which every player's snapshot goes to everybody.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <memory>
#include <string>
#include <vector>

#include "../support/HostedWorld.h"
#include "network/Payload.h"
#include "network/Server.h"
#include "network/SocketClient.h"
#include "shell/Log.h"

namespace {

const float FRAME = 1.0f / 60.0f;
const int PORT = 17299;

struct Host {
    explicit Host(int players) {
        HostedWorld world;
        if (!server.init(world.rules, world.arena, PORT) || !world.loaded) return;
        // Bare transports that say what a client says and read what comes.
        Payload::Writer connect;
        connect.writeI32(-1);
        connect.writeI32(-1);
        Payload::Writer fighter;
        fighter.writeI32(-1);
        fighter.writeText("character/default/init.lua");
        fighter.writeZeros(4);
        for (int i = 0; i < players; ++i) {
            auto client = std::make_unique<SocketClient>();
            if (!client->init("127.0.0.1", PORT)) return;
            client->send(HANDSHAKE, 0, nullptr);
            client->send(CONNECT, connect.size(), connect.data());
            client->send(CHARACTER_INFO, fighter.size(), fighter.data());
            clients.push_back(std::move(client));
        }
        for (int frame = 0; frame < 100000 && !allReady(players); ++frame) {
            server.tick(FRAME);
            drain();
            SDL_Delay(1);
        }
        ready = allReady(players);
    }
    bool allReady(int players) {
        int count = 0;
        for (const Network::Player* player : server.players) count += player->isReady() ? 1 : 0;
        return count == players && server.started;
    }
    void drain() {
        for (auto& client : clients) {
            client->updatePing();
            while (Packet* packet = client->pop()) Packet::destroy(packet);
        }
    }
    void setSnapshotTimers(float value) {
        for (Network::Player* player : server.players) player->stateTimer = value;
    }

    Network::Server server;
    std::vector<std::unique_ptr<SocketClient>> clients;
    bool ready = false;
};

void runFrames(benchmark::State& state, float timerBeforeFrame) {
    Log::setFlags(0);
    if (SDLNet_Init() != 0 || chdir(KORVANE_SOURCE_DIR "/data") != 0) {
        state.SkipWithError("no network or no game data");
        return;
    }
    {
        Host host(static_cast<int>(state.range(0)));
        if (!host.ready) state.SkipWithError("the players never got ready");
        for (auto _ : state) {
            state.PauseTiming();
            host.drain();
            host.setSnapshotTimers(timerBeforeFrame);
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
