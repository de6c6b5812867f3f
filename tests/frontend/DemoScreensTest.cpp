// The first screen, hosting and joining, steered by keys on the real state
// stack, with the game's own fighter and arena over the loopback.
#include <GL/gl.h>
#include <SDL/SDL_net.h>
#include <unistd.h>

#include <functional>
#include <memory>
#include <string>

#include "FrontendTest.h"
#include "audio/Sound.h"
#include "frontend/DemoClient.h"
#include "frontend/DemoMenu.h"
#include "frontend/DemoServer.h"
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
                                           "join_players=Players\njoin_start=Connect\nexit=Quit\n"
                                           "[demo_game]\ndisconnected2=Lost\nport_taken=Taken\n");
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
    EXPECT_EQ(shown(), "[Host]\nJoin\nQuit");
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
    EXPECT_EQ(shown(), "[Players: 1]\nBots: 0\nStart\nBack");
    pressTimes(SDLK_RIGHT, 2);
    press({SDLK_DOWN});
    pressTimes(SDLK_RIGHT, 9);
    press({SDLK_DOWN, SDLK_RETURN});
    auto* hosting = top<DemoServer>();
    ASSERT_NE(hosting, nullptr);
    LocalGame& game = hosting->game;
    ASSERT_TRUE(game.isOpen());
    ASSERT_EQ(game.players.size(), 2u);
    EXPECT_EQ(game.bots.size(), 8u);
    for (size_t i = 0; i < 2; ++i) {
        EXPECT_EQ(game.players[i]->controller, ControllerManager::get(int(i)));
        EXPECT_EQ(game.players[i]->mode, Client::MODE_MAIN);  // each local player hears the game
    }
    EXPECT_TRUE(runUntil([&] { return inGame(*game.players[0], 10) && inGame(*game.players[1], 10); }));
    EXPECT_EQ(hosting->notice.text.text, "");

    leave();
    ASSERT_NE(top<DemoMenu>(), nullptr);
    EXPECT_EQ(shown(), "Players: 2\nBots: 8\n[Start]\nBack");
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
    press({SDLK_UP, SDLK_UP, SDLK_RIGHT, SDLK_ESCAPE, SDLK_DOWN, SDLK_RIGHT, SDLK_DOWN, SDLK_RETURN});
    auto* joining = top<DemoClient>();
    ASSERT_NE(joining, nullptr);
    ASSERT_EQ(joining->clients.size(), 2u);
    Client& first = *joining->clients[0];
    EXPECT_EQ(first.address, "127.0.0.1");
    EXPECT_EQ(joining->clients[1]->mode, Client::MODE_LOCAL);  // one pair of speakers plays
    EXPECT_EQ(joining->clients[1]->controller, ControllerManager::get(1));

    // Saved at once, beside every record the file held.
    Database saved;
    ASSERT_TRUE(saved.load(DemoMenu::SETTINGS));
    EXPECT_EQ(saved.getStr("other"), "kept");
    const struct {
        const char* key;
        int value;
    } parts[] = {{"demo_join_a", 127}, {"demo_join_b", 0}, {"demo_join_c", 0}, {"demo_join_d", 1}};
    for (const auto& part : parts) EXPECT_EQ(saved.getVal(part.key), part.value) << part.key;

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

}  // namespace
