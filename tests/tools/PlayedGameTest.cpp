// The staged game run as players run it: processes of their own, windows on
// the test's display, keys through xdotool, the log as the witness. The one
// test here that hosts on the game's own port 16700; no other may run the
// game there at the same time.
#include <gtest/gtest.h>

#include <SDL/SDL_net.h>
#include <sys/stat.h>

#include <regex>
#include <string>
#include <vector>

#include "GameProcess.h"
#include "TestSupport.h"
#include "resources/Database.h"

using TestSupport::readFile;

namespace {

const std::string GAME = KORVANE_BINARY_DIR "/game";

bool portIsFree(uint16_t port) {
    IPaddress address;
    SDLNet_ResolveHost(&address, nullptr, port);
    TCPsocket listener = SDLNet_TCP_Open(&address);
    if (listener) SDLNet_TCP_Close(listener);
    return listener != nullptr;
}

const char* const FIRST_FRAME = "main: pierwsza klatka";
// Host: open the host level, one player, two bots, start.
const std::vector<std::string> HOST_ONE_AND_TWO_BOTS{"Return", "Down", "Right", "Right", "Down", "Return"};

TEST(PlayedGame, AJoinerFightsTheHostsBotsWaitsOutTheHostsAbsenceAndComesBackWithItsPid) {
    ASSERT_EQ(SDLNet_Init(), 0);
    ASSERT_TRUE(portIsFree(16700)) << "another program holds the game's port";
    TestSupport::ScopedTempDir temp;
    mkdir("host", 0700);
    mkdir("joiner", 0700);
    GameProcess host(GAME, temp.path() + "/host"), joiner(GAME, temp.path() + "/joiner");
    // The joiner's last address, as a join from the menu left it.
    Database* settings = Database::get(joiner.dir + "/config.nvo");
    settings->setVal("demo_join_a", 127);
    settings->setVal("demo_join_d", 1);
    ASSERT_TRUE(settings->save(joiner.dir + "/config.nvo"));
    Database::clearAll();

    host.start();
    ASSERT_TRUE(host.logShows(FIRST_FRAME));
    host.press(HOST_ONE_AND_TWO_BOTS);
    ASSERT_TRUE(host.logShows("Server.update: Startowanie gamemode")) << host.log();

    // Join: the join level, past the address to connect.
    joiner.start();
    ASSERT_TRUE(joiner.logShows(FIRST_FRAME));
    joiner.press({"Down", "Return", "Down", "Down", "Return"});
    ASSERT_TRUE(joiner.logShows("Client.parse: CONNECT; my id: ")) << joiner.log();
    std::smatch id, pid;
    const std::string joined = joiner.log();
    ASSERT_TRUE(std::regex_search(joined, id, std::regex("CONNECT; my id: (\\d+)")));
    ASSERT_TRUE(std::regex_search(joined, pid, std::regex("CONNECT; new pid: (\\d+)")));
    // Both worlds load every fighter: the host's player and bots, then the joiner.
    EXPECT_TRUE(host.logShows("Server.parse\\[0*" + id[1].str() + "\\]: CHARACTER_INFO: Wczytano postac"));
    for (int slot = 0; slot <= std::stoi(id[1]); ++slot) {
        const std::string loaded = "Client.parse: CHARACTER_INFO; id: " + std::to_string(slot) + ";";
        EXPECT_TRUE(joiner.logShows(loaded)) << slot;
        EXPECT_TRUE(host.logShows(loaded)) << slot;
    }

    // The host dies; the joiner's attempts fail until it is back and hosting.
    host.stop(SIGKILL);
    ASSERT_TRUE(joiner.logShows("SocketClient.init: Nie udalo sie otworzyc socketa \\(adres \"127.0.0.1\" port 16700\\)"))
        << joiner.log();
    host.start();
    ASSERT_TRUE(host.logShows(FIRST_FRAME, 2));
    host.press(HOST_ONE_AND_TWO_BOTS);
    // Back with the pid it had: the server believes it, and hands out no new one.
    EXPECT_TRUE(joiner.logShows("Client.parse: CONNECT; my id: ", 2)) << joiner.log();
    EXPECT_TRUE(joiner.logShows("CONNECT; id: \\d+ \\(max 64\\); pid: " + pid[1].str() + "\n"));
    EXPECT_EQ(joiner.count("CONNECT; new pid: "), 1u);

    // Escape leaves the game for the menu; going back from its root ends the program. Not before
    // the joiner's world has its own fighter back and a second more: a press is lost whole within
    // a frame that loads every fighter again, which a sanitized build on a busy machine makes long.
    ASSERT_TRUE(joiner.logShows("Client.parse: CHARACTER_INFO; id: " + id[1].str() + ";", 2)) << joiner.log();
    SDL_Delay(1000);
    joiner.press({"Escape"});
    joiner.press({"Escape", "Escape"});
    EXPECT_EQ(joiner.wait(), 0) << joiner.log();
    host.stop(SIGTERM);
    SDLNet_Quit();
}

TEST(PlayedGame, TheSandboxRunsTheDuelWithoutNetworkAndTheUsageIsPrintedOnRequest) {
    TestSupport::ScopedTempDir temp;
    GameProcess game(GAME, temp.path());
    game.start({"--help"});
    EXPECT_EQ(game.wait(), 0);
    EXPECT_NE(readFile("stdout.txt").find("korvane --sandbox [FIGHTER_SCRIPT [ARENA_SCRIPT]]"), std::string::npos);
    game.start({"--sandbox", "character/default/init.lua", "arena/osmiornica/init.lua", "extra"});
    EXPECT_EQ(game.wait(), 2);
    EXPECT_NE(readFile("stderr.txt").find("usage: korvane"), std::string::npos);
    EXPECT_TRUE(readFile("log.txt").empty());

    game.start({"--sandbox"});
    ASSERT_TRUE(game.logShows(FIRST_FRAME));
    game.press({"Escape"});
    EXPECT_EQ(game.wait(), 0);
    EXPECT_EQ(game.log().find("Socket"), std::string::npos);
    // A first run's missing settings file is the one complaint.
    EXPECT_EQ(game.log().find("] FAIL"), std::string::npos) << game.log();
}

}  // namespace
