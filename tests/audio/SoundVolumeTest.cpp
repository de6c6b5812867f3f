#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "TestSupport.h"
#include "audio/Sound.h"
#include "audio/SoundSettings.h"
#include "resources/Database.h"

namespace {

class SoundVolumeTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(Sound::init(32));
        TestSupport::writeFile("beep.ogg", TestSupport::readFile(KORVANE_SOURCE_DIR "/tests/data/audio/beep.ogg"));
    }
    void TearDown() override {
        Sound::setSoundVolume(1.0f);
        Sound::setMusicVolume(1.0f);
        Sound::clear();
        Database::clearAll();
    }
    TestSupport::ScopedTempDir dir;
};

TEST_F(SoundVolumeTest, APlayIsAsLoudAsItsVolumeTimesTheStoredOne) {
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

TEST_F(SoundVolumeTest, StoredVolumesAreClampedAndWrittenOnlyWhenTheyChange) {
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
