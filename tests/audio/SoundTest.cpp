#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "TestSupport.h"
#include "audio/Sound.h"

using TestSupport::CapturedStdout;
using TestSupport::ScopedTempDir;

namespace {

const char* const FAILED_READ = "Sound.play: Nie udalo sie wczytac dzwieku \"missing.ogg\"";

std::string beepBytes() {
    return TestSupport::readFile(std::string(KORVANE_SOURCE_DIR) + "/tests/data/audio/beep.ogg");
}

unsigned countOf(const std::string& text, const std::string& what) {
    unsigned n = 0;
    for (size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) ++n;
    return n;
}

// Each test gets an open device in a fresh working directory and leaves the
// module as it found it.
class SoundTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(Sound::init(32));
        TestSupport::writeFile("beep.ogg", beepBytes());
    }
    void TearDown() override { Sound::clear(); }
    ScopedTempDir dir;
};

TEST_F(SoundTest, ASoundIsReadOnceAndThenPlayedFromTheCache) {
    Sound::play("beep.ogg", 1.0f);
    EXPECT_EQ(1u, Sound::cachedCount());
    EXPECT_TRUE(Sound::isPlaying(-1));

    // The file is gone, yet the name still plays: the bytes were kept.
    std::remove("beep.ogg");
    CapturedStdout out;
    Sound::play("beep.ogg", 0.5f);
    EXPECT_EQ(1u, Sound::cachedCount());
    EXPECT_EQ(2, Mix_Playing(-1));
    EXPECT_EQ(std::string::npos, out.text().find("Sound.play"));
}

TEST_F(SoundTest, AMissingFileIsReportedOnEveryAttemptAndNotCached) {
    CapturedStdout out;
    Sound::play("missing.ogg", 1.0f);
    Sound::playMusic("missing.ogg", 1.0f);
    EXPECT_EQ(2u, countOf(out.text(), FAILED_READ));
    EXPECT_EQ(0u, Sound::cachedCount());
    EXPECT_FALSE(Sound::isPlaying(-1));
}

TEST_F(SoundTest, AnUndecodableFileIsCachedSilentAndNotReadAgain) {
    TestSupport::writeFile("noise.ogg", "this is not a sound");
    Sound::play("noise.ogg", 1.0f);
    std::remove("noise.ogg");
    CapturedStdout out;
    Sound::play("noise.ogg", 1.0f);
    EXPECT_EQ(1u, Sound::cachedCount());
    EXPECT_FALSE(Sound::isPlaying(-1));
    EXPECT_EQ(std::string::npos, out.text().find("Sound.play"));
}

TEST_F(SoundTest, BeyondTheChannelCountTheExcessIsDroppedSilently) {
    CapturedStdout out;
    for (int i = 0; i < 40; ++i) Sound::play("beep.ogg", 1.0f);
    EXPECT_EQ(32, Mix_Playing(-1));
    EXPECT_EQ("", out.text());
}

TEST_F(SoundTest, ClearEmptiesTheCacheSoTheNextPlayReadsTheFileAgain) {
    Sound::play("beep.ogg", 1.0f);
    {
        CapturedStdout out;
        Sound::clear();
        EXPECT_NE(std::string::npos, out.text().find("OK  : Sound.clear: Wyczyszczono"));
    }
    EXPECT_EQ(0u, Sound::cachedCount());
    ASSERT_TRUE(Sound::init(32));
    std::remove("beep.ogg");
    CapturedStdout out;
    Sound::play("beep.ogg", 1.0f);
    EXPECT_NE(std::string::npos, out.text().find("Nie udalo sie wczytac dzwieku \"beep.ogg\""));
}

TEST(SoundWithoutDevice, ClearOfAnEmptyCacheStillLogsItsLine) {
    CapturedStdout out;
    Sound::clear();
    EXPECT_NE(std::string::npos, out.text().find("Sound.clear: Wyczyszczono"));
}

}  // namespace
