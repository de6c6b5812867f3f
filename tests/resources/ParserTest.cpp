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

// Each edit works on "a/b/c" with "/" as the first delimiter.
TEST(ParserTest, EditsInsertAndRemoveWithTheFirstDelimiter) {
    struct Case {
        const char* what;
        void (*edit)(Parser&);
        const char* text;
    };
    const Case cases[] = {
        {"add in front", [](Parser& p) { p.add(-1, "s"); }, "s/a/b/c"},
        {"add inside", [](Parser& p) { p.add(0, "m"); }, "a/m/b/c"},
        // Behind the last token the pair is appended as it is, joining that token.
        {"add behind the last", [](Parser& p) { p.add(2, "e"); }, "a/b/ce/"},
        {"add past the end", [](Parser& p) { p.add(99, "x"); }, "a/b/cx"},
        {"del takes the delimiters behind", [](Parser& p) { p.setText("a//b/c").del(0); }, "b/c"},
        {"del of the last keeps those in front", [](Parser& p) { p.del(2); }, "a/b/"},
        {"replace the last part of a path", [](Parser& p) { p.del(2); p.add(p.count(), "d"); }, "a/b/d"},
        {"swap inside", [](Parser& p) { p.swap(1, "X"); }, "a/X/c"},
        {"swap first", [](Parser& p) { p.swap(0, "Y"); }, "Y/b/c"},
        {"swap last", [](Parser& p) { p.swap(2, "Z"); }, "a/b/Z/"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Parser p("a/b/c", "/\\");
        c.edit(p);
        EXPECT_EQ(p.text(), c.text);
        EXPECT_EQ(p.count(), Parser(c.text, "/").count());
    }
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
