// The resource store and the CRES archives under it.
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <cstring>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include "LittleEndianBytes.h"
#include "TestSupport.h"
#include "cres/CresWriter.h"
#include "resources/Resfile.h"
#include "resources/Resource.h"

using CresWriter::packEntry;
using TestSupport::CapturedStdout;
using TestSupport::writeFile;

namespace {

// Where fields of the first table entry lie in an archive built by CresWriter.
const size_t ENTRY_COUNT_AT = 9, FIRST_OFFSET_AT = 13, FIRST_NAME_LENGTH_AT = 22;

// Reads through the general door and returns the bytes lastSize() vouches for.
std::string readBack(const std::string& name) {
    std::unique_ptr<char[]> data(Resource::read(name));
    if (!data) return "<null>";
    EXPECT_EQ(data[Resource::lastSize()], '\0');
    return std::string(data.get(), Resource::lastSize());
}

char* newArray(const std::string& content) { return strcpy(new char[content.size() + 1], content.c_str()); }

class ResourceTest : public ::testing::Test {
protected:
    void TearDown() override { Resource::clear(); }
    TestSupport::ScopedTempDir dir;
    Resfile resfile;
};

TEST_F(ResourceTest, BufferedBeatsPlainBeatsArchivesInFileNameOrder) {
    CresWriter::write("b.cres", {packEntry("xx", "from b"), packEntry("only_b", "b")});
    CresWriter::write("a.cres", {packEntry("xx", "from a")});
    // Key 2 is missing, so the list ends before the archive that isn't there.
    writeFile("data.ini", "[list]\r\n0=b.cres\r\n1=a.cres\r\n3=absent.cres\r\n");
    ASSERT_TRUE(Resource::open("data.ini"));
    EXPECT_EQ(readBack("xx"), "from a");
    EXPECT_EQ(Resource::size("xx"), 6u);
    writeFile("xx", "plain!!");
    EXPECT_EQ(readBack("xx"), "plain!!");
    EXPECT_EQ(Resource::size("xx"), 7u);
    ASSERT_TRUE(Resource::preload("xx", 3, newArray("mem")));
    EXPECT_TRUE(Resource::preload("xx", 4, newArray("late")));  // the first array given stays
    EXPECT_EQ(readBack("xx"), "mem");
    EXPECT_EQ(Resource::size("xx"), 3u);
    // A list naming an archive that isn't there fails, and what it opened before stays open.
    writeFile("bad.ini", "[list]\n0=a.cres\n1=absent.cres\n");
    CapturedStdout out;
    EXPECT_FALSE(Resource::open("bad.ini"));
    EXPECT_EQ(readBack("only_b"), "b");
    EXPECT_NE(out.text().find("FAIL: Resfile.open: Nie udalo sie otworzyc \"absent.cres\" (2)\n"), std::string::npos);
}

TEST_F(ResourceTest, EveryReadHandsOutTheCallersOwnCopyAndPreloadKeepsWhatWasRead) {
    ASSERT_TRUE(Resource::preload("buf", 3, newArray("abc")));
    std::unique_ptr<char[]>(Resource::read("buf"))[0] = 'X';
    EXPECT_EQ(readBack("buf"), "abc");
    std::unique_ptr<char[]> refused(newArray(""));  // stays the caller's: the store must not free it
    EXPECT_TRUE(!Resource::preload("zero", 0, refused.get()) && !Resource::isBuff("zero"));
    writeFile("empty", "");
    EXPECT_EQ(readBack("empty"), "");
    writeFile("text", "hello");
    EXPECT_EQ(Resource::readBuff("text"), nullptr);  // an unknown buffered name must not shadow the plain file
    EXPECT_TRUE(Resource::preload("text"));
    remove("text");
    EXPECT_TRUE(Resource::exists("text") && readBack("text") == "hello");
    CapturedStdout out;
    EXPECT_TRUE(Resource::preload("nowhere") && !Resource::exists("nowhere") && Resource::lastSize() == 0);
    EXPECT_NE(out.text().find("FAIL: Resource.readRes: Nie udalo sie otworzyc pliku \"nowhere\""), std::string::npos);
}

TEST_F(ResourceTest, DirectoriesAreListedDotsFirstButAreNoPlainFiles) {
    mkdir("sub", 0755);
    writeFile("sub/one", "1");
    std::vector<std::string> names{"kept"};
    EXPECT_TRUE(Resource::listDir("sub", names) == 3 && Resource::listDir("absent", names) == 0);
    EXPECT_EQ(names, (std::vector<std::string>{"kept", ".", "..", "one"}));
    EXPECT_TRUE(!Resource::isRaw("sub") && Resource::modTime("sub/one") > 0 && Resource::modTime("absent") == 0);
}

TEST_F(ResourceTest, AReopenOfTheSamePathKeepsTheTableAndALaterDuplicateWinsTheName) {
    CresWriter::write("a.cres", {packEntry("dup", "1"), packEntry("dup", "2"), packEntry(std::string("cut\0x", 5), "z")});
    CresWriter::write("b.cres", {packEntry("two", "2")});
    EXPECT_EQ(resfile.count("a.cres"), 3u);
    std::unique_ptr<char[]> dup(resfile.load("dup")), cut(resfile.load("cut"));  // names end at a zero byte
    EXPECT_TRUE(dup && cut && std::string(dup.get()) == "2" && std::string(cut.get()) == "z");
    EXPECT_TRUE(resfile.name(0u).empty() && resfile.size(3u) == 0);
    const std::string onDisk = TestSupport::readFile("a.cres");
    EXPECT_EQ(std::string(std::unique_ptr<char[]>(resfile.loadAll("a.cres")).get(), onDisk.size()), onDisk);
    // Overwritten on disk: a reopen of the same path must not read it again.
    CresWriter::write("a.cres", {packEntry("other", "x")});
    EXPECT_TRUE(resfile.open("a.cres") && resfile.exists("dup"));
    EXPECT_TRUE(resfile.open("b.cres") && !resfile.exists("dup"));
}

TEST_F(ResourceTest, ArchivesThatLieAreRefusedWithTheirReason) {
    const std::string good = CresWriter::serialize({packEntry("name", "content")});
    auto patched = [&](size_t at, uint32_t value) { return std::string(good).replace(at, 4, u32(value)); };
    const std::string noTable = "Nie udalo sie dodac info o pliku do tablicy \"";
    const std::tuple<const char*, std::string, std::string> cases[] = {
        {"cut", std::string("CRES\x02\0\0", 7), "Brak naglowka \"cut\""},
        {"v3", std::string("CRES\x03", 5) + std::string(8, '\0'), "Nieobslugiwana wersja resfile \"v3\""},
        {"count", patched(ENTRY_COUNT_AT, 2), noTable + "count\""},
        {"absurd", patched(ENTRY_COUNT_AT, 0xFFFFFFFFu), noTable + "absurd\""},  // refused before room is reserved
        {"broken", good.substr(0, FIRST_NAME_LENGTH_AT - 3), noTable + "broken\""},
        {"long", patched(FIRST_NAME_LENGTH_AT, 1000), "Nie udalo sie zajac miejsca na nazwe pliku \"long\" (1000)"},
        {"missing", "", ""},  // not written: the caller reports a missing file
    };
    for (const auto& [file, bytes, message] : cases) {
        if (!bytes.empty()) writeFile(file, bytes);
        CapturedStdout out;
        EXPECT_FALSE(resfile.open(file));
        EXPECT_FALSE(resfile.exists("name"));
        EXPECT_EQ(out.text(), message.empty() ? "" : "FAIL: Resfile.open: " + message + "\n");
    }
}

TEST_F(ResourceTest, EntriesThatLieFailAloneAndOneThatInflatesShortKeepsItsTrueLength) {
    const std::string text = std::string(300, 'k') + " and the end";
    auto claiming = [&](const char* name, uint32_t size) {
        CresWriter::Entry entry = packEntry(name, text);
        entry.unpackedSize = size;
        return entry;
    };
    CresWriter::Entry corrupt = claiming("corrupt", uint32_t(text.size()));
    corrupt.stored[0] = 0x11;  // no longer a zlib header
    std::string bytes = CresWriter::serialize({packEntry("far", "abc"), packEntry("big", "def"), claiming("short", 1000),
                                               claiming("long", 10), corrupt, claiming("absurd", 0x7FFFFFFFu)});
    bytes.replace(FIRST_OFFSET_AT, 4, u32(0x7FFFFFF0u));
    bytes.replace(FIRST_NAME_LENGTH_AT + 4 + 3 + 4, 4, u32(0xFFFFFFFFu));  // the second entry's storedSize
    writeFile("a.cres", bytes);
    ASSERT_TRUE(resfile.open("a.cres"));
    EXPECT_EQ(resfile.size("short"), 1000u);
    std::unique_ptr<char[]> shortened(resfile.load("short"));
    EXPECT_EQ(std::string(shortened.get(), resfile.size("short")), text);
    CapturedStdout out;
    for (const char* name : {"far", "big", "long", "corrupt", "absurd"}) EXPECT_EQ(resfile.load(name), nullptr) << name;
    EXPECT_EQ(out.text(),
              "FAIL: Resfile.load: Nie udalo sie zajac pamieci na plik (4)\n"
              "FAIL: Resfile.load: Nie udalo sie zajac pamieci na plik (0)\n"
              "FAIL: Resfile.load: Nie udalo sie rozpakowac pliku (-5)\n"
              "FAIL: Resfile.load: Nie udalo sie rozpakowac pliku (-3)\n"
              "FAIL: Resfile.load: Nie udalo sie zajac pamieci na bufor (2147483648)\n");
}

}  // namespace
