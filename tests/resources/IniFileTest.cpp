#include <gtest/gtest.h>

#include <string>

#include "TestSupport.h"
#include "resources/IniFile.h"

using TestSupport::writeFile;

namespace {

class IniFileTest : public ::testing::Test {
protected:
    TestSupport::ScopedTempDir dir;
    IniFile ini;
};

TEST_F(IniFileTest, ReadsOnlyTheExactlyNamedSectionWithTheFirstSeparatorAndRawValues) {
    writeFile("f.ini",
              "a=outside\n"
              "[Main]\nb=1\n"
              "[main]\r\n"  // the head is read up to "]", so a CR behind it is harmless
              "; a=comment\n"
              "a=b=c\n"
              " key = spaced \n"
              "=a=b\n"  // "=" at the very start is no separator
              "cr=v\r\n"
              "x=1\n"
              "x=2\n"
              "[after]\n"
              "c=3\n");
    ASSERT_TRUE(ini.load("f.ini", "main"));
    EXPECT_EQ(ini.get("a"), "b=c");
    EXPECT_EQ(ini.get(" key "), " spaced ");
    EXPECT_EQ(ini.get("=a"), "b");
    EXPECT_EQ(ini.get("cr"), "v\r");
    EXPECT_EQ(ini.get("x"), "2");
    EXPECT_EQ(ini.get("b"), "");
    EXPECT_EQ(ini.get("c"), "");
}

TEST_F(IniFileTest, AHeadWithoutBracketRunsToTheLineEndAndTheSeparatorIsLookedForIn1024Characters) {
    writeFile("f.ini", "[s\n" + std::string(1024, 'k') + "=v\n" + std::string(1030, 'z') + "\n" +
                           std::string(1024, 'y') + "\n" + std::string(1023, 'n') + "=near\n");
    ASSERT_TRUE(ini.load("f.ini", "s"));
    EXPECT_EQ(ini.get(std::string(1024, 'k')), "v");
    EXPECT_EQ(ini.get(std::string(1024, 'z')), "zzzzz");
    EXPECT_EQ(ini.get(std::string(1023, 'n')), "near");
    EXPECT_EQ(ini.get(std::string(1024, 'y')), "");
}

TEST_F(IniFileTest, AMissingFileKeepsTheOldValuesAndAMissingSectionEmptiesThem) {
    writeFile("f.ini", "[s]\nk=v\n");
    ASSERT_TRUE(ini.load("f.ini", "s"));
    std::string out = "stale";
    ini.get("missing", out);
    EXPECT_EQ(out, "");
    EXPECT_FALSE(ini.load("nope.ini", "s"));
    EXPECT_EQ(ini.get("k"), "v");
    writeFile("e.ini", "k=top\n");
    EXPECT_TRUE(ini.load("e.ini", "s"));
    EXPECT_EQ(ini.get("k"), "");
}

}  // namespace
