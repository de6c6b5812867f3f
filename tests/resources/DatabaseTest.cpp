#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "TestSupport.h"
#include "resources/Database.h"

using TestSupport::CapturedStdout;
using TestSupport::readFile;
using TestSupport::ScopedTempDir;
using TestSupport::writeFile;

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
    ScopedTempDir dir;
};

TEST_F(DatabaseTest, SavedFileHasTheDocumentedLayoutAndLoadsBackEqual) {
    Database* db = Database::get("config.nvo");
    db->setStr("b", "two");
    db->setStr("ab", "one");
    db->setVal("ab", -2);
    db->setVal("a", 7);
    ASSERT_TRUE(db->save("config.nvo"));

    // Records in bytewise key order, the shorter key first.
    std::string expected = u32(2) + text("ab") + text("one") + text("b") + text("two") + u32(2) + text("a") +
                           u32(7) + text("ab") + u32(0xFFFFFFFEu);
    EXPECT_EQ(readFile("config.nvo"), expected);

    Database loaded;
    CapturedStdout out;
    ASSERT_TRUE(loaded.load("config.nvo"));
    EXPECT_EQ(out.text(), "INFO: Database.load: Wczytano str: 2; val: 2\n");
    EXPECT_EQ(loaded.strings(), db->strings());
    EXPECT_EQ(loaded.values(), db->values());
    EXPECT_EQ(loaded.getVal("ab"), -2);
    EXPECT_EQ(loaded.getStr("ab"), "one");
}

TEST_F(DatabaseTest, RegistrySharesOneObjectPerPathAndReadsTheFileOnce) {
    writeFile("config.nvo", u32(0) + u32(1) + text("k") + u32(1));
    Database* first = Database::get("config.nvo");
    writeFile("config.nvo", u32(0) + u32(1) + text("k") + u32(2));
    EXPECT_EQ(Database::get("config.nvo"), first);
    EXPECT_EQ(first->getVal("k"), 1);
    EXPECT_NE(Database::get("other.nvo"), first);

    Database::clearAll();
    EXPECT_EQ(Database::get("config.nvo")->getVal("k"), 2);
}

TEST_F(DatabaseTest, MissingFileGivesAnEmptyObjectThatSaveCreates) {
    Database* db;
    {
        CapturedStdout out;
        db = Database::get("config.nvo");
        EXPECT_EQ(out.text(), "FAIL: Database.load: Nie udalo sie otworzyc pliku \"config.nvo\"\n");
    }
    EXPECT_TRUE(db->strings().empty());
    db->setVal("x", 3);
    ASSERT_TRUE(db->save("config.nvo"));
    Database reloaded;
    ASSERT_TRUE(reloaded.load("config.nvo"));
    EXPECT_EQ(reloaded.getVal("x"), 3);
    // Written beside and renamed into place: nothing is left next to it.
    EXPECT_EQ(readFile("config.nvo.new"), "");
}

TEST_F(DatabaseTest, NeverLoadedObjectAndUnwritablePathRefuseToSave) {
    Database fresh;
    fresh.setVal("x", 1);
    EXPECT_FALSE(fresh.save("config.nvo"));
    EXPECT_EQ(readFile("config.nvo"), "");

    writeFile("config.nvo", u32(0) + u32(1) + text("k") + u32(5));
    Database* db = Database::get("config.nvo");
    CapturedStdout out;
    EXPECT_FALSE(db->save("missing-dir/config.nvo"));
    EXPECT_EQ(out.text(), "FAIL: Database.save: Nie udalo sie otworzyc pliku \"missing-dir/config.nvo\"\n");
}

TEST_F(DatabaseTest, SaveAllWritesEveryObjectToItsOwnPath) {
    Database::get("one.nvo")->setVal("n", 1);
    Database::get("two.nvo")->setStr("s", "two");
    Database::saveAll();
    Database::clearAll();
    EXPECT_EQ(Database::get("one.nvo")->getVal("n"), 1);
    EXPECT_EQ(Database::get("two.nvo")->getStr("s"), "two");
}

TEST_F(DatabaseTest, UnknownKeysReadAsZeroOrEmptyAndAddNothing) {
    Database* db = Database::get("config.nvo");
    EXPECT_EQ(db->getVal("nope"), 0);
    EXPECT_EQ(db->getStr("nope"), "");
    db->setVal("", 4);
    db->setStr("", "x");
    EXPECT_TRUE(db->values().empty());
    EXPECT_TRUE(db->strings().empty());
}

