// The dedicated server and the load generator, run as a host runs them, and
// the rules each of them keeps.
#include <gtest/gtest.h>

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <regex>
#include <string>
#include <vector>

#include "TestSupport.h"
#include "korvane-server/ServerOptions.h"
#include "loadgen/LoadReport.h"

using TestSupport::readFile;

namespace {

const std::string GAME = KORVANE_BINARY_DIR "/game/";
const std::string LOADGEN = KORVANE_BINARY_DIR "/tools/loadgen";

// Starts a program in the working directory with its standard output and
// error going to `out`.
pid_t start(const std::vector<std::string>& command, const std::string& out) {
    pid_t pid = fork();
    if (pid != 0) return pid;
    int file = open(out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    dup2(file, 1);
    dup2(file, 2);
    std::vector<char*> argv;
    for (const std::string& word : command) argv.push_back(const_cast<char*>(word.c_str()));
    argv.push_back(nullptr);
    execv(argv[0], argv.data());
    _exit(127);
}

int exitCode(pid_t pid) {
    int status = 0;
    waitpid(pid, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

int run(const std::vector<std::string>& command, std::string* printed) {
    int code = exitCode(start(command, "printed.txt"));
    *printed = readFile("printed.txt");
    return code;
}

// A folder of its own with the game's data, for the log each program writes.
struct GameFolder : TestSupport::ScopedTempDir {
    GameFolder() {
        for (const char* name : {"data.ini", "data.cres"})
            EXPECT_EQ(symlink((GAME + name).c_str(), name), 0);
    }
};

TEST(DedicatedServer, ServesItsBotsAndSixteenLoadClientsAtTheProtocolsRatesAndStopsInOrderOnSigterm) {
    GameFolder folder;
    pid_t server = start({GAME + "korvane-server", "--bots", "2", "--status", "1", "--port", "17401"}, "status.txt");
    for (int wait = 0; wait < 2000 && readFile("status.txt").find("port 17401") == std::string::npos; ++wait)
        usleep(10000);
    std::string report;
    EXPECT_EQ(run({LOADGEN, "--address", "127.0.0.1:17401", "--clients", "16", "--seconds", "10"}, &report), 0)
        << report;
    EXPECT_NE(report.find("all: joined 16/16"), std::string::npos) << report;
    // The two bots and the sixteen clients, all in the game.
    EXPECT_TRUE(std::regex_search(readFile("status.txt"), std::regex(R"(clients 18 ready 18 frame_ms median \S+)")))
        << readFile("status.txt");
    kill(server, SIGTERM);
    EXPECT_EQ(exitCode(server), 0);
    const std::string log = readFile("log.txt");
    EXPECT_NE(log.find("INFO: main: Sygnal 15, zatrzymywanie serwera"), std::string::npos);
    EXPECT_TRUE(std::regex_search(log, std::regex(R"(INFO: Stop\n$)"))) << log.substr(log.size() - 300);
}

TEST(DedicatedServer, AndLoadgenRefuseWhatTheyCannotDo) {
    GameFolder folder;
    std::string printed;
    const std::vector<std::vector<std::string>> refusedByServer{
        {"--bots", "64"}, {"--arena", "/etc/passwd"}, {"--status"}, {"--players", "2"}};
    for (const auto& options : refusedByServer) {
        std::vector<std::string> command{GAME + "korvane-server"};
        command.insert(command.end(), options.begin(), options.end());
        EXPECT_EQ(run(command, &printed), 2) << options[0];
        EXPECT_EQ(printed.rfind("usage: korvane-server", 0), 0u) << printed;
    }
    const std::vector<std::vector<std::string>> refusedByLoadgen{
        {"--clients", "65"}, {"--clients", "0"}, {"--seconds", "0.5"}, {"--address", "127.0.0.1:65536"}};
    for (const auto& options : refusedByLoadgen) {
        std::vector<std::string> command{LOADGEN};
        command.insert(command.end(), options.begin(), options.end());
        EXPECT_EQ(run(command, &printed), 2) << options[1];
        EXPECT_EQ(printed.rfind("usage: loadgen", 0), 0u) << printed;
    }
    // Nobody listens: the client never joins, and that is a failure.
    EXPECT_EQ(run({LOADGEN, "--address", "127.0.0.1:17402", "--clients", "1", "--seconds", "1"}, &printed), 1);
    EXPECT_NE(printed.find("FAIL: client 0 did not join"), std::string::npos) << printed;
}

TEST(ServerOptions, TakeEveryValueUpToItsLimitAndNothingBeyond) {
    const struct {
        std::vector<const char*> words;
        bool accepted;
    } cases[] = {
        {{"--bots", "63"}, true},
        {{"--bots", "64"}, false},
        {{"--bots", "-1"}, false},
        {{"--bots", "2x"}, false},
        {{"--status", "0"}, true},
        {{"--port", "65535"}, true},
        {{"--port", "0"}, false},
        {{"--arena", "arena/biblioteka/init.lua"}, true},
        {{"--arena", "arena/"}, false},
        {{"--arena", "arena/../character/default/init.lua"}, false},
        {{"--arena", "character/default/init.lua"}, false},
        {{"--bots"}, false},
    };
    for (const auto& c : cases) {
        std::vector<char*> argv{const_cast<char*>("korvane-server")};
        for (const char* word : c.words) argv.push_back(const_cast<char*>(word));
        ServerOptions options;
        EXPECT_EQ(options.parse(int(argv.size()), argv.data()), c.accepted) << c.words[0] << " " << c.words.back();
    }
    ServerOptions defaults;
    char name[] = "korvane-server";
    char* bare[] = {name};
    ASSERT_TRUE(defaults.parse(1, bare));
    EXPECT_EQ(defaults.arena, "arena/osmiornica/init.lua");
    EXPECT_EQ(defaults.bots, 0);
    EXPECT_EQ(defaults.statusSeconds, 10);
    EXPECT_EQ(defaults.port, 16700);
}

TEST(LoadReport, PassesRatesUpToFivePercentOffAndOnlyClientsThatJoined) {
    // Ten players: 4 Hz each is 64 x 10 + 28 = 668 bytes a quarter second.
    auto row = [](bool joined, double hz, double bytesShare) {
        LoadClient::Tally tally;
        tally.players = 10;
        tally.fighterHz = hz;
        tally.bytesPerSecond = 4 * 668 * bytesShare;
        return LoadReport::Row{joined, 0, 0, 0, tally};
    };
    const struct {
        LoadReport::Row row;
        size_t failures;
    } cases[] = {
        {row(true, 4.0, 1.0), 0},  {row(true, 4.2, 1.05), 0}, {row(true, 3.8, 0.95), 0},
        {row(true, 4.21, 1.0), 1}, {row(true, 4.0, 0.94), 1}, {row(false, 4.0, 1.0), 1},
    };
    for (const auto& c : cases) {
        LoadReport report;
        report.rows = {c.row};
        EXPECT_EQ(report.failures().size(), c.failures) << c.row.tally.fighterHz << " Hz";
    }
    EXPECT_EQ(LoadReport().failures().size(), 1u);
}

}  // namespace
