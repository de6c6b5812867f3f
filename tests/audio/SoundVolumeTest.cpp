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
        TestSupport::writeFile("beep.ogg", TestSupport::readFile(std::string(KORVANE_SOURCE_DIR) +
                                                                 "/tests/data/audio/beep.ogg"));
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
    struct Case {
        bool music;
        float volume, stored;
        int mixer;
    };
    const Case cases[] = {
        {false, 0.5f, 0.5f, 32}, {true, 1.0f, 0.25f, 32}, {false, 1.0f, 1.0f, 128},
        {false, 3.0f, 1.0f, 128}, {false, 1.0f, 0.0f, 0},  {true, -1.0f, 1.0f, 0},
    };
    for (const Case& c : cases) {
        Mix_HaltChannel(-1);
        Sound::setSoundVolume(c.music ? 1.0f : c.stored);
        Sound::setMusicVolume(c.music ? c.stored : 1.0f);
        if (c.music)
            Sound::playMusic("beep.ogg", c.volume);
        else
            Sound::play("beep.ogg", c.volume);
        ASSERT_TRUE(Sound::isPlaying(0));
        EXPECT_EQ(Mix_Volume(0, -1), c.mixer) << c.volume << " x " << c.stored;
    }
}

TEST_F(SoundVolumeTest, StoredVolumesAreClampedAndSavedOnlyWhenChanged) {
    struct Case {
        bool present;
        int stored;
        float share;
    };
    const Case cases[] = {{false, 0, 1.0f}, {true, 100, 1.0f}, {true, 101, 1.0f},
                          {true, 0, 0.0f},  {true, -1, 0.0f},  {true, 37, 0.37f}};
    for (const Case& c : cases) {
        Database::clearAll();
        if (c.present) Database::get("config.nvo")->setVal(SoundSettings::SOUND_KEY, c.stored);
        SoundSettings::load("config.nvo");
        EXPECT_FLOAT_EQ(Sound::getSoundVolume(), c.share) << c.stored;
        EXPECT_FLOAT_EQ(Sound::getMusicVolume(), 1.0f);
    }

    Database::clearAll();
    Sound::setSoundVolume(0.29f);
    Sound::setMusicVolume(0.0f);
    ASSERT_TRUE(SoundSettings::save("config.nvo"));
    Database::clearAll();
    SoundSettings::load("config.nvo");
    EXPECT_FLOAT_EQ(Sound::getSoundVolume(), 0.29f);
    EXPECT_FLOAT_EQ(Sound::getMusicVolume(), 0.0f);
    std::remove("config.nvo");
    ASSERT_TRUE(SoundSettings::save("config.nvo"));  // nothing new: nothing written
    EXPECT_TRUE(TestSupport::readFile("config.nvo").empty());
}

}  // namespace
