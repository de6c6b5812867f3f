// The first screen, hosting and joining, steered by keys on the real state
// stack, with the game's own fighter and arena over the loopback.
#include <GL/gl.h>
#include <SDL/SDL_net.h>
#include <unistd.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "FrontendTest.h"
#include "audio/Sound.h"
#include "frontend/DemoClient.h"
#include "frontend/DemoMenu.h"
#include "frontend/DemoServer.h"
#include "frontend/StateDuel.h"
#include "frontend/StateDuelPrepare.h"
#include "frontend/StateMenu.h"
#include "gameplay/Deathmatch.h"
#include "gameplay/Arena.h"
#include "network/LocalGame.h"
#include "resources/Database.h"
#include "shell/Log.h"

using Network::Client;
using Network::LocalGame;

namespace {

const float FRAME = 1.0f / 60.0f;

class DemoScreensTest : public FrontendTest {
protected:
    void SetUp() override {
        FrontendTest::SetUp();
        ASSERT_EQ(SDLNet_Init(), 0);
        Log::createLock();  // the host's worker logs too
        for (const std::string name : {"arena", "character", "font", "bg.jpg"})
            ASSERT_EQ(symlink((KORVANE_SOURCE_DIR "/data/" + name).c_str(), name.c_str()), 0);
        TestSupport::writeFile("lang.ini", "[demo_menu]\nhost=Host\nhost_players=Players\nhost_bots=Bots\n"
                                           "host_start=Start\nhost_exit=Back\njoin=Join\njoin_ip=Address\n"
                                           "join_ip_a=A\njoin_ip_b=B\njoin_ip_c=C\njoin_ip_d=D\njoin_exit=Leave\n"
                                           "join_players=Players\njoin_start=Connect\nexit=Quit\nlocal=Local\n"
                                           "arena=Arena\nfighter_1=One\nfighter_2=Two\n"
                                           "[demo_game]\ndisconnected2=Lost\nport_taken=Taken\nduel_won=Won by \n"
                                           "duel_draw=Draw\nduel_computer=bot\nduel_player=P\n[menu_main]\nexit=Out\n[game_classic]\nmenu_start=Go\n"
                                           "menu_rounds=Rounds\nmenu_time=Time\nmenu_second_player=P2\n"
                                           "menu_second_bot=Bot\n");
    }
    void TearDown() override {
        FrontendTest::TearDown();
        Sound::clear();  // a main client caches the server's sounds
        SDLNet_Quit();
    }
    // The program as it starts: the menu first, hosting and joining on a
    // port of the test's own.
    static void start(int port) {
        auto* menu = new DemoMenu();
        menu->port = port;
        Engine::push(menu);
        letGo();
    }
    static std::string shown() { return top<DemoMenu>()->text.text; }
    static void pressTimes(int key, int times) {
        for (int i = 0; i < times; ++i) press({key});
    }
    // Frames of the state stack, and of a host of the test's own if given,
    // until `done` holds; false if it never does.
    static bool runUntil(const std::function<bool()>& done, LocalGame* host = nullptr, float dt = FRAME) {
        for (uint32_t begin = SDL_GetTicks(); SDL_GetTicks() - begin < 20000; SDL_Delay(1)) {
            if (host) host->update(dt);
            Engine::update(dt);
            if (done()) return true;
        }
        return false;
    }
    // On a selection screen just pushed: the entry `down` places below
    // "return". The game's fighters are Back, Any, Mowca, Sroka, Ropuch; its
    // arenas Back, Any, osmiornica, biblioteka, default.
    static void pick(int down) {
        pressTimes(SDLK_DOWN, down);
        press({SDLK_RETURN});
    }
    static std::string fighterOf(const Client* client) { return client->character->path; }
    static bool inGame(const Client& client, size_t fighters) {
        return client.gameState == 1 && client.id >= 0 && client.arena &&
               client.arena->characters.size() == fighters;
    }
    static void leave() {
        HeldKeys::hold(SDLK_ESCAPE);
        Engine::update(FRAME);
        // Still held in the menu's first frames: it doesn't also go a level back.
        Engine::update(FRAME);
        letGo();
    }
};

TEST_F(DemoScreensTest, TheMenuOpensOnItsRootOverItsPictureAndQuitEndsTheProgram) {
    start(17310);
    EXPECT_EQ(shown(), "[Host]\nJoin\nQuit\nLocal");
    // The local menus come and go, and the program runs on.
    press({SDLK_UP, SDLK_RETURN});
    ASSERT_NE(top<StateMenu>(), nullptr);
    press({SDLK_UP, SDLK_RETURN});
    EXPECT_EQ(shown(), "Host\nJoin\nQuit\n[Local]");
    EXPECT_TRUE(Engine::isRunning());
    press({SDLK_DOWN});
    // The picture fills the window to its far corner: dark purple, not the clear colour.
    Engine::draw();
    Render::flush();
    uint8_t corner[4] = {};
    glReadPixels(799, 0, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, corner);
    EXPECT_NEAR(corner[0], 43, 8);
    EXPECT_NEAR(corner[1], 23, 8);
    EXPECT_NEAR(corner[2], 51, 8);
    press({SDLK_DOWN, SDLK_DOWN, SDLK_RETURN});
    EXPECT_FALSE(Engine::isRunning());
}

// Two players and eight bots are the most the menu gives, whatever is pressed.
TEST_F(DemoScreensTest, AHeldPortShowsItsNoticeAndTheMostPlayersAndBotsFightOnceItIsFree) {
    start(17311);
    auto holder = std::make_unique<LocalGame>(17311);
    ASSERT_TRUE(holder->open());
    press({SDLK_RETURN, SDLK_DOWN, SDLK_DOWN, SDLK_RETURN});
    ASSERT_NE(top<DemoServer>(), nullptr);
    EXPECT_EQ(top<DemoServer>()->notice.text.text, "Taken");
    Engine::update(FRAME);
    // Nobody wanders into the game that holds the port.
    EXPECT_FALSE(top<DemoServer>()->game.players.front()->socket.isConnected());
    leave();
    holder.reset();

    press({SDLK_UP, SDLK_UP});
    EXPECT_EQ(shown(), "[Players: 1]\nBots: 0\nStart\nBack\nArena\nOne\nTwo");
    press({SDLK_UP, SDLK_UP, SDLK_RETURN});
    pick(3);
    press({SDLK_UP, SDLK_RETURN});
    pick(3);
    EXPECT_EQ(shown(), "Players: 1\nBots: 0\nStart\nBack\n[Arena: biblioteka]\nOne: Sroka\nTwo");
    press({SDLK_DOWN, SDLK_DOWN, SDLK_DOWN});
    pressTimes(SDLK_RIGHT, 2);
    press({SDLK_DOWN});
    pressTimes(SDLK_RIGHT, 9);
    press({SDLK_DOWN, SDLK_RETURN});
    auto* hosting = top<DemoServer>();
    ASSERT_NE(hosting, nullptr);
    LocalGame& game = hosting->game;
    ASSERT_TRUE(game.isOpen());
    ASSERT_EQ(game.players.size(), 2u);
    ASSERT_EQ(game.bots.size(), 8u);
    EXPECT_EQ(fighterOf(game.players[0]), "character/sroka/init.lua");
    EXPECT_EQ(fighterOf(game.players[1]), LocalGame::DEFAULT_FIGHTER);
    EXPECT_EQ(game.server.arena->path, "arena/biblioteka/init.lua");
    // The bots take the listed fighters in turn.
    const char* const listed[] = {"default", "sroka", "ropuch"};
    for (size_t i = 0; i < game.bots.size(); ++i)
        EXPECT_EQ(fighterOf(game.bots[i]), std::string("character/") + listed[i % 3] + "/init.lua") << i;
    for (size_t i = 0; i < 2; ++i) {
        EXPECT_EQ(game.players[i]->controller, ControllerManager::get(int(i)));
        EXPECT_EQ(game.players[i]->mode, Client::MODE_MAIN);  // each local player hears the game
    }
    EXPECT_TRUE(runUntil([&] { return inGame(*game.players[0], 10) && inGame(*game.players[1], 10); }));
    EXPECT_EQ(hosting->notice.text.text, "");

    leave();
    ASSERT_NE(top<DemoMenu>(), nullptr);
    EXPECT_EQ(shown(), "Players: 2\nBots: 8\n[Start]\nBack\nArena: biblioteka\nOne: Sroka\nTwo");
    // The port was let go with the game: hosting again works at once.
    press({SDLK_RETURN});
    ASSERT_NE(top<DemoServer>(), nullptr);
    EXPECT_TRUE(top<DemoServer>()->game.isOpen());
}

TEST_F(DemoScreensTest, AJoinKeepsTheAddressAndTheNoticeStandsWhileTheHostIsAway) {
    Database::get(DemoMenu::SETTINGS)->setStr("other", "kept");
    ASSERT_TRUE(Database::get(DemoMenu::SETTINGS)->save(DemoMenu::SETTINGS));
    LocalGame host(17313);
    host.addBot();
    ASSERT_TRUE(host.open());
    start(17313);

    // A first start knows no address: 0.0.0.0.
    press({SDLK_DOWN, SDLK_RETURN, SDLK_RETURN});
    EXPECT_EQ(shown(), "[A: 0]\nB: 0\nC: 0\nD: 0\nLeave");
    pressTimes(SDLK_RIGHT, 127);
    press({SDLK_UP, SDLK_UP, SDLK_RIGHT, SDLK_ESCAPE, SDLK_DOWN, SDLK_RIGHT, SDLK_UP, SDLK_UP, SDLK_RETURN});
    pick(4);
    press({SDLK_DOWN, SDLK_DOWN, SDLK_DOWN, SDLK_RETURN});
    auto* joining = top<DemoClient>();
    ASSERT_NE(joining, nullptr);
    ASSERT_EQ(joining->clients.size(), 2u);
    Client& first = *joining->clients[0];
    EXPECT_EQ(first.address, "127.0.0.1");
    EXPECT_EQ(joining->clients[1]->mode, Client::MODE_LOCAL);  // one pair of speakers plays
    EXPECT_EQ(joining->clients[1]->controller, ControllerManager::get(1));
    EXPECT_EQ(fighterOf(joining->clients[0]), LocalGame::DEFAULT_FIGHTER);
    EXPECT_EQ(fighterOf(joining->clients[1]), "character/ropuch/init.lua");

    // Saved at once, beside every record the file held.
    Database saved;
    ASSERT_TRUE(saved.load(DemoMenu::SETTINGS));
    EXPECT_EQ((std::vector<int>{saved.getVal("demo_join_a"), saved.getVal("demo_join_d")}), (std::vector<int>{127, 1}));
    EXPECT_EQ(saved.getStr("other"), "kept");

    ASSERT_TRUE(runUntil([&] { return inGame(first, 3) && inGame(*joining->clients[1], 3); }, &host));
    const int pid = first.pid;
    // The notice comes with the first failed attempt after the loss, and goes
    // with the attempt that finds the host back.
    const auto notice = [&] { return joining->notice.text.text; };
    host.clear();
    // The loss shows at the next keep-alive, which comes sooner on this clock.
    first.socket.now = [] { return SDL_GetTicks() + 10000; };
    ASSERT_TRUE(runUntil([&] { return notice() == "Lost"; }, nullptr, 0.5f));
    host.addBot();
    ASSERT_TRUE(host.open());
    EXPECT_TRUE(runUntil([&] { return inGame(first, 3) && notice().empty(); }, &host, 0.5f));
    EXPECT_EQ(first.pid, pid);

    // The next start of the program shows the address joined.
    leave();
    Engine::clear();
    Database::clearAll();
    Engine::init();
    start(17313);
    press({SDLK_DOWN, SDLK_RETURN, SDLK_RETURN});
    EXPECT_EQ(shown(), "[A: 127]\nB: 0\nC: 0\nD: 1\nLeave");
}

TEST_F(DemoScreensTest, ADuelOfTwoTimedRoundsAgainstTheBotShowsItsResultAndGoesBackToTheSetUp) {
    auto* setUp = new StateDuelPrepare();
    setUp->port = 17314;
    Engine::push(setUp);
    letGo();
    const auto prepare = [] { return top<StateDuelPrepare>(); };
    // The computer takes the second place, and a round lasts a second.
    press({SDLK_UP, SDLK_RETURN});
    EXPECT_EQ(prepare()->text.text.substr(0, 3), "Go\n");
    EXPECT_EQ(prepare()->text.text.substr(prepare()->text.text.size() - 5), "[Bot]");
    press({SDLK_UP, SDLK_UP, SDLK_UP, SDLK_LEFT, SDLK_DOWN});
    pressTimes(SDLK_LEFT, 44);
    EXPECT_NE(prepare()->text.text.find("[Time: 1]"), std::string::npos) << prepare()->text.text;

    pressTimes(SDLK_UP, 5);
    press({SDLK_RETURN});
    auto* duel = top<StateDuel>();
    ASSERT_NE(duel, nullptr);
    GameModes::Deathmatch* rules = duel->game.rules();
    ASSERT_NE(rules, nullptr);
    EXPECT_EQ(rules->roundLimit, 2);
    EXPECT_EQ(rules->timeLimit, 1.0f);
    ASSERT_EQ(duel->game.bots.size(), 1u);
    ASSERT_TRUE(runUntil([&] { return duel->resultTime >= 0.0f; }));
    EXPECT_EQ(rules->roundWinners.size(), 2u);
    const std::string result = duel->notice.text.text;
    EXPECT_TRUE(result == "Draw" || result == "Won by Mowca (P1)" || result == "Won by Mowca (bot)") << result;
    // The result stands for its seconds, then the set-up is back.
    for (float shown = 0.5f; shown < StateDuel::RESULT_SECONDS; shown += 0.5f) {
        Engine::update(0.5f);
        ASSERT_EQ(top<StateDuel>(), duel);
    }
    Engine::update(0.5f);
    ASSERT_NE(prepare(), nullptr);

    // Escape breaks a duel off.
    letGo();
    press({SDLK_RETURN});
    ASSERT_NE(top<StateDuel>(), nullptr);
    leave();
    EXPECT_NE(prepare(), nullptr);
}

}  // namespace
