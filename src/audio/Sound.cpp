#include "audio/Sound.h"

#include <SDL/SDL.h>

#include <vector>

#include "resources/Resource.h"
#include "shell/Log.h"

namespace {

const int MIXER_FREQUENCY = 44100;
const int MIXER_CHANNELS_OUT = 2;
const int MIXER_CHUNK_BYTES = 2048;

std::vector<Sound::Sample*> sounds;
float soundVolume = 1.0f;
float musicVolume = 1.0f;
// Balances a successful Mix_OpenAudio, so that init and clear can pair up.
bool deviceOpen = false;

Sound::Sample* findCached(const std::string& name) {
    for (Sound::Sample* sample : sounds)
        if (sample->name == name) return sample;
    return nullptr;
}

// SDL_mixer's channel volume for a share of full loudness.
int mixerVolume(float share) {
    if (!(share > 0.0f)) return 0;
    if (share >= 1.0f) return MIX_MAX_VOLUME;
    return static_cast<int>(share * MIX_MAX_VOLUME + 0.5f);
}

// Reads and decodes a sound; null only when the file can't be read.
Sound::Sample* loadSample(const std::string& name) {
    char* data = Resource::read(name);
    if (!data) {
        Log::fail("Sound.play: Nie udalo sie wczytac dzwieku \"%s\"", name.c_str());
        return nullptr;
    }
    Sound::Sample* sample = new Sound::Sample;
    sample->name = name;
    sample->data = data;
    sample->size = Resource::lastSize();
    // A failed decode stays cached too, so the name isn't tried again.
    if (sample->size <= static_cast<uint32_t>(INT32_MAX)) {
        SDL_RWops* source = SDL_RWFromMem(sample->data, static_cast<int>(sample->size));
        if (source) sample->chunk = Mix_LoadWAV_RW(source, 1);
    }
    return sample;
}

}  // namespace

namespace Sound {

bool init(int channels) {
    if (!(Mix_Init(MIX_INIT_OGG) & MIX_INIT_OGG)) {
        Log::fail("Sound.init: Nie udalo sie uruchomic dekodera ogg");
        return false;
    }
    if (Mix_OpenAudio(MIXER_FREQUENCY, AUDIO_S16LSB, MIXER_CHANNELS_OUT, MIXER_CHUNK_BYTES) < 0) {
        Log::fail("Sound.init: Nie udalo sie uruchomic dzwieku");
        return false;
    }
    deviceOpen = true;
    if (Mix_AllocateChannels(channels) < channels) {
        Log::fail("Sound.init: Nie udalo sie zaalokowac kanalow (%d)", channels);
        return false;
    }
    return true;
}

void clear() {
    for (Sample* sample : sounds) {
        // The chunk goes first: freeing it stops any channel still playing it.
        if (sample->chunk) Mix_FreeChunk(sample->chunk);
        delete[] sample->data;
        delete sample;
    }
    sounds.clear();
    if (deviceOpen) Mix_CloseAudio();
    deviceOpen = false;
    // Mix_Quit frees the sound font list without forgetting it, and a later
    // Mix_OpenAudio would read the freed list; dropping it first avoids that.
    Mix_SetSoundFonts(nullptr);
    Mix_Quit();
    Log::ok("Sound.clear: Wyczyszczono");
}

void update(float) {}

namespace {

// The loudness of one play is the caller's volume times the player's setting.
void playAt(const std::string& name, float loudness) {
    Sample* sample = findCached(name);
    if (!sample) {
        sample = loadSample(name);
        if (!sample) return;
        sounds.push_back(sample);
    }
    if (!sample->chunk) return;
    // The volume is set before the sound starts, so that no piece of it is
    // mixed at the channel's previous volume. With every channel busy the
    // sound is simply not heard.
    const int channel = Mix_GroupAvailable(-1);
    if (channel < 0) return;
    Mix_Volume(channel, mixerVolume(loudness));
    Mix_PlayChannelTimed(channel, sample->chunk, 0, -1);
}

}  // namespace

void play(const std::string& name, float volume) { playAt(name, volume * soundVolume); }

void playMusic(const std::string& name, float volume) { playAt(name, volume * musicVolume); }

void setSoundVolume(float volume) { soundVolume = volume; }
float getSoundVolume() { return soundVolume; }
void setMusicVolume(float volume) { musicVolume = volume; }
float getMusicVolume() { return musicVolume; }

void pause(int channel) { Mix_Pause(channel); }
void resume(int channel) { Mix_Resume(channel); }
void halt(int channel) { Mix_HaltChannel(channel); }
bool isPlaying(int channel) { return Mix_Playing(channel) != 0; }

unsigned cachedCount() { return static_cast<unsigned>(sounds.size()); }

}  // namespace Sound
