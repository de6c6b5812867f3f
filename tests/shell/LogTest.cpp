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

// Only the first line of a day carries the date; every level has its prefix.
TEST_F(LogTest, EachLevelWritesItsPrefixAfterTheStampAndOnlyTheFirstLineHasTheDate) {
    Log::setFlags(15);
    Log::info("a %d", 1);
    Log::fail("b %s", "x");
    Log::ok("c");
    Log::debug("d");
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-zero-length"
    Log::info("");
#pragma GCC diagnostic pop
    const std::string time = R"(\[\d\d:\d\d:\d\d\] )";
    std::regex frame(R"(\[(\d{4}-\d\d-\d\d )?\d\d:\d\d:\d\d\] INFO: a 1\n)" + time + "FAIL: b x\n" + time +
                     "OK  : c\n" + time + "DEBUG INFO: d\n" + time + "INFO: \n");
    std::string text = written();
    EXPECT_TRUE(std::regex_match(text, frame)) << text;
}

TEST_F(LogTest, TheMaskSilencesLevels) {
    Log::setFlags(7);
    Log::debug("hidden");
    Log::setFlags(0);
    Log::info("x");
    Log::fail("x");
    Log::ok("x");
    Log::debug("x");
    EXPECT_EQ(written(), "");
    Log::setFlags(Log::LOG_FAIL);
    Log::info("no");
    Log::fail("yes");
    EXPECT_EQ(written().substr(written().find("] ") + 2), "FAIL: yes\n");
}

TEST_F(LogTest, ANullStreamIsRefusedAndCloseLeavesStandardOutputOpen) {
    Log::setFlags(15);
    Log::createLock();  // the failure line is written under the lock
    Log::setOut(nullptr);
    Log::destroyLock();
    Log::info("still here");
    std::string text = written();
    EXPECT_NE(text.find("FAIL: Log.setOut: NULL\n"), std::string::npos) << text;
    EXPECT_NE(text.find("INFO: still here\n"), std::string::npos) << text;

    Log::setOut(stdout);
    Log::close();
    EXPECT_NE(fputs("", stdout), EOF);
    Log::setOut(file);
}

}  // namespace
