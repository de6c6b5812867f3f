#include <gtest/gtest.h>

#include <string>

#include "TestSupport.h"
#include "resources/IniFile.h"

using TestSupport::ScopedTempDir;
using TestSupport::writeFile;

namespace {

class IniFileTest : public ::testing::Test {
protected:
    ScopedTempDir dir;
    IniFile ini;
};

TEST_F(IniFileTest, ReadsOnlyTheNamedSectionUntilTheNextHead) {
    writeFile("f.ini",
              "a=outside\n"
              "[Other]\nb=1\n"
              "[main]\n"
              "; a=comment\n"
              "a=b=c\n"
              " key = spaced \n"
              "=zero\n"
              "x=1\n"
              "x=2\n"
              "[after]\n"
              "c=3\n");
    ASSERT_TRUE(ini.load("f.ini", "main"));
    EXPECT_EQ(ini.get("a"), "b=c");
    EXPECT_EQ(ini.get(" key "), " spaced ");
    EXPECT_EQ(ini.get("x"), "2");
    EXPECT_EQ(ini.get("b"), "");
    EXPECT_EQ(ini.get("c"), "");
    // "=" at the very start is no separator: the next one is.
    writeFile("g.ini", "[s]\n=a=b\n");
    ASSERT_TRUE(ini.load("g.ini", "s"));
    EXPECT_EQ(ini.get("=a"), "b");
}

TEST_F(IniFileTest, SectionNamesAreExactAndAHeadWithoutBracketRunsToTheLineEnd) {
    writeFile("f.ini", "[Main]\na=1\n[main\nb=2\n");
    ASSERT_TRUE(ini.load("f.ini", "main"));
    EXPECT_EQ(ini.get("a"), "");
    EXPECT_EQ(ini.get("b"), "2");
}

TEST_F(IniFileTest, CarriageReturnsStayInTheValue) {
    writeFile("f.ini", "[s]\r\nk=v\r\n");
    // The head itself reads "s" up to "]", so the section is found.
    ASSERT_TRUE(ini.load("f.ini", "s"));
    EXPECT_EQ(ini.get("k"), "v\r");
}

TEST_F(IniFileTest, TheSeparatorIsLookedForOnlyIn1024Characters) {
    std::string farSeparator = std::string(1024, 'k') + "=v";
    std::string longNoSeparator = std::string(1030, 'z');
    std::string exactlyLimit = std::string(1024, 'y');
    writeFile("f.ini", "[s]\n" + farSeparator + "\n" + longNoSeparator + "\n" + exactlyLimit + "\n" +
                           std::string(1023, 'n') + "=near\n");
    ASSERT_TRUE(ini.load("f.ini", "s"));
    EXPECT_EQ(ini.get(std::string(1024, 'k')), "v");
    EXPECT_EQ(ini.get(std::string(1024, 'z')), "zzzzz");
    EXPECT_EQ(ini.get(std::string(1023, 'n')), "near");
    // The 1024-character line without "=" added nothing.
    EXPECT_EQ(ini.get(std::string(1024, 'y')), "");
}

TEST_F(IniFileTest, UnknownKeysAreAddedAndAMissingFileKeepsTheOldValues) {
    writeFile("f.ini", "[s]\nk=v\n");
    ASSERT_TRUE(ini.load("f.ini", "s"));
    std::string out = "stale";
    ini.get("missing", out);
    EXPECT_EQ(out, "");
    EXPECT_FALSE(ini.load("nope.ini", "s"));
    EXPECT_EQ(ini.get("k"), "v");
    // A file without the section empties the map and still succeeds.
    writeFile("e.ini", "k=top\n");
    EXPECT_TRUE(ini.load("e.ini", "s"));
    EXPECT_EQ(ini.get("k"), "");
}

}  // namespace
