// A server and its clients in one process over the loopback, as on a
// hosting machine.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

#include "GameFixture.h"
#include "TestSupport.h"
#include "gameplay/Bot.h"
#include "gameplay/ControllerDummy.h"

namespace {

using Network::Client;

class GameSessionTest : public GameTest {
protected:
    static std::string snapshot(Serializable& object) {
        uint32_t size = 0;
        const char* bytes = static_cast<const char*>(object.serialize(&size));
        return std::string(bytes, size);
    }
    // Every client has every client's fighter; `mirrored`: each as the
    // server has it, and the arena's noise and the rules' timers too.
    bool everyoneHasEveryone(bool mirrored) {
        for (auto& viewer : clients) {
            for (auto& seen : clients) {
                const size_t slot = size_t(seen->id);
                if (!isLoaded(*viewer, seen->id)) return false;
                if (mirrored && snapshot(*viewer->players[slot]->character) != snapshot(*server->players[slot]->character))
                    return false;
            }
            if (mirrored && (snapshot(*viewer->arena) != snapshot(*server->arena) ||
                             snapshot(*viewer->gamemode) != snapshot(*server->gamemode)))
                return false;
        }
        return true;
    }
    Network::Player& onServer(const Client& client) { return *server->players[size_t(client.id)]; }
};

TEST_F(GameSessionTest, ClientsJoinARunningGameRelayControlsAndMirrorTheServer) {
    host(17200);
    ControllerDummy pad;
    Client& first = join(17200, Client::MODE_MAIN, &pad);
    // A deathmatch starts with the first ready player; the others join it running.
    ASSERT_TRUE(runUntil([&] { return allInGame(); }));
    EXPECT_TRUE(server->started);
    join(17200, Client::MODE_LOCAL);
    Client& bot = join(17200, Client::MODE_BOT);
    ASSERT_TRUE(runUntil([&] { return allInGame() && everyoneHasEveryone(false); }));
    std::set<int> ids, pids;
    for (auto& client : clients) {
        ids.insert(client->id);
        pids.insert(client->pid);
        EXPECT_TRUE(onServer(*client).isReady());
        EXPECT_EQ(onServer(*client).pid, client->pid);
        EXPECT_EQ(client->players.size(), 64u);
    }
    EXPECT_EQ(ids.size(), 3u);
    EXPECT_EQ(pids, (std::set<int>{2, 3, 4}));  // handed out from 2 upward
    // The bot steers its fighter on the server through its own packets.
    const bool* botKeys = onServer(bot).controller->pressed;
    ASSERT_TRUE(runUntil([&] { return std::find(botKeys, botKeys + ACTION_COUNT, true) != botKeys + ACTION_COUNT; }));

    // A key goes to the server and comes back to every world, the sender's too.
    const float startX = onServer(first).character->position.x;
    pad.pressed[ACTION_RIGHT] = true;
    ASSERT_TRUE(runUntil([&] {
        for (auto& client : clients)
            if (!client->players[size_t(first.id)]->controller->pressed[ACTION_RIGHT]) return false;
        return onServer(first).controller->pressed[ACTION_RIGHT];
    }));
    EXPECT_TRUE(runUntil([&] { return onServer(first).character->position.x > startX; }));

    // One frame sends every snapshot; the clients stop simulating, so what
    // they end up with is the server's word alone.
    for (Network::Player* player : server->players) player->stateTimer = Network::Server::SNAPSHOT_PERIOD;
    server->tick(FRAME);
    for (auto& client : clients) client->gameState = 0;
    EXPECT_TRUE(waitFor([&] {
        for (auto& client : clients) client->update(FRAME);
        return everyoneHasEveryone(true);
    }));
}

TEST_F(GameSessionTest, ALostBotComesBackWithItsPidAfterFiveSecondsOfFrames) {
    host(17201);
    join(17201, Client::MODE_MAIN);
    Client& bot = join(17201, Client::MODE_BOT);
    ASSERT_TRUE(runUntil([&] { return allInGame() && everyoneHasEveryone(false); }));
    const int pid = bot.pid, oldId = bot.id, nextPid = server->nextPid;

    bot.socket.close();
    int frames = 0;
    std::string log = TestSupport::logOf([&] {
        runUntil([&] { return ++frames, bot.socket.isConnected(); });
        // Back in the game: the world described anew, its own fighter the bot's again.
        EXPECT_TRUE(runUntil([&] {
            return (bot.flags & Network::CLIENT_ARENA) && allInGame() && everyoneHasEveryone(false) &&
                   bot.bot->character == bot.players[size_t(bot.id)]->character;
        }));
    });
    // The attempt comes once 5 s of frame time have passed, not sooner.
    EXPECT_GE(frames, 300);
    EXPECT_LE(frames, 302);
    EXPECT_EQ(bot.pid, pid);
    EXPECT_EQ(onServer(bot).pid, pid);
    EXPECT_EQ(server->nextPid, nextPid);  // no new pid was handed out
    EXPECT_TRUE(logged(log, "Client.parse: DISCONNECT; Klient " + std::to_string(oldId) + " rozlaczyl sie"));
    EXPECT_TRUE(logged(log, "Client.parse: CONNECT; my id: " + std::to_string(bot.id)));
}

}  // namespace
