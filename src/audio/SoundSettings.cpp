#include "audio/SoundSettings.h"

#include <cmath>

#include "audio/Sound.h"
#include "resources/Database.h"

namespace {

const int FULL = 100;

float storedShare(const Database& settings, const std::string& key) {
    if (!settings.values().count(key)) return 1.0f;
    int percent = settings.getVal(key);
    if (percent < 0) percent = 0;
    if (percent > FULL) percent = FULL;
    return static_cast<float>(percent) / FULL;
}

int percentOf(float share) { return static_cast<int>(std::lround(share * FULL)); }

}  // namespace

namespace SoundSettings {

const char* const SOUND_KEY = "sound.volume";
const char* const MUSIC_KEY = "music.volume";

void load(const std::string& path) {
    const Database* settings = Database::get(path);
    Sound::setSoundVolume(storedShare(*settings, SOUND_KEY));
    Sound::setMusicVolume(storedShare(*settings, MUSIC_KEY));
}

bool save(const std::string& path) {
    Database* settings = Database::get(path);
    const int sound = percentOf(Sound::getSoundVolume());
    const int music = percentOf(Sound::getMusicVolume());
    if (percentOf(storedShare(*settings, SOUND_KEY)) == sound && percentOf(storedShare(*settings, MUSIC_KEY)) == music)
        return true;
    settings->setVal(SOUND_KEY, sound);
    settings->setVal(MUSIC_KEY, music);
    return settings->save(path);
}

}  // namespace SoundSettings
