// The staged game run as players run it: processes of their own, windows on
// the test's display, keys through xdotool, the log as the witness. The one
// test here that hosts on the game's own port 16700; no other may run the
// game there at the same time.
#include <gtest/gtest.h>

#include <SDL/SDL.h>
#include <SDL/SDL_net.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <regex>
#include <string>
#include <vector>

#include "TestSupport.h"
#include "resources/Database.h"

using TestSupport::readFile;

namespace {

const std::string GAME = KORVANE_BINARY_DIR "/game";

// The staged game in a directory of its own, so that each run has its own
// settings and log, started in the background.
class GameProcess {
public:
    explicit GameProcess(const std::string& folder) : dir(folder) {
        for (const char* name : {"korvane", "data.ini", "data.cres", "lang.ini"})
            symlink((GAME + "/" + name).c_str(), (dir + "/" + name).c_str());
    }
    ~GameProcess() { stop(SIGKILL); }
    GameProcess(const GameProcess&) = delete;
    GameProcess& operator=(const GameProcess&) = delete;

    void start(const std::vector<std::string>& arguments = {}) {
        pid = fork();
        if (pid != 0) return;
        // The child: standard output and error into files, for the options that print.
        if (chdir(dir.c_str()) != 0) _exit(126);
        dup2(open("stdout.txt", O_WRONLY | O_CREAT | O_TRUNC, 0600), 1);
        dup2(open("stderr.txt", O_WRONLY | O_CREAT | O_TRUNC, 0600), 2);
        setenv("SDL_AUDIODRIVER", "dummy", 1);
        std::vector<char*> argv{const_cast<char*>("./korvane")};
        for (const std::string& argument : arguments) argv.push_back(const_cast<char*>(argument.c_str()));
        argv.push_back(nullptr);
        execv(argv[0], argv.data());
        _exit(127);
    }
    // The exit code; -1 when it ended otherwise or not within 20 s.
    int wait() {
        for (int i = 0; i < 2000 && pid > 0; ++i) {
            int status = 0;
            if (waitpid(pid, &status, WNOHANG) == pid) {
                pid = -1;
                return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
            }
            SDL_Delay(10);
        }
        return -1;
    }
    void stop(int signal) {
        if (pid <= 0) return;
        kill(pid, signal);
        waitpid(pid, nullptr, 0);
        pid = -1;
    }
    // Until the log holds `pattern` `times` times; false after 30 s.
    bool logShows(const std::string& pattern, size_t times = 1) {
        for (uint32_t begin = SDL_GetTicks(); SDL_GetTicks() - begin < 30000; SDL_Delay(50))
            if (count(pattern) >= times) return true;
        return false;
    }
    size_t count(const std::string& pattern) {
        const std::string text = log();
        const std::regex expression(pattern);
        return size_t(std::distance(std::sregex_iterator(text.begin(), text.end(), expression), std::sregex_iterator()));
    }
    std::string log() { return readFile(dir + "/log.txt"); }
    // Fresh presses into the game's window, each held for a few frames but
    // for less than the menu's shortest repeat. What they did shows in the
    // log; a key that ends the program leaves no window for its release.
    void press(const std::vector<std::string>& keys) {
        const std::string window = windowId();
        for (const std::string& key : keys) {
            const std::string command = "xdotool keydown --window " + window + " " + key +
                                        " sleep 0.05 keyup --window " + window + " " + key + " sleep 0.15 2>/dev/null";
            if (system(command.c_str()) != 0) return;
        }
    }

    const std::string dir;

private:
    std::string windowId() {
        const std::string command = "xdotool search --sync --pid " + std::to_string(pid) + " 2>/dev/null | head -1";
        FILE* pipe = popen(command.c_str(), "r");
        char line[64] = {};
        const bool read = fgets(line, sizeof line, pipe) != nullptr;
        pclose(pipe);
        return read ? std::string(line, strcspn(line, "\n")) : "none";
    }

    pid_t pid = -1;
};

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
    GameProcess host(temp.path() + "/host"), joiner(temp.path() + "/joiner");
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

    // Escape leaves the game for the menu; going back from its root ends the program.
    joiner.press({"Escape"});
    joiner.press({"Escape", "Escape"});
    EXPECT_EQ(joiner.wait(), 0) << joiner.log();
    host.stop(SIGTERM);
    SDLNet_Quit();
}

TEST(PlayedGame, TheSandboxRunsTheDuelWithoutNetworkAndTheUsageIsPrintedOnRequest) {
    TestSupport::ScopedTempDir temp;
    GameProcess game(temp.path());
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
