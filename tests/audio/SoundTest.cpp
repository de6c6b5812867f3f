#include <gtest/gtest.h>

#include <cstdio>
#include <regex>
#include <string>

#include "TestSupport.h"
#include "audio/Sound.h"

using TestSupport::CapturedStdout;

namespace {

const std::string STAMP = R"(\[[^\]]+\] )";

// The two log lines of a sound that can't be read.
std::string unreadable(const std::string& name) {
    return STAMP + "FAIL: Resource.readRes: .*\n" + STAMP + "FAIL: Sound.play: Nie udalo sie wczytac dzwieku \"" +
           name + "\"\n";
}

// An open device in a fresh folder with a sound that decodes and a file that doesn't.
class SoundTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(Sound::init(32));
        TestSupport::writeFile("beep.ogg", TestSupport::readFile(KORVANE_SOURCE_DIR "/tests/data/audio/beep.ogg"));
        TestSupport::writeFile("noise.ogg", "this is not a sound");
    }
    void TearDown() override { Sound::clear(); }
    TestSupport::ScopedTempDir dir;
};

TEST_F(SoundTest, ANameIsReadOnceEvenIfItDoesNotDecodeAMissingOneOnEveryAttemptAndASoundTooManyIsDropped) {
    CapturedStdout out;
    for (const char* name : {"beep.ogg", "noise.ogg", "missing.ogg"}) Sound::play(name, 1.0f);
    std::remove("beep.ogg");
    std::remove("noise.ogg");
    for (const char* name : {"beep.ogg", "noise.ogg"}) Sound::play(name, 0.5f);
    Sound::playMusic("missing.ogg", 1.0f);
    EXPECT_EQ(Sound::cachedCount(), 2u);
    EXPECT_EQ(Mix_Playing(-1), 2);  // the beep twice, the noise never
    for (int i = 0; i < 31; ++i) Sound::play("beep.ogg", 1.0f);
    EXPECT_EQ(Mix_Playing(-1), 32);  // the one beyond the channel count is dropped, silently
    EXPECT_TRUE(std::regex_match(out.text(), std::regex(unreadable("missing.ogg") + unreadable("missing.ogg"))))
        << out.text();
}

TEST_F(SoundTest, ClearEmptiesTheCacheAndLogsEvenWhenThereIsNothingToClear) {
    Sound::play("beep.ogg", 1.0f);
    std::remove("beep.ogg");
    CapturedStdout out;
    Sound::clear();
    Sound::clear();
    ASSERT_TRUE(Sound::init(32));
    Sound::play("beep.ogg", 1.0f);
    const std::string cleared = STAMP + "OK  : Sound.clear: Wyczyszczono\n";
    EXPECT_TRUE(std::regex_match(out.text(), std::regex(cleared + cleared + unreadable("beep.ogg"))))
        << out.text();
}

}  // namespace
