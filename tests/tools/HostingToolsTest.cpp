// The dedicated server and the load generator, run as a host runs them, and
// the rules each of them keeps.
#include <gtest/gtest.h>

#include <regex>
#include <string>
#include <vector>

#include "GameProcess.h"
#include "TestSupport.h"
#include "korvane-server/ServerOptions.h"
#include "loadgen/LoadReport.h"

using TestSupport::readFile;
using TestSupport::run;

namespace {

const std::string GAME = KORVANE_BINARY_DIR "/game";
const std::string LOADGEN = KORVANE_BINARY_DIR "/tools/loadgen";

TEST(DedicatedServer, ServesItsBotsAndSixteenLoadClientsAtTheProtocolsRatesAndStopsInOrderOnSigterm) {
    TestSupport::ScopedTempDir temp;
    GameProcess server(GAME, temp.path());
    server.start({"--bots", "2", "--status", "1", "--port", "17401"}, "korvane-server");
    ASSERT_TRUE(server.logShows("Serwer wlaczony na porcie 17401")) << server.log();
    std::string report;
    EXPECT_EQ(run(".", LOADGEN + " --address 127.0.0.1:17401 --clients 16 --seconds 10", &report), 0) << report;
    EXPECT_NE(report.find("all: joined 16/16"), std::string::npos) << report;
    // The two bots and the sixteen clients, all in the game.
    EXPECT_TRUE(std::regex_search(readFile("stdout.txt"), std::regex(R"(clients 18 ready 18 frame_ms median \S+)")))
        << readFile("stdout.txt");
    kill(server.id(), SIGTERM);
    EXPECT_EQ(server.wait(), 0);
    const std::string log = server.log();
    EXPECT_NE(log.find("INFO: main: Sygnal 15, zatrzymywanie serwera"), std::string::npos);
    EXPECT_TRUE(std::regex_search(log, std::regex(R"(INFO: Stop\n$)"))) << log;
    // Its bots' worlds have no window: they load no pictures and say nothing of it.
    EXPECT_EQ(log.find("ImageManager"), std::string::npos) << log;
}

// The server's options are checked where they are decided; loadgen's here.
TEST(DedicatedServer, AndLoadgenRefuseWhatTheyCannotDo) {
    TestSupport::ScopedTempDir temp;
    const GameProcess folder(GAME, temp.path());  // the game's data, for loadgen too
    std::string printed;
    // A port of its own: were the refusal broken, a server on 16700 would outlive the test.
    EXPECT_EQ(run(".", GAME + "/korvane-server --bots 64 --port 17403", &printed), 2);
    EXPECT_EQ(printed.rfind("usage: korvane-server", 0), 0u) << printed;
    for (const char* options : {"--clients 65", "--clients 0", "--seconds 0.5", "--address 127.0.0.1:65536"}) {
        EXPECT_EQ(run(".", LOADGEN + " " + options, &printed), 2) << options;
        EXPECT_EQ(printed.rfind("usage: loadgen", 0), 0u) << printed;
    }
    // Nobody listens: the client never joins, and that is a failure.
    EXPECT_EQ(run(".", LOADGEN + " --address 127.0.0.1:17402 --clients 1 --seconds 1", &printed), 1);
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
        {{}, true},
    };
    for (const auto& c : cases) {
        std::vector<char*> argv{const_cast<char*>("korvane-server")};
        for (const char* word : c.words) argv.push_back(const_cast<char*>(word));
        ServerOptions options;
        EXPECT_EQ(options.parse(int(argv.size()), argv.data()), c.accepted) << argv.back();
    }
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
        {row(true, 4.203, 1.0), 1}, {row(true, 4.0, 0.94), 1}, {row(false, 4.0, 1.0), 1},
    };
    for (const auto& c : cases) {
        LoadReport report;
        report.rows = {c.row};
        EXPECT_EQ(report.failures().size(), c.failures) << c.row.tally.fighterHz << " Hz";
    }
    EXPECT_EQ(LoadReport().failures().size(), 1u);
}

}  // namespace
