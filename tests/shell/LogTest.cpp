#include <gtest/gtest.h>

#include <regex>
#include <string>

#include "TestSupport.h"
#include "shell/Log.h"

namespace {

TEST(LogTest, EachLevelWritesItsPrefixBehindTheStampUnderTheMaskAndOnlyTheFirstLineHasTheDate) {
    const uint32_t savedFlags = Log::getFlags();
    TestSupport::CapturedStdout out;
    Log::setFlags(15);
    Log::info("a %d", 1);
    Log::fail("b %s", "x");
    Log::ok("c");
    Log::debug("d");
    Log::info("%s", "");
    Log::setFlags(7);
    Log::debug("hidden");
    Log::setFlags(Log::LOG_FAIL);
    Log::info("hidden");
    Log::ok("hidden");
    Log::setOut(nullptr);  // refused, and said so
    Log::close();          // standard output stays open
    Log::fail("shown");
    Log::setFlags(savedFlags);
    const std::string time = R"(\[\d\d:\d\d:\d\d\] )";
    EXPECT_TRUE(std::regex_match(out.text(), std::regex(R"(\[(\d{4}-\d\d-\d\d )?\d\d:\d\d:\d\d\] INFO: a 1\n)" + time +
                                                        "FAIL: b x\n" + time + "OK  : c\n" + time + "DEBUG INFO: d\n" +
                                                        time + "INFO: \n" + time + "FAIL: Log.setOut: NULL\n" + time +
                                                        "FAIL: shown\n")))
        << out.text();
}

}  // namespace
