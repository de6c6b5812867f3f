#include <gtest/gtest.h>

#include <cstdio>
#include <regex>
#include <string>

#include "shell/Log.h"

namespace {

// Points the log at a temporary file and reads back what it wrote.
class LogTest : public ::testing::Test {
protected:
    void SetUp() override {
        file = tmpfile();
        savedFlags = Log::getFlags();
        Log::setOut(file);
    }
    void TearDown() override {
        Log::setOut(stdout);
        Log::setFlags(savedFlags);
        fclose(file);
    }
    std::string written() {
        fflush(file);
        rewind(file);
        std::string text;
        char buf[512];
        size_t n;
        while ((n = fread(buf, 1, sizeof buf, file)) > 0) text.append(buf, n);
        return text;
    }
    FILE* file = nullptr;
    uint32_t savedFlags = 0;
};

TEST_F(LogTest, EachLevelWritesItsSixCharacterPrefixAfterTheStamp) {
    Log::setFlags(15);
    Log::info("a %d", 1);
    Log::fail("b %s", "x");
    Log::ok("c");
    Log::debug("d");
    std::string text = written();
    std::regex frame(
        R"(\[[0-9: -]+\] INFO: a 1\n\[[0-9:]+\] FAIL: b x\n\[[0-9:]+\] OK  : c\n\[[0-9:]+\] DEBUG INFO: d\n)");
    EXPECT_TRUE(std::regex_match(text, frame)) << text;
}

TEST_F(LogTest, TheMaskSilencesLevels) {
    Log::setFlags(7);
    Log::debug("hidden");
    EXPECT_EQ(written(), "");
    Log::setFlags(0);
    Log::info("x");
    Log::fail("x");
    Log::ok("x");
    Log::debug("x");
    EXPECT_EQ(written(), "");
    Log::setFlags(Log::LOG_FAIL);
    Log::info("no");
    Log::fail("yes");
    EXPECT_NE(written().find("FAIL: yes\n"), std::string::npos);
    EXPECT_EQ(written().find("no"), std::string::npos);
}

TEST_F(LogTest, OnlyTheFirstLineOfADayCarriesTheDate) {
    Log::setFlags(15);
    Log::info("first");
    Log::info("second");
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-zero-length"
    Log::info("");
#pragma GCC diagnostic pop
    std::string text = written();
    std::smatch m;
    ASSERT_TRUE(std::regex_search(text, m, std::regex(R"(^\[[0-9]{4}-[0-9]{2}-[0-9]{2} [0-9]{2}:[0-9]{2}:[0-9]{2}\] INFO: first\n)")) ||
                std::regex_search(text, m, std::regex(R"(^\[[0-9]{2}:[0-9]{2}:[0-9]{2}\] INFO: first\n)")))
        << text;
    EXPECT_TRUE(std::regex_search(text, std::regex(R"(\n\[[0-9]{2}:[0-9]{2}:[0-9]{2}\] INFO: second\n)"))) << text;
    EXPECT_TRUE(std::regex_search(text, std::regex(R"(\n\[[0-9]{2}:[0-9]{2}:[0-9]{2}\] INFO: \n$)"))) << text;
}

TEST_F(LogTest, ANullStreamIsRefusedAndTheOldOneStays) {
    Log::setFlags(15);
    Log::createLock();  // the failure line is written under the lock
    Log::setOut(nullptr);
    Log::destroyLock();
    Log::info("still here");
    std::string text = written();
    EXPECT_NE(text.find("FAIL: Log.setOut: NULL\n"), std::string::npos) << text;
    EXPECT_NE(text.find("INFO: still here\n"), std::string::npos) << text;
}

TEST_F(LogTest, CloseLeavesStandardOutputOpen) {
    Log::setOut(stdout);
    Log::close();
    EXPECT_NE(fputs("", stdout), EOF);
    Log::setOut(file);
}

}  // namespace
