#pragma once
#include <SDL/SDL_mixer.h>

#include <cstdint>
#include <string>

// Fire-and-forget playback over SDL_mixer. Sounds are resource names,
// decoded whole at their first use and kept until clear().
namespace Sound {

struct Sample {
    std::string name;
    Mix_Chunk* chunk = nullptr;  // null when decoding failed
    char* data = nullptr;        // the file's bytes as read, owned
    uint32_t size = 0;
};

bool init(int channels);
void clear();
void update(float dt);

// A sound is as loud as `volume` (0 to 1) times the stored sound volume,
// music times the music volume.
void play(const std::string& name, float volume);
void playMusic(const std::string& name, float volume);

// Shares of full loudness, 0 to 1; the player's setting.
void setSoundVolume(float volume);
float getSoundVolume();
void setMusicVolume(float volume);
float getMusicVolume();

void pause(int channel);
void resume(int channel);
void halt(int channel);
bool isPlaying(int channel);

// Number of names in the cache, failed decodes included.
unsigned cachedCount();

}  // namespace Sound
