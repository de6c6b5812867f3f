// A server and its clients in one process over the loopback, as on a
// hosting machine.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "GameFixture.h"
#include "TestSupport.h"
#include "gameplay/Bot.h"
#include "gameplay/ControllerDummy.h"

using TestSupport::logOf;

namespace {

using Network::Client;

class GameSessionTest : public GameTest {
protected:
    bool everyoneSeesEveryone() {
        for (auto& viewer : clients)
            for (auto& seen : clients)
                if (!isLoaded(*viewer, seen->id)) return false;
        return true;
    }
    static bool anyPressed(const ControllerDummy& dummy) {
        for (bool pressed : dummy.pressed)
            if (pressed) return true;
        return false;
    }
    static std::string snapshot(Serializable& object) {
        uint32_t size = 0;
        const char* bytes = static_cast<const char*>(object.serialize(&size));
        return std::string(bytes, size);
    }
    // Every fighter, the arena's noise and the rules' timers as the server has them.
    bool mirrorsServer(Client& client) {
        for (auto& other : clients) {
            int slot = other->id;
            if (snapshot(*client.players[size_t(slot)]->character) != snapshot(*server->players[size_t(slot)]->character))
                return false;
        }
        return snapshot(*client.arena) == snapshot(*server->arena) &&
               snapshot(*client.gamemode) == snapshot(*server->gamemode);
    }
};

TEST_F(GameSessionTest, ClientsJoinARunningGameRelayControlsAndMirrorTheServer) {
    host(17200);
    ControllerDummy pad;
    Client& first = join(17200, Client::MODE_MAIN, &pad);
    // A deathmatch starts with the first ready player.
    ASSERT_TRUE(runUntil([&] { return allInGame(); }));
    EXPECT_TRUE(server->started);
    join(17200, Client::MODE_LOCAL);
    Client& bot = join(17200, Client::MODE_BOT);
    ASSERT_TRUE(runUntil([&] { return allInGame() && everyoneSeesEveryone(); }));

    std::set<int> ids, pids;
    for (auto& client : clients) {
        ids.insert(client->id);
        pids.insert(client->pid);
        EXPECT_TRUE(server->players[size_t(client->id)]->isReady());
        EXPECT_EQ(server->players[size_t(client->id)]->pid, client->pid);
        EXPECT_EQ(client->players.size(), 64u);
    }
    EXPECT_EQ(ids.size(), 3u);
    EXPECT_EQ(pids, (std::set<int>{2, 3, 4}));  // handed out from 2 upward
    // The bot steers its fighter on the server through its own packets.
    ASSERT_TRUE(runUntil([&] { return anyPressed(*server->players[size_t(bot.id)]->controller); }));

    // A key goes to the server and comes back to every world, the sender's too.
    const float startX = server->players[size_t(first.id)]->character->position.x;
    pad.pressed[ACTION_RIGHT] = true;
    ASSERT_TRUE(runUntil([&] {
        for (auto& client : clients)
            if (!client->players[size_t(first.id)]->controller->pressed[ACTION_RIGHT]) return false;
        return server->players[size_t(first.id)]->controller->pressed[ACTION_RIGHT];
    }));
    EXPECT_TRUE(runUntil([&] { return server->players[size_t(first.id)]->character->position.x > startX; }));

    // One frame sends every snapshot; the clients stop simulating, so what
    // they end up with is the server's word alone.
    for (Network::Player* player : server->players) player->stateTimer = Network::Server::SNAPSHOT_PERIOD;
    server->tick(FRAME);
    for (auto& client : clients) client->gameState = 0;
    EXPECT_TRUE(waitFor([&] {
        bool all = true;
        for (auto& client : clients) {
            client->update(FRAME);
            all = mirrorsServer(*client) && all;
        }
        return all;
    }));
}

TEST_F(GameSessionTest, ALostBotComesBackWithItsPidAfterFiveSecondsOfFrames) {
    host(17201);
    Client& human = join(17201, Client::MODE_MAIN);
    Client& bot = join(17201, Client::MODE_BOT);
    ASSERT_TRUE(runUntil([&] { return allInGame() && isLoaded(human, bot.id) && isLoaded(bot, human.id); }));
    const int pid = bot.pid;
    const int oldId = bot.id;
    const int nextPid = server->nextPid;

    bot.socket.close();
    int frames = 0;
    std::string log = logOf([&] {
        runUntil([&] { return ++frames, bot.socket.isConnected(); });
        // Back in the game: the world described anew, its own fighter the bot's again.
        EXPECT_TRUE(runUntil([&] {
            return (bot.flags & Network::CLIENT_ARENA) && allInGame() && isLoaded(bot, human.id) &&
                   bot.bot->character == bot.players[size_t(bot.id)]->character;
        }));
    });
    // The attempt comes once 5 s of frame time have passed, not sooner.
    EXPECT_GE(frames, 300);
    EXPECT_LE(frames, 302);
    EXPECT_EQ(bot.pid, pid);
    EXPECT_EQ(server->players[size_t(bot.id)]->pid, pid);
    EXPECT_EQ(server->nextPid, nextPid);  // no new pid was handed out
    EXPECT_NE(log.find("Client.parse: DISCONNECT; Klient " + std::to_string(oldId) + " rozlaczyl sie"),
              std::string::npos);
    EXPECT_NE(log.find("Client.parse: CONNECT; my id: " + std::to_string(bot.id)), std::string::npos);
}

}  // namespace
