#include <gtest/gtest.h>

#include <string>

#include "TestSupport.h"
#include "resources/LanguageFile.h"
#include "resources/Parser.h"

using TestSupport::CapturedStdout;

namespace {

TEST(ParserTest, RunsOfDelimitersAndEdgesMakeNoEmptyTokens) {
    EXPECT_EQ(Parser("", ";").count(), 0);
    EXPECT_EQ(Parser(";;;", ";").count(), 0);
    Parser p("a;;b;", ";");
    ASSERT_EQ(p.count(), 2);
    EXPECT_EQ(p.show(0), "a");
    EXPECT_EQ(p[1], "b");
    Parser lines("\r\nfirst line\r\n\r\nsecond\n", "\r\n");
    ASSERT_EQ(lines.count(), 2);
    EXPECT_EQ(lines[0], "first line");
    EXPECT_EQ(Parser("abc", "").count(), 0);
    Parser zero(std::string("ab\0cd", 5), "/");
    ASSERT_EQ(zero.count(), 2);
    EXPECT_EQ(zero[1], "cd");
}

TEST(ParserTest, NumbersFindAndSetText) {
    Parser p("12 abc 12a 007 -3 +3 1.5 0", " ");
    EXPECT_EQ(p.val(0), 12);
    EXPECT_EQ(p.val(1), 0);
    EXPECT_EQ(p.val(2), 12);
    EXPECT_FLOAT_EQ(p.val<float>(6), 1.5f);
    const bool plain[] = {true, false, false, false, true, false, false, true};
    for (int i = 0; i < 8; ++i) EXPECT_EQ(p.isVal(i), plain[i]) << p[i];
    EXPECT_EQ(p.find("12a"), 2);
    EXPECT_EQ(p.find("12 "), -1);
    EXPECT_EQ(p.find("nothing"), -1);

    const char buffer[] = "x.y\0z.w";
    EXPECT_EQ(p.setText(buffer).text(), "x.y");
    EXPECT_EQ(p.count(), 1);
    p.setDelimiters(".");
    EXPECT_EQ(p.count(), 2);
    EXPECT_EQ(p.setText(nullptr).count(), 0);
}

TEST(ParserTest, IndicesOutsideTheTokensPrintOneLineAndChangeNothing) {
    Parser p("a b", " ");
    CapturedStdout out;
    EXPECT_EQ(p.show(2), "");
    EXPECT_EQ(p.val(5), 0);
    EXPECT_EQ(p.val<float>(-1), 0.0f);
    EXPECT_FALSE(p.isVal(2));
    p.del(2);
    p.swap(9, "z");
    p.add(-2, "z");
    EXPECT_EQ(p.text(), "a b");
    EXPECT_EQ(out.text(),
              "FAIL: Parser.show: Element 2 nie istnieje\n"
              "FAIL: Parser.val: Element 5 nie istnieje\n"
              "FAIL: Parser.val: Element -1 nie istnieje\n"
              "FAIL: Parser.isVal: Element 2 nie istnieje\n"
              "FAIL: Parser.del: Element 2 nie istnieje\n"
              "FAIL: Parser.swap: Element 9 nie istnieje\n"
              "FAIL: Parser.add: Element -2 nie istnieje\n");
}

TEST(ParserTest, EditsInsertAndRemoveWithTheFirstDelimiter) {
    Parser p("a/b/c", "/\\");
    p.add(-1, "s");
    EXPECT_EQ(p.text(), "s/a/b/c");
    p.add(1, "m");
    EXPECT_EQ(p.text(), "s/a/m/b/c");
    // Behind the last token the pair is appended as it is, joining that token.
    p.add(4, "e");
    EXPECT_EQ(p.text(), "s/a/m/b/ce/");
    p.add(99, "x");
    EXPECT_EQ(p.text(), "s/a/m/b/ce/x");
    EXPECT_EQ(p.count(), 6);

    p.setText("a//b/c");
    p.del(0);
    EXPECT_EQ(p.text(), "b/c");
    p.setText("a/b/c");
    p.del(2);
    EXPECT_EQ(p.text(), "a/b/");
    p.setText("a/b/c");
    p.swap(1, "X");
    EXPECT_EQ(p.text(), "a/X/c");
    p.swap(0, "Y");
    EXPECT_EQ(p.text(), "Y/X/c");
    p.swap(2, "Z");
    EXPECT_EQ(p.text(), "Y/X/Z/");
}

TEST(ParserTest, ReplacingTheLastPartOfAPath) {
    Parser path("character/x\\body.xml", "/\\");
    path.del(path.count() - 1);
    path.add(path.count(), "body.png");
    EXPECT_EQ(path.text(), "character/x\\body.png");
}

TEST(LanguageFileTest, ReadsOneSectionOfThePlainFileBesideTheGame) {
    TestSupport::ScopedTempDir dir;
    IniFile words;
    EXPECT_FALSE(LanguageFile::load(words, "demo_menu"));
    TestSupport::writeFile("lang.ini", "[demo_menu]\nhost=Hostuj gre\nexit= Wyjscie\n[menu_main]\nstart=Start\n");
    ASSERT_TRUE(LanguageFile::load(words, "demo_menu"));
    EXPECT_EQ(words.get("host"), "Hostuj gre");
    EXPECT_EQ(words.get("exit"), " Wyjscie");
    EXPECT_EQ(words.get("start"), "");
}

}  // namespace
