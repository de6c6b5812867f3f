// The text formats of the data: tokens, and key-and-value files.
#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "TestSupport.h"
#include "resources/IniFile.h"
#include "resources/LanguageFile.h"
#include "resources/Parser.h"

using TestSupport::writeFile;

namespace {

std::vector<std::string> tokens(const Parser& p) {
    std::vector<std::string> all;
    for (int32_t i = 0; i < p.count(); ++i) all.push_back(p[i]);
    return all;
}

TEST(ParserTest, NoEmptyTokensAndIndicesOutsideTheTokensPrintOneLineAndChangeNothing) {
    const std::tuple<std::string, std::string, std::vector<std::string>> cases[] = {
        {"", ";", {}}, {";;;", ";", {}}, {"abc", "", {}}, {"a;;b;", ";", {"a", "b"}},
        {std::string("ab\0cd", 5), "/", {"ab", "cd"}},
        {"\r\nfirst line\r\n\r\nsecond\n", "\r\n", {"first line", "second"}},
    };
    for (const auto& [text, delimiters, expected] : cases) EXPECT_EQ(tokens(Parser(text, delimiters)), expected) << text;

    // The fuzz target shows that no index is read outside; here, what is said and kept.
    Parser p("a b", " ");
    TestSupport::CapturedStdout out;
    EXPECT_EQ(p.show(2), "");
    EXPECT_EQ(p.val<float>(-1), 0.0f);
    EXPECT_TRUE(p.find("b") == 1 && Parser("12a 12", " ").find("12") == 1 && p.find("c") == -1);
    p.swap(2, "z");
    p.add(-2, "z");
    EXPECT_EQ(p.text(), "a b");
    EXPECT_EQ(out.text(), "FAIL: Parser.show: Element 2 nie istnieje\nFAIL: Parser.val: Element -1 nie istnieje\n"
                          "FAIL: Parser.swap: Element 2 nie istnieje\nFAIL: Parser.add: Element -2 nie istnieje\n");
}

// Each edit works on "a/b/c" with "/" as the first delimiter.
TEST(ParserTest, EditsInsertAndRemoveWithTheFirstDelimiter) {
    const std::pair<void (*)(Parser&), const char*> cases[] = {
        {[](Parser& p) { p.add(-1, "s"); }, "s/a/b/c"},
        {[](Parser& p) { p.add(0, "m"); }, "a/m/b/c"},
        // Behind the last token the pair is appended as it is, joining that token.
        {[](Parser& p) { p.add(2, "e"); }, "a/b/ce/"},
        {[](Parser& p) { p.setText("a//b/c").del(0); }, "b/c"},
        // The path idiom: the last token goes, not the delimiters in front, and count() adds bare.
        {[](Parser& p) { p.del(2); p.add(p.count(), "d"); }, "a/b/d"},
        {[](Parser& p) { p.swap(0, "Y"); }, "Y/b/c"},
        {[](Parser& p) { p.swap(2, "Z"); }, "a/b/Z/"},
    };
    for (const auto& [edit, text] : cases) {
        Parser p("a/b/c", "/\\");
        edit(p);
        EXPECT_EQ(p.text(), text);
        EXPECT_EQ(tokens(p), tokens(Parser(text, "/")));
    }
}

TEST(IniFileTest, ReadsOnlyTheExactlyNamedSectionWithTheFirstSeparatorInItsFirst1024CharactersOrNothing) {
    TestSupport::ScopedTempDir dir;
    IniFile ini;
    const std::string k(1024, 'k'), z(1030, 'z'), y(1024, 'y'), n(1023, 'n');
    // The head is read up to "]", so a CR behind it is harmless.
    writeFile("f.ini", "a=outside\n[Main]\nb=1\n[main]\r\n; a=comment\na=b=c\n key = spaced \n=a=b\ncr=v\r\nx=1\nx=2\n" + k +
                           "=v\n" + z + "\n" + y + "\n" + n + "=near\n[after]\nc=3\n");
    ASSERT_TRUE(ini.load("f.ini", "main"));
    const std::pair<std::string, std::string> expected[] = {
        {"a", "b=c"}, {" key ", " spaced "}, {"=a", "b"}, {"cr", "v\r"}, {"x", "2"},    {"b", ""},
        {"c", ""},    {"; a", ""},           {k, "v"},              {z.substr(0, 1024), "zzzzz"}, {n, "near"}, {y, ""}};
    for (const auto& [key, value] : expected) EXPECT_EQ(ini.get(key), value) << key.substr(0, 8);

    // A missing file keeps the old values; a missing section empties them.
    EXPECT_FALSE(LanguageFile::load(ini, "s"));
    writeFile("lang.ini", "[s]\nk=v\n");
    ASSERT_TRUE(LanguageFile::load(ini, "s"));
    EXPECT_FALSE(ini.load("nope.ini", "s"));
    EXPECT_EQ(ini.get("k"), "v");
    writeFile("e.ini", "k=top\n[s\nk=no bracket\n");
    EXPECT_TRUE(ini.load("e.ini", "t") && ini.get("k").empty());
    EXPECT_TRUE(ini.load("e.ini", "s") && ini.get("k") == "no bracket");  // a head without "]" runs to the line end
}

}  // namespace
