#include <gtest/gtest.h>

#include <sys/stat.h>

#include <memory>
#include <string>
#include <vector>

#include "TestSupport.h"
#include "cres/CresWriter.h"
#include "resources/Resource.h"

using TestSupport::CapturedStdout;
using TestSupport::ScopedTempDir;
using TestSupport::writeFile;

namespace {

// Reads through the general door and returns the bytes lastSize() vouches for.
std::string readBack(const std::string& name) {
    std::unique_ptr<char[]> data(Resource::read(name));
    if (!data) return "<null>";
    EXPECT_EQ(data[Resource::lastSize()], '\0');
    return std::string(data.get(), Resource::lastSize());
}

char* newArray(const std::string& content) {
    char* data = new char[content.size() + 1];
    std::copy(content.begin(), content.end(), data);
    data[content.size()] = '\0';
    return data;
}

class ResourceTest : public ::testing::Test {
protected:
    void TearDown() override { Resource::clear(); }
    ScopedTempDir dir;
};

TEST_F(ResourceTest, BufferedBeatsPlainBeatsArchivesInFileNameOrder) {
    CresWriter::write("b.cres", {CresWriter::packEntry("xx", "from b"), CresWriter::packEntry("only_b", "b")});
    CresWriter::write("a.cres", {CresWriter::packEntry("xx", "from a")});
    writeFile("data.ini", "[list]\n0=b.cres\n1=a.cres\n");
    ASSERT_TRUE(Resource::open("data.ini"));
    EXPECT_EQ(readBack("xx"), "from a");
    EXPECT_EQ(readBack("only_b"), "b");
    EXPECT_TRUE(Resource::isRes("only_b"));
    EXPECT_EQ(Resource::size("xx"), 6u);

    writeFile("xx", "plain!!");
    EXPECT_EQ(readBack("xx"), "plain!!");
    EXPECT_EQ(Resource::size("xx"), 7u);

    ASSERT_TRUE(Resource::preload("xx", 3, newArray("mem")));
    EXPECT_EQ(readBack("xx"), "mem");
    EXPECT_EQ(Resource::size("xx"), 3u);
    EXPECT_TRUE(Resource::isBuff("xx"));
    // The first array given stays.
    EXPECT_TRUE(Resource::preload("xx", 4, newArray("late")));
    EXPECT_EQ(readBack("xx"), "mem");
}

TEST_F(ResourceTest, ListFileQuirks) {
    CresWriter::write("first.cres", {CresWriter::packEntry("f1", "1")});
    CresWriter::write("second.cres", {CresWriter::packEntry("s2", "2")});
    writeFile("gap.ini", "[list]\n0=first.cres\n2=second.cres\n");
    ASSERT_TRUE(Resource::open("gap.ini"));
    EXPECT_TRUE(Resource::isRes("f1"));
    EXPECT_FALSE(Resource::isRes("s2"));

    writeFile("crlf.ini", "[list]\r\n0=second.cres\r\n");
    ASSERT_TRUE(Resource::open("crlf.ini"));
    EXPECT_EQ(readBack("s2"), "2");

    writeFile("none.ini", "0=first.cres\n");
    EXPECT_TRUE(Resource::open("none.ini"));

    CapturedStdout out;
    EXPECT_FALSE(Resource::open("missing.ini"));
    writeFile("bad.ini", "[list]\n0=first.cres\n1=absent.cres\n");
    EXPECT_FALSE(Resource::open("bad.ini"));
    std::string log = out.text();
    EXPECT_NE(log.find("FAIL: Resource.open: Nie udalo sie wczytac pliku listy \"missing.ini\"\n"),
              std::string::npos);
    EXPECT_NE(log.find("FAIL: Resfile.open: Nie udalo sie otworzyc \"absent.cres\" (2)\n"), std::string::npos);
    // Archives opened before the failure stay open.
    EXPECT_TRUE(Resource::isRes("f1"));
}

TEST_F(ResourceTest, EveryReadHandsOutTheCallersOwnCopyAndSetsLastSize) {
    ASSERT_TRUE(Resource::preload("buf", 3, newArray("abc")));
    std::unique_ptr<char[]> first(Resource::readBuff("buf"));
    std::unique_ptr<char[]> second(Resource::readBuff("buf"));
    ASSERT_TRUE(first && second);
    first[0] = 'X';
    EXPECT_STREQ(second.get(), "abc");
    EXPECT_EQ(readBack("buf"), "abc");
    // A refused array stays the caller's: the store must not free it.
    std::unique_ptr<char[]> refused(newArray(""));
    EXPECT_FALSE(Resource::preload("zero", 0, refused.get()));
    EXPECT_FALSE(Resource::isBuff("zero"));

    writeFile("empty", "");
    writeFile("text", "hello");
    EXPECT_EQ(readBack("text"), "hello");
    EXPECT_EQ(readBack("empty"), "");
    EXPECT_EQ(readBack("text"), "hello");
    CapturedStdout out;
    EXPECT_EQ(Resource::read("nowhere"), nullptr);
    EXPECT_EQ(Resource::lastSize(), 0u);
    EXPECT_NE(out.text().find("FAIL: Resource.readRes: Nie udalo sie otworzyc pliku \"nowhere\""),
              std::string::npos);
    // An unknown buffered name must not shadow a plain file later.
    EXPECT_EQ(Resource::readBuff("text"), nullptr);
    EXPECT_EQ(readBack("text"), "hello");
}

TEST_F(ResourceTest, PreloadByNameKeepsTheFileAfterItIsGone) {
    writeFile("p", "kept");
    EXPECT_TRUE(Resource::preload("p"));
    remove("p");
    EXPECT_TRUE(Resource::exists("p"));
    EXPECT_EQ(readBack("p"), "kept");
    EXPECT_TRUE(Resource::preload("never-there"));
    EXPECT_FALSE(Resource::exists("never-there"));
}

TEST_F(ResourceTest, DirectoriesAreListedButAreNoPlainFiles) {
    mkdir("sub", 0755);
    writeFile("sub/one", "1");
    writeFile("sub/two", "2");
    std::vector<std::string> names{"kept"};
    EXPECT_EQ(Resource::listDir("sub", names), 4u);
    ASSERT_EQ(names.size(), 5u);
    EXPECT_EQ(names[1], ".");
    EXPECT_EQ(names[2], "..");
    EXPECT_EQ(Resource::listDir("absent", names), 0u);
    EXPECT_EQ(names.size(), 5u);
    EXPECT_FALSE(Resource::isRaw("sub"));
    EXPECT_TRUE(Resource::isRaw("sub/one"));
    EXPECT_GT(Resource::modTime("sub/one"), 0);
    EXPECT_EQ(Resource::modTime("absent"), 0);
}

}  // namespace
