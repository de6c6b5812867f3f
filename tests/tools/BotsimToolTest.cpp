#include <gtest/gtest.h>

#include <sys/wait.h>

#include <cstdio>
#include <regex>
#include <string>

#include "TestSupport.h"

namespace {

// Runs botsim in the staged game directory; its report lands in `output`.
int botsim(const std::string& arguments, std::string& output) {
    // One report file per test: ctest runs the tests of this file side by side.
    std::string out = std::string(KORVANE_BINARY_DIR) + "/botsim-" +
                      ::testing::UnitTest::GetInstance()->current_test_info()->name() + ".txt";
    std::string command = "cd '" KORVANE_BINARY_DIR "/game' && ../tools/botsim " + arguments + " >'" + out + "' 2>&1";
    int status = system(command.c_str());
    output = TestSupport::readFile(out);
    remove(out.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

int number(const std::string& text, const std::string& pattern) {
    std::smatch m;
    if (!std::regex_search(text, m, std::regex(pattern))) return -1;
    return std::stoi(m[1]);
}

TEST(BotsimTool, EveryRoundIsAccountedForAndTheBotsMakeChoices) {
    std::string report;
    ASSERT_EQ(botsim("--rounds 6 --seed 7 character/default/init.lua character/default/init.lua", report), 0)
        << report;
    int wins0 = number(report, R"(fighter 0 \S+: (\d+) wins)");
    int wins1 = number(report, R"(fighter 1 \S+: (\d+) wins)");
    int noSurvivor = number(report, R"(rounds with no survivor: (\d+))");
    int givenUp = number(report, R"(given up after \d+ s: (\d+))");
    ASSERT_GE(wins0, 0) << report;
    ASSERT_GE(wins1, 0) << report;
    EXPECT_EQ(wins0 + wins1 + noSurvivor + givenUp, 6) << report;
    // Two bots that never decided anything would show no shares at all.
    EXPECT_TRUE(std::regex_search(report, std::regex(R"(bot 0 actions: idle \d+% defend \d+% retreat \d+% approach \d+% say [1-9]\d*%)")))
        << report;
}

TEST(BotsimTool, RefusesWrongArgumentsAndMissingScripts) {
    std::string report;
    EXPECT_EQ(botsim("character/default/init.lua", report), 2);
    EXPECT_EQ(botsim("--rounds 0 a b", report), 2);
    EXPECT_EQ(botsim("--rounds 1 character/none/init.lua character/default/init.lua", report), 1);
}

}  // namespace
