#include <gtest/gtest.h>

#include <sstream>
#include <string>

using namespace std::string_literals;

#include "TestSupport.h"
#include "resources/Database.h"

using namespace TestSupport;

namespace {

std::string u32(uint32_t v) {
    std::string s;
    for (int shift = 0; shift < 32; shift += 8) s.push_back(static_cast<char>((v >> shift) & 0xFF));
    return s;
}
std::string text(const std::string& t) { return u32(static_cast<uint32_t>(t.size())) + t; }

class DatabaseTest : public ::testing::Test {
protected:
    void SetUp() override { Database::clearAll(); }
    void TearDown() override { Database::clearAll(); }
    // Loads `bytes` into `db` and returns what the load printed.
    static std::string load(Database& db, const std::string& bytes, bool expected) {
        std::istringstream in(bytes);
        bool loaded;
        std::string printed;
        {
            CapturedStdout out;
            loaded = db.loadFrom(in);
            printed = out.text();
        }
        EXPECT_EQ(loaded, expected);
        return printed;
    }
    ScopedTempDir dir;
};

TEST_F(DatabaseTest, SavesInKeyOrderLittleEndianAndLoadsBackEqual) {
    Database* db = Database::get("config.nvo");
    db->setStr("b", "two");
    db->setStr("ab", "one");
    db->setVal("ab", -2);
    db->setVal("a", 7);
    ASSERT_TRUE(db->save("config.nvo"));
    EXPECT_EQ(readFile("config.nvo"), u32(2) + text("ab") + text("one") + text("b") + text("two") + u32(2) +
                                          text("a") + u32(7) + text("ab") + u32(0xFFFFFFFEu));
    EXPECT_EQ(readFile("config.nvo.new"), "");
    Database loaded;
    ASSERT_TRUE(loaded.load("config.nvo"));
    EXPECT_EQ(loaded.strings(), db->strings());
    EXPECT_EQ(loaded.values(), db->values());
}

TEST_F(DatabaseTest, RegistryReadsAFileOnceAndAMissingOneCanBeSaved) {
    Database* db;
    std::string printed;
    {
        CapturedStdout out;
        db = Database::get("config.nvo");
        printed = out.text();
    }
    EXPECT_EQ(printed, "FAIL: Database.load: Nie udalo sie otworzyc pliku \"config.nvo\"\n");
    db->setVal("k", 1);
    ASSERT_TRUE(db->save("config.nvo"));
    writeFile("config.nvo", u32(0) + u32(1) + text("k") + u32(2));
    EXPECT_EQ(Database::get("config.nvo"), db);
    EXPECT_EQ(db->getVal("k"), 1);
    Database::clearAll();
    EXPECT_EQ(Database::get("config.nvo")->getVal("k"), 2);

    Database neverLoaded;
    EXPECT_FALSE(neverLoaded.save("other.nvo"));
    EXPECT_FALSE(neverLoaded.load("c"));
}

TEST_F(DatabaseTest, RecordsTheFormatRefusesAreReportedAndSkipped) {
    Database db;
    // An empty value is written, but doesn't come back.
    EXPECT_EQ(load(db, u32(2) + text("empty") + u32(0) + text("ke\0y2"s) + text("va\0l"s) + u32(0), true),
              "FAIL: Database.load: Zerowa dlugosc klucza (str) - 17\n"
              "INFO: Database.load: Wczytano str: 1; val: 0\n");
    EXPECT_EQ(db.strings(), (std::map<std::string, std::string>{{"ke", "va"}}));
    // A zero key length ends the strings, but is passed over among integers.
    EXPECT_EQ(load(db, u32(2) + text("a") + text("1") + u32(0), false),
              "FAIL: Database.load: Zerowa dlugosc klucza (str)\n");
    EXPECT_EQ(db.getStr("a"), "1");
    EXPECT_EQ(load(db, u32(0) + u32(2) + u32(0) + text("v") + u32(9), true),
              "FAIL: Database.load: Zerowa dlugosc klucza (val) - 12\n"
              "INFO: Database.load: Wczytano str: 0; val: 1\n");
    EXPECT_EQ(load(db, "", true), "INFO: Database.load: Wczytano str: 0; val: 0\n");
}

TEST_F(DatabaseTest, CutOrLyingFilesKeepWhatCameBeforeTheFault) {
    const std::string good = text("a") + text("1");
    const std::pair<const char*, std::string> cases[] = {
        {"key length past the end", u32(2) + good + u32(1000) + "ab"},
        {"value length past the end", u32(2) + good + text("b") + u32(0xFFFFFFF0u) + "x"},
        {"absurd count", u32(0xFFFFFFFFu) + good + good},
        {"cut inside a length", u32(2) + good + "\x01"},
        {"cut before an integer's value", u32(1) + good + u32(1) + text("v") + "\x01"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.first);
        Database db;
        EXPECT_NE(load(db, c.second, false).find("FAIL: Database.load: Plik urwany"), std::string::npos);
        EXPECT_EQ(db.getStr("a"), "1");
        EXPECT_TRUE(db.values().empty());
    }
}

}  // namespace
