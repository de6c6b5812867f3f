#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "LittleEndianBytes.h"
#include "TestSupport.h"
#include "resources/Database.h"

using namespace std::string_literals;
using TestSupport::CapturedStdout;
using Strings = std::map<std::string, std::string>;

namespace {

std::string text(const std::string& t) { return u32(uint32_t(t.size())) + t; }

// Loads `bytes` into `db` and returns what the load printed.
std::string load(Database& db, const std::string& bytes, bool expected) {
    std::istringstream in(bytes);
    CapturedStdout out;
    EXPECT_EQ(db.loadFrom(in), expected);
    return out.text();
}

TEST(DatabaseTest, AMissingFileGivesASharedObjectThatSavesInKeyOrderAndIsReadOnce) {
    TestSupport::ScopedTempDir dir;
    CapturedStdout out;
    Database* db = Database::get("config.nvo");
    db->setStr("b", "two");
    db->setStr("ab", "one");
    db->setVal("ab", -2);
    db->setVal("a", 7);
    ASSERT_TRUE(db->save("config.nvo"));
    EXPECT_EQ(TestSupport::readFile("config.nvo"), u32(2) + text("ab") + text("one") + text("b") + text("two") +
                                                       u32(2) + text("a") + u32(7) + text("ab") + u32(0xFFFFFFFEu));
    Database copy;
    EXPECT_FALSE(copy.save("other.nvo"));  // never loaded
    ASSERT_TRUE(copy.load("config.nvo"));
    EXPECT_TRUE(copy.strings() == db->strings() && copy.values() == db->values());

    TestSupport::writeFile("config.nvo", u32(0) + u32(1) + text("a") + u32(2));
    EXPECT_EQ(Database::get("config.nvo")->getVal("a"), 7);
    Database::clearAll();
    EXPECT_EQ(Database::get("config.nvo")->getVal("a"), 2);
    EXPECT_EQ(out.text().find("FAIL: Database.load: Nie udalo sie otworzyc pliku \"config.nvo\"\n"), 0u);
}

TEST(DatabaseTest, RecordsTheFormatRefusesAreReportedAndSkipped) {
    Database db;
    // An empty value is written, but doesn't come back; a key ends at a zero byte.
    EXPECT_EQ(load(db, u32(2) + text("empty") + u32(0) + text("ke\0y2"s) + text("va\0l"s) + u32(0), true),
              "FAIL: Database.load: Zerowa dlugosc klucza (str) - 17\nINFO: Database.load: Wczytano str: 1; val: 0\n");
    EXPECT_EQ(db.strings(), (Strings{{"ke", "va"}}));
    // A zero key length ends the strings, but is passed over among integers.
    EXPECT_EQ(load(db, u32(2) + text("a") + text("1") + u32(0), false), "FAIL: Database.load: Zerowa dlugosc klucza (str)\n");
    EXPECT_EQ(db.strings(), (Strings{{"a", "1"}}));
    EXPECT_EQ(load(db, u32(0) + u32(2) + u32(0) + text("v") + u32(9), true),
              "FAIL: Database.load: Zerowa dlugosc klucza (val) - 12\nINFO: Database.load: Wczytano str: 0; val: 1\n");
    EXPECT_EQ(load(db, "", true), "INFO: Database.load: Wczytano str: 0; val: 0\n");
    // Cut or lying files keep what came before the fault.
    for (const std::string& bytes : {u32(2) + text("a") + text("1") + text("b") + u32(0xFFFFFFF0u) + "x",
                                     u32(1) + text("a") + text("1") + u32(1) + text("v") + "\x01"}) {
        EXPECT_NE(load(db, bytes, false).find("FAIL: Database.load: Plik urwany"), std::string::npos);
        EXPECT_EQ(db.strings(), (Strings{{"a", "1"}}));
        EXPECT_TRUE(db.values().empty());
    }
}

}  // namespace
