// A host that goes away while a game is on, and comes back.
#include <gtest/gtest.h>

#include <string>

#include "GameFixture.h"
#include "TestSupport.h"

using Network::Client;
using TestSupport::logOf;

namespace {

const int PORT = 17400;

class ServerRestartTest : public GameTest {
protected:
    // Every client in the game on the server that runs now.
    bool allPlayHere() {
        for (auto& client : clients)
            if (!client->socket.isConnected() || client->id < 0 ||
                !server->players[size_t(client->id)]->isReady())
                return false;
        return allInGame();
    }
};

TEST_F(ServerRestartTest, EveryClientSeesTheServerGoAndPlaysAgainOnTheNextWithItsPid) {
    host(PORT);
    for (int mode : {Client::MODE_MAIN, Client::MODE_LOCAL, Client::MODE_BOT}) join(PORT, mode);
    ASSERT_TRUE(runUntil([&] { return allInGame(); }));
    std::vector<int> pids;
    for (auto& client : clients) pids.push_back(client->pid);

    // The server says goodbye as it stops; its sockets close with it, and
    // the clients see that at once, not at their next ping.
    int frames = 0;
    std::string log = logOf([&] {
        server.reset();
        EXPECT_TRUE(runUntil([&] {
            ++frames;
            for (auto& client : clients)
                if (client->socket.isConnected()) return false;
            return true;
        }));
    });
    EXPECT_LE(frames, 10);
    size_t goodbyes = 0;
    for (size_t at = 0; (at = log.find("Client.parse: DISCONNECT; Serwer konczy gre", at)) != std::string::npos; ++at)
        ++goodbyes;
    EXPECT_EQ(goodbyes, clients.size()) << log;
    // Nobody is there yet: the attempts fail, and go on.
    ASSERT_TRUE(runUntil([&] { return clients.front()->reconnects > 0; }, 0.25f));

    host(PORT);
    EXPECT_TRUE(runUntil([&] { return allPlayHere(); }, 0.25f));
    for (size_t i = 0; i < clients.size(); ++i) {
        EXPECT_EQ(clients[i]->reconnects, 0);
        EXPECT_EQ(clients[i]->pid, pids[i]);
        EXPECT_EQ(server->players[size_t(clients[i]->id)]->pid, pids[i]);
    }
}

}  // namespace
