// A game hosted in this process: the server and every local player and bot
// as clients over the loopback.
#include <gtest/gtest.h>

#include "GameFixture.h"
#include "TestSupport.h"
#include "gameplay/ControllerDummy.h"
#include "network/LocalGame.h"

using Network::LocalGame;
using TestSupport::logOf;

namespace {

class LocalGameTest : public GameTest {
protected:
    // Every client in the game, and the first player's world showing every fighter.
    static bool everyoneFights(LocalGame& game, size_t fighters) {
        for (auto* group : {&game.players, &game.bots})
            for (Network::Client* client : *group)
                if (client->gameState != 1 || !isLoaded(*client, client->id)) return false;
        Network::Client& shown = *game.players.front();
        return shown.arena && shown.arena->characters.size() == fighters;
    }
    static bool runUntil(LocalGame& game, const std::function<bool()>& done) {
        return waitFor([&] {
            game.update(FRAME);
            return done();
        });
    }
};

TEST_F(LocalGameTest, APlayerAndTwoBotsFightOnTheHostAndATakenPortIsReportedUntilItIsFree) {
    ControllerDummy pad;
    auto game = std::make_unique<LocalGame>(17300);
    game->addPlayer(&pad);
    game->addBot();
    game->addBot();
    // Without a window the clients' worlds load no pictures, and say nothing of it.
    const std::string hosting = logOf([&] {
        ASSERT_TRUE(game->open());
        ASSERT_TRUE(runUntil(*game, [&] { return everyoneFights(*game, 3); }));
    });
    ASSERT_TRUE(everyoneFights(*game, 3));
    EXPECT_EQ(hosting.find("FAIL"), std::string::npos) << hosting;
    EXPECT_EQ(game->players.front()->mode, Network::Client::MODE_MAIN);
    EXPECT_EQ(game->players.front()->controller, &pad);
    EXPECT_EQ(game->server.arena->path, LocalGame::DEFAULT_ARENA);
    EXPECT_EQ(game->server.players[size_t(game->bots[1]->id)]->character->path, LocalGame::DEFAULT_FIGHTER);

    LocalGame second(17300);
    second.addPlayer(&pad);
    std::string log = logOf([&] { EXPECT_FALSE(second.open()); });
    EXPECT_NE(log.find("FAIL: Server.init: Nie udalo sie uruchomic socketa"), std::string::npos) << log;
    EXPECT_FALSE(second.isOpen());
    // Its player doesn't wander into the game that holds the port.
    for (int frame = 0; frame < 3; ++frame) second.update(FRAME);
    EXPECT_FALSE(second.players.front()->socket.isConnected());

    // Once the first host has gone, the port can be hosted on again.
    game.reset();
    second.clear();
    second.addPlayer(&pad);
    ASSERT_TRUE(second.open());
    EXPECT_TRUE(runUntil(second, [&] { return everyoneFights(second, 1); }));
}

}  // namespace
