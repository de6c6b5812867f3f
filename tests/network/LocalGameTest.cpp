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

// Without a window, as on a dedicated server, the clients' worlds load no
// pictures and say nothing of it.
TEST_F(LocalGameTest, APlayerAndTwoBotsFightOnAHostWithoutAWindowAndNothingFails) {
    ControllerDummy pad;
    LocalGame game(17300);
    game.addPlayer(&pad);
    game.addBot();
    game.addBot();
    const std::string hosting = logOf([&] {
        ASSERT_TRUE(game.open());
        ASSERT_TRUE(runUntil(game, [&] { return everyoneFights(game, 3); }));
    });
    ASSERT_TRUE(everyoneFights(game, 3));
    EXPECT_EQ(hosting.find("FAIL"), std::string::npos) << hosting;
    EXPECT_EQ(game.players.front()->controller, &pad);
    EXPECT_EQ(game.server.arena->path, LocalGame::DEFAULT_ARENA);
    EXPECT_EQ(game.server.players[size_t(game.bots[1]->id)]->character->path, LocalGame::DEFAULT_FIGHTER);
}

}  // namespace
