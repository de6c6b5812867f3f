#pragma once
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "HostedWorld.h"
#include "RawPeer.h"
#include "audio/Sound.h"
#include "network/Client.h"
#include "network/Server.h"

const float FRAME = 1.0f / 60.0f;
const char* const FIGHTER = "character/default/init.lua";
const char* const ARENA = "arena/osmiornica/init.lua";

// Games over the loopback with the game's own content: the scripts name
// their files relative to the data folder, as the game does from its own.
class GameTest : public NetworkTest {
protected:
    void SetUp() override {
        NetworkTest::SetUp();
        std::filesystem::current_path(KORVANE_SOURCE_DIR "/data");
    }
    void TearDown() override {
        // Clients first: they leave a server that still listens. A main
        // client's sounds stay cached until Sound::clear.
        clients.clear();
        server.reset();
        Sound::clear();
        std::filesystem::current_path(previous);
        NetworkTest::TearDown();
    }

    // A deathmatch in the octopus's lair, listening on `port`.
    void host(int port) {
        HostedWorld world;
        server = std::make_unique<Network::Server>();
        ASSERT_TRUE(server->init(world.rules, world.arena, port));
        ASSERT_TRUE(world.loaded);
    }
    // A client of the default fighter that tries to connect on its first update.
    Network::Client& join(int port, int mode, Controller* pad = nullptr) {
        clients.push_back(std::make_unique<Network::Client>());
        Network::Client& client = *clients.back();
        client.mode = mode;
        client.init("127.0.0.1", port);
        auto* fighter = new Character();
        fighter->objectType = OBJECT_SERVER;
        fighter->path = FIGHTER;
        client.setCharacter(fighter);
        if (pad) client.setController(pad);
        return client;
    }
    // Frames of the server and every client, the clients with their own
    // frame time, until `done` holds; false if it never does.
    bool runUntil(const std::function<bool()>& done, float clientDt = FRAME) {
        return waitFor([&] {
            if (server) server->tick(FRAME);
            for (auto& client : clients) client->update(clientDt);
            return done();
        });
    }
    bool allInGame() {
        for (auto& client : clients)
            if (client->gameState != 1 || !isLoaded(*client, client->id)) return false;
        return true;
    }
    static bool isLoaded(Network::Client& client, int slot) {
        return slot >= 0 && size_t(slot) < client.players.size() &&
               !client.players[size_t(slot)]->character->path.empty();
    }

    std::unique_ptr<Network::Server> server;
    std::vector<std::unique_ptr<Network::Client>> clients;

private:
    const std::filesystem::path previous = std::filesystem::current_path();
};
