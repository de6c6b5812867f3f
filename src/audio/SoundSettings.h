#pragma once
#include <string>

// The player's two volumes, kept in the settings file as whole percentages
// from 0 to 100.
namespace SoundSettings {

extern const char* const SOUND_KEY;
extern const char* const MUSIC_KEY;

// Gives Sound the stored volumes; a missing one is full volume, and values
// outside 0..100 are brought to the nearer end.
void load(const std::string& path);
// Stores Sound's present volumes and saves the file, only when they differ
// from what load would give; false when a save failed.
bool save(const std::string& path);

}  // namespace SoundSettings
