#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "TestSupport.h"
#include "cres/CresWriter.h"
#include "resources/Resfile.h"

using TestSupport::CapturedStdout;
using TestSupport::ScopedTempDir;
using TestSupport::writeFile;

namespace {

// Field positions of the first table entry of an archive built by CresWriter.
const size_t ENTRY_COUNT_AT = 9;
const size_t FIRST_OFFSET_AT = 13;
const size_t FIRST_STORED_SIZE_AT = 17;

void patchU32(std::string& bytes, size_t at, uint32_t value) {
    for (int i = 0; i < 4; ++i) bytes[at + i] = char((value >> (8 * i)) & 0xFF);
}

CresWriter::Entry plain(const std::string& name, const std::string& content) {
    return CresWriter::packEntry(name, content);  // too short to be worth compressing
}

// A compressed entry whose table claims unpackedSize, whatever the truth.
CresWriter::Entry compressed(const std::string& name, const std::string& content, uint32_t unpackedSize) {
    CresWriter::Entry entry = CresWriter::packEntry(name, content);
    entry.unpackedSize = unpackedSize;
    return entry;
}

std::string loaded(Resfile& resfile, const std::string& name) {
    std::unique_ptr<char[]> data(resfile.load(name));
    return data ? std::string(data.get(), resfile.size(name)) : std::string("<null>");
}

class ResfileTest : public ::testing::Test {
protected:
    ScopedTempDir dir;
    Resfile resfile;
};

TEST_F(ResfileTest, LoadsPlainAndCompressedEntriesByNameAndPosition) {
    std::string text(5000, 'x');
    CresWriter::write("a.cres", {plain("scripts/a.lua", "print(1)"), CresWriter::packEntry("big.txt", text),
                                 plain("empty", "")});
    ASSERT_TRUE(resfile.open("a.cres"));
    EXPECT_EQ(resfile.count("a.cres"), 3u);
    EXPECT_TRUE(resfile.exists("big.txt"));
    EXPECT_FALSE(resfile.exists("BIG.TXT"));
    EXPECT_EQ(loaded(resfile, "scripts/a.lua"), "print(1)");
    EXPECT_EQ(loaded(resfile, "big.txt"), text);
    EXPECT_EQ(resfile.size(1u), 5000u);
    EXPECT_EQ(resfile.name(0u), "scripts/a.lua");
    EXPECT_EQ(resfile.name(3u), "");
    EXPECT_EQ(resfile.size(3u), 0u);

    std::unique_ptr<char[]> empty(resfile.load("a.cres", 2u));
    ASSERT_TRUE(empty);
    EXPECT_EQ(empty[0], '\0');
    std::unique_ptr<char[]> byIndex(resfile.load("a.cres", 0u));
    ASSERT_TRUE(byIndex);
    EXPECT_STREQ(byIndex.get(), "print(1)");  // zero byte behind the content

    std::unique_ptr<char[]> whole(resfile.loadAll("a.cres"));
    EXPECT_EQ(std::string(whole.get(), 4), "CRES");
}

TEST_F(ResfileTest, ReopeningTheSamePathKeepsTheTableAndLaterDuplicatesWin) {
    CresWriter::write("a.cres", {plain("dup", "first"), plain("dup", "second"),
                                 plain(std::string("cut\0tail", 8), "z")});
    CresWriter::write("b.cres", {plain("two", "2")});
    ASSERT_TRUE(resfile.open("a.cres"));
    EXPECT_EQ(resfile.count("a.cres"), 3u);
    EXPECT_EQ(loaded(resfile, "dup"), "second");
    EXPECT_EQ(resfile.name(0u), "");
    EXPECT_EQ(loaded(resfile, "cut"), "z");  // names end at a zero byte
    // Overwritten on disk: a reopen of the same path must not read it again.
    CresWriter::write("a.cres", {plain("other", "x")});
    ASSERT_TRUE(resfile.open("a.cres"));
    EXPECT_TRUE(resfile.exists("dup"));
    ASSERT_TRUE(resfile.open("b.cres"));
    EXPECT_FALSE(resfile.exists("dup"));
    EXPECT_TRUE(resfile.exists("two"));
}

TEST_F(ResfileTest, ArchivesThatLieAreRefusedWithTheirReason) {
    const std::string good = CresWriter::serialize({plain("name", "content")});
    auto patched = [&](size_t at, uint32_t value) {
        std::string bytes = good;
        patchU32(bytes, at, value);
        return bytes;
    };
    const std::string noTable = "FAIL: Resfile.open: Nie udalo sie dodac info o pliku do tablicy \"";
    const struct {
        const char* file;
        std::string bytes;
        std::string message;
    } cases[] = {
        {"four", "CRES", "FAIL: Resfile.open: Brak naglowka \"four\""},
        {"v1", std::string("CRES\x01", 5) + std::string(8, '\0'), "FAIL: Resfile.open: Nieobslugiwana wersja resfile \"v1\""},
        {"v3", std::string("CRES\x03", 5) + std::string(8, '\0'), "FAIL: Resfile.open: Nieobslugiwana wersja resfile \"v3\""},
        {"cut", std::string("CRES\x02\0\0", 7), "FAIL: Resfile.open: Brak naglowka \"cut\""},
        {"count", patched(ENTRY_COUNT_AT, 2), noTable + "count\""},
        {"absurd", patched(ENTRY_COUNT_AT, 0xFFFFFFFFu), noTable + "absurd\""},
        {"broken", good.substr(0, FIRST_STORED_SIZE_AT + 2), noTable + "broken\""},
        {"long", patched(FIRST_OFFSET_AT + 9, 1000),  // nameLength of the first entry
         "FAIL: Resfile.open: Nie udalo sie zajac miejsca na nazwe pliku \"long\" (1000)"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.file);
        writeFile(c.file, c.bytes);
        CapturedStdout out;
        EXPECT_FALSE(resfile.open(c.file));
        EXPECT_FALSE(resfile.exists("name"));
        EXPECT_EQ(out.text(), c.message + "\n");
    }
    CapturedStdout out;
    EXPECT_FALSE(resfile.open("missing.cres"));
    EXPECT_EQ(out.text(), "");  // the caller reports a missing file
}

TEST_F(ResfileTest, EntriesWhoseBytesLieOutsideTheFileFailAlone) {
    std::string bytes = CresWriter::serialize({plain("far", "abc"), plain("big", "def"), plain("ok", "ghi")});
    patchU32(bytes, FIRST_OFFSET_AT, 0x7FFFFFF0u);
    size_t secondStoredSize = FIRST_OFFSET_AT + 13 + 3 + 4;
    patchU32(bytes, secondStoredSize, 0xFFFFFFFFu);
    writeFile("a.cres", bytes);
    ASSERT_TRUE(resfile.open("a.cres"));
    CapturedStdout out;
    EXPECT_EQ(resfile.load("far"), nullptr);
    EXPECT_EQ(resfile.load("big"), nullptr);
    EXPECT_EQ(loaded(resfile, "ok"), "ghi");
    EXPECT_EQ(out.text(),
              "FAIL: Resfile.load: Nie udalo sie zajac pamieci na plik (4)\n"
              "FAIL: Resfile.load: Nie udalo sie zajac pamieci na plik (0)\n");
}

TEST_F(ResfileTest, CompressedEntriesKeepTheirTrueLengthOrFailWithTheZlibCode) {
    std::string text = std::string(300, 'k') + " and the end";
    CresWriter::Entry corrupt = compressed("corrupt", text, uint32_t(text.size()));
    corrupt.stored[0] = 0x11;  // no longer a zlib header
    CresWriter::write("a.cres", {compressed("short", text, 1000), compressed("long", text, 10), corrupt,
                                 compressed("absurd", text, 0x7FFFFFFFu)});
    ASSERT_TRUE(resfile.open("a.cres"));
    EXPECT_EQ(resfile.size("short"), 1000u);
    EXPECT_EQ(loaded(resfile, "short"), text);
    EXPECT_EQ(resfile.size("short"), text.size());

    CapturedStdout out;
    EXPECT_EQ(resfile.load("long"), nullptr);
    EXPECT_EQ(resfile.load("corrupt"), nullptr);
    EXPECT_EQ(resfile.load("absurd"), nullptr);
    EXPECT_EQ(out.text(),
              "FAIL: Resfile.load: Nie udalo sie rozpakowac pliku (-5)\n"
              "FAIL: Resfile.load: Nie udalo sie rozpakowac pliku (-3)\n"
              "FAIL: Resfile.load: Nie udalo sie zajac pamieci na bufor (2147483648)\n");
}

}  // namespace
