#include <gtest/gtest.h>

#include <sys/wait.h>

#include <regex>
#include <string>

#include "TestSupport.h"

using TestSupport::ScopedTempDir;

namespace {

// Runs the built game where there is no data.ini, twice.
TEST(MissingDataTest, GameExitsWith185AndAppendsItsStartLinesToTheLog) {
    ScopedTempDir dir;
    std::string game = std::string(KORVANE_BINARY_DIR) + "/korvane";
    for (int run = 0; run < 2; ++run) {
        int status = system(game.c_str());
        ASSERT_TRUE(WIFEXITED(status));
        EXPECT_EQ(WEXITSTATUS(status), 185);
    }
    std::string log = TestSupport::readFile("log.txt");
    const std::string stamp = R"(\[(\d{4}-\d\d-\d\d )?\d\d:\d\d:\d\d\] )";
    const std::string run = stamp + "INFO: Start\n" + stamp +
                            R"(INFO: Build [A-Z][a-z]{2} [ \d]\d \d{4} \d\d:\d\d:\d\d\n)" + stamp +
                            "DEBUG INFO: Seed: 0x[0-9A-F]{8}\n" + stamp +
                            "FAIL: Resource.open: Nie udalo sie wczytac pliku listy \"data.ini\"\n";
    EXPECT_TRUE(std::regex_match(log, std::regex(run + run))) << log;
}

}  // namespace
