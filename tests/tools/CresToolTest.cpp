#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/wait.h>

#include <memory>
#include <string>

#include "TestSupport.h"
#include "resources/Resource.h"

using TestSupport::readFile;
using TestSupport::ScopedTempDir;
using TestSupport::writeFile;

namespace {

int cres(const std::string& arguments) {
    std::string command = std::string(KORVANE_BINARY_DIR) + "/tools/cres " + arguments + " >out.txt 2>err.txt";
    int status = system(command.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

class CresToolTest : public ::testing::Test {
protected:
    void SetUp() override {
        mkdir("src", 0755);
        mkdir("src/character", 0755);
        mkdir("src/character/x", 0755);
        writeFile("src/character/x/init.lua", std::string(3000, 'a') + "-- repetitive, so it packs");
        writeFile("src/noise.bin", "\x01\x7f\x33\xfe\x80");
        writeFile("src/empty", "");
    }
    void TearDown() override { Resource::clear(); }
    ScopedTempDir dir;
};

TEST_F(CresToolTest, PackedEntriesReadBackByteIdenticalThroughTheResourceStore) {
    ASSERT_EQ(cres("pack src data.cres"), 0);
    writeFile("data.ini", "[list]\n0=data.cres\n");
    ASSERT_TRUE(Resource::open("data.ini"));
    for (const char* name : {"character/x/init.lua", "noise.bin", "empty"}) {
        std::unique_ptr<char[]> data(Resource::read(name));
        ASSERT_TRUE(data) << name;
        EXPECT_EQ(std::string(data.get(), Resource::lastSize()), readFile(std::string("src/") + name)) << name;
    }

    ASSERT_EQ(cres("list data.cres"), 0);
    std::string listing = readFile("out.txt");
    EXPECT_EQ(listing.find("character/x/init.lua\t"), 0u);
    EXPECT_NE(listing.find("\t3026\tcompressed\n"), std::string::npos);
    EXPECT_NE(listing.find("empty\t0\t0\tplain\n"), std::string::npos);
    EXPECT_NE(listing.find("noise.bin\t5\t5\tplain\n"), std::string::npos);
}

TEST_F(CresToolTest, PackingIsDeterministicAndExtractGivesTheTreeBack) {
    ASSERT_EQ(cres("pack src one.cres"), 0);
    ASSERT_EQ(cres("pack src two.cres"), 0);
    EXPECT_EQ(readFile("one.cres"), readFile("two.cres"));
    ASSERT_EQ(cres("verify one.cres"), 0);
    ASSERT_EQ(cres("extract one.cres out"), 0);
    EXPECT_EQ(readFile("out/character/x/init.lua"), readFile("src/character/x/init.lua"));
    EXPECT_EQ(readFile("out/noise.bin"), readFile("src/noise.bin"));
    struct stat info;
    EXPECT_EQ(stat("out/empty", &info), 0);
}

TEST_F(CresToolTest, VerifyFindsADamagedEntry) {
    ASSERT_EQ(cres("pack src data.cres"), 0);
    std::string bytes = readFile("data.cres");
    // The data area ends with the script's stream, then the five bytes of noise.bin.
    bytes[bytes.size() - 10] ^= 0x55;
    writeFile("bad.cres", bytes);
    EXPECT_EQ(cres("verify bad.cres"), 1);
}

TEST_F(CresToolTest, AnEmptyFolderPacksAndBadUsageExitsWith2) {
    mkdir("nothing", 0755);
    ASSERT_EQ(cres("pack nothing empty.cres"), 0);
    ASSERT_EQ(cres("verify empty.cres"), 0);
    EXPECT_EQ(cres("pack onlyone"), 2);
    EXPECT_NE(readFile("err.txt").find("usage: cres"), std::string::npos);
    EXPECT_EQ(cres("list absent.cres"), 1);
}

}  // namespace
