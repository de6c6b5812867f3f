#include <gtest/gtest.h>

#include <cstdio>
#include <regex>
#include <string>

#include "TestSupport.h"
#include "audio/Sound.h"
#include "audio/SoundSettings.h"
#include "resources/Database.h"

using TestSupport::CapturedStdout;

namespace {

const std::string STAMP = R"(\[[^\]]+\] )";

// The two log lines of a sound that can't be read.
std::string unreadable(const std::string& name) {
    return STAMP + "FAIL: Resource.readRes: .*\n" + STAMP + "FAIL: Sound.play: Nie udalo sie wczytac dzwieku \"" +
           name + "\"\n";
}

// An open device in a fresh folder with a sound that decodes and a file that doesn't, at full volume.
class SoundTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(Sound::init(32));
        TestSupport::writeFile("beep.ogg", TestSupport::readFile(KORVANE_SOURCE_DIR "/tests/data/audio/beep.ogg"));
        TestSupport::writeFile("noise.ogg", "this is not a sound");
    }
    void TearDown() override {
        Sound::setSoundVolume(1.0f);
        Sound::setMusicVolume(1.0f);
        Sound::clear();
        Database::clearAll();
    }
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

TEST_F(SoundTest, APlayIsAsLoudAsItsVolumeTimesTheStoredOne) {
    const struct {
        bool music;
        float volume, stored;
        int mixer;
    } cases[] = {{false, 0.5f, 0.5f, 32}, {true, 1.0f, 0.25f, 32}, {false, 1.0f, 1.0f, 128},
                 {false, 3.0f, 1.0f, 128}, {false, 1.0f, 0.0f, 0},  {true, -1.0f, 1.0f, 0}};
    for (const auto& c : cases) {
        Mix_HaltChannel(-1);
        Sound::setSoundVolume(c.music ? 1.0f : c.stored);
        Sound::setMusicVolume(c.music ? c.stored : 1.0f);
        c.music ? Sound::playMusic("beep.ogg", c.volume) : Sound::play("beep.ogg", c.volume);
        ASSERT_TRUE(Sound::isPlaying(0));
        EXPECT_EQ(Mix_Volume(0, -1), c.mixer) << c.volume << " x " << c.stored;
    }
}

TEST_F(SoundTest, StoredVolumesAreClampedAndWrittenOnlyWhenTheyChange) {
    const struct {
        int stored;  // -2: none
        float share;
    } cases[] = {{-2, 1.0f}, {100, 1.0f}, {101, 1.0f}, {0, 0.0f}, {-1, 0.0f}, {37, 0.37f}};
    for (const auto& c : cases) {
        Database::clearAll();
        if (c.stored != -2) Database::get("config.nvo")->setVal(SoundSettings::SOUND_KEY, c.stored);
        SoundSettings::load("config.nvo");
        EXPECT_FLOAT_EQ(Sound::getSoundVolume(), c.share) << c.stored;
        EXPECT_FLOAT_EQ(Sound::getMusicVolume(), 1.0f);
    }
    Database::clearAll();
    Sound::setSoundVolume(1.0f);  // only the music differs from what is stored
    Sound::setMusicVolume(0.29f);
    ASSERT_TRUE(SoundSettings::save("config.nvo"));
    Database::clearAll();
    SoundSettings::load("config.nvo");
    EXPECT_FLOAT_EQ(Sound::getMusicVolume(), 0.29f);
    std::remove("config.nvo");
    ASSERT_TRUE(SoundSettings::save("config.nvo"));  // nothing new, nothing written
    EXPECT_TRUE(TestSupport::readFile("config.nvo").empty());
}

}  // namespace