TEST_F(DatabaseTest, EmptyValueIsWrittenButDroppedOnTheNextLoad) {
    Database* db = Database::get("config.nvo");
    db->setStr("empty", "");
    db->setStr("full", "v");
    ASSERT_TRUE(db->save("config.nvo"));
    Database loaded;
    CapturedStdout out;
    EXPECT_TRUE(loaded.load("config.nvo"));
    // 4 (count) + 4 + 5 ("empty") + 4 (its zero length) bytes were read.
    EXPECT_EQ(out.text(),
              "FAIL: Database.load: Zerowa dlugosc klucza (str) - 17\n"
              "INFO: Database.load: Wczytano str: 1; val: 0\n");
    EXPECT_EQ(loaded.getStr("full"), "v");
    EXPECT_EQ(loaded.strings().count("empty"), 0u);
}

TEST_F(DatabaseTest, EmptyFileLoadsAsNoRecordsAndShortPathChangesNothing) {
    writeFile("config.nvo", "");
    Database db;
    {
        CapturedStdout out;
        EXPECT_TRUE(db.load("config.nvo"));
        EXPECT_EQ(out.text(), "INFO: Database.load: Wczytano str: 0; val: 0\n");
    }
    db.setVal("kept", 1);
    CapturedStdout out;
    EXPECT_FALSE(db.load("c"));
    EXPECT_EQ(out.text(), "");
    EXPECT_EQ(db.getVal("kept"), 1);
    EXPECT_EQ(db.getPath(), "config.nvo");
}

TEST_F(DatabaseTest, KeysAndValuesEndAtTheirFirstZeroByteAndLaterRecordsOverwrite) {
    std::string bytes = u32(3) + text(std::string("ke\0y", 4)) + text(std::string("va\0lue", 6)) +
                        text(std::string("\0x", 2)) + text("dropped") + text("ke") + text("last") + u32(0);
    std::istringstream in(bytes);
    Database db;
    ASSERT_TRUE(db.loadFrom(in));
    EXPECT_EQ(db.strings().size(), 1u);
    EXPECT_EQ(db.getStr("ke"), "last");
}

TEST_F(DatabaseTest, ZeroKeyLengthStopsStringsButIsSkippedAmongIntegers) {
    std::istringstream strings(u32(3) + text("a") + text("1") + u32(0) + text("b") + text("2"));
    Database db;
    CapturedStdout out;
    EXPECT_FALSE(db.loadFrom(strings));
    EXPECT_EQ(db.getStr("a"), "1");
    EXPECT_EQ(db.getStr("b"), "");

    std::istringstream values(u32(0) + u32(3) + u32(0) + text("v") + u32(9) + u32(0));
    EXPECT_TRUE(db.loadFrom(values));
    EXPECT_EQ(db.getVal("v"), 9);
    EXPECT_NE(out.text().find("FAIL: Database.load: Zerowa dlugosc klucza (str)\n"), std::string::npos);
    EXPECT_NE(out.text().find("FAIL: Database.load: Zerowa dlugosc klucza (val) - 12\n"), std::string::npos);
}

TEST_F(DatabaseTest, CutOrLyingFilesKeepWhatCameBeforeTheFault) {
    const std::string good = text("a") + text("1");
    struct Case {
        const char* what;
        std::string bytes;
        size_t strings;
    };
    const Case cases[] = {
        {"key length past the end", u32(2) + good + u32(1000) + "ab", 1},
        {"value length past the end", u32(2) + good + text("b") + u32(0xFFFFFFF0u) + "x", 1},
        {"absurd count", u32(0xFFFFFFFFu) + good + good, 1},
        {"cut inside a length", u32(2) + good + std::string("\x01\x00", 2), 1},
        {"cut inside a count", std::string("\x01\x00", 2), 0},
        {"cut before the integers' value", u32(1) + good + u32(1) + text("v") + "\x01", 1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        std::istringstream in(c.bytes);
        Database db;
        bool loaded;
        std::string log;
        {
            CapturedStdout out;
            loaded = db.loadFrom(in);
            log = out.text();
        }
        EXPECT_FALSE(loaded);
        EXPECT_EQ(db.strings().size(), c.strings);
        EXPECT_EQ(db.values().size(), 0u);
        EXPECT_NE(log.find("FAIL: Database.load: Plik urwany"), std::string::npos) << log;
    }
}

}  // namespace
