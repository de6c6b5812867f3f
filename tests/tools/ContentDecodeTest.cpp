// Every picture and sound under data/ must open with the decoders the game
// itself uses (SDL_image, SDL's BMP reader, SDL_mixer with Ogg Vorbis).
#include <gtest/gtest.h>

#include <SDL.h>
#include <SDL_image.h>
#include <SDL_mixer.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "TestSupport.h"

namespace fs = std::filesystem;

namespace {

const fs::path DATA = fs::path(KORVANE_SOURCE_DIR) / "data";

std::vector<fs::path> filesWithExtension(const std::string& extension) {
    std::vector<fs::path> found;
    for (const auto& entry : fs::recursive_directory_iterator(DATA))
        if (entry.path().extension() == extension) found.push_back(entry.path());
    return found;
}

// The game reads every file into memory and hands SDL a memory stream.
SDL_RWops* memoryStream(std::string& bytes) { return SDL_RWFromMem(bytes.data(), static_cast<int>(bytes.size())); }

}  // namespace

TEST(ContentDecode, PicturesOpenWithSdlImage) {
    std::vector<fs::path> pictures = filesWithExtension(".png");
    const std::vector<fs::path> jpegs = filesWithExtension(".jpg");
    pictures.insert(pictures.end(), jpegs.begin(), jpegs.end());
    ASSERT_FALSE(pictures.empty());
    for (const fs::path& picture : pictures) {
        std::string bytes = TestSupport::readFile(picture.string());
        SDL_Surface* surface = IMG_Load_RW(memoryStream(bytes), 1);
        ASSERT_NE(surface, nullptr) << picture << ": " << IMG_GetError();
        EXPECT_GT(surface->w, 0);
        SDL_FreeSurface(surface);
    }
}

TEST(ContentDecode, IconOpensWithSdlBmpReader) {
    std::string bytes = TestSupport::readFile((DATA / "icon.bmp").string());
    SDL_Surface* icon = SDL_LoadBMP_RW(memoryStream(bytes), 1);
    ASSERT_NE(icon, nullptr) << SDL_GetError();
    EXPECT_EQ(icon->w, 32);
    EXPECT_EQ(icon->h, 32);
    SDL_FreeSurface(icon);
}

TEST(ContentDecode, SoundsDecodeAsOggVorbis) {
    setenv("SDL_AUDIODRIVER", "dummy", 0);  // decoding needs no sound card
    ASSERT_EQ(SDL_Init(SDL_INIT_AUDIO), 0) << SDL_GetError();
    ASSERT_TRUE(Mix_Init(MIX_INIT_OGG) & MIX_INIT_OGG) << Mix_GetError();
    ASSERT_EQ(Mix_OpenAudio(44100, AUDIO_S16LSB, 2, 2048), 0) << Mix_GetError();
    const std::vector<fs::path> sounds = filesWithExtension(".ogg");
    ASSERT_FALSE(sounds.empty());
    for (const fs::path& sound : sounds) {
        std::string bytes = TestSupport::readFile(sound.string());
        Mix_Chunk* chunk = Mix_LoadWAV_RW(memoryStream(bytes), 1);
        ASSERT_NE(chunk, nullptr) << sound << ": " << Mix_GetError();
        // Something to hear: at least a tenth of a second of 16-bit stereo.
        EXPECT_GT(chunk->alen, 44100u * 4 / 10) << sound;
        Mix_FreeChunk(chunk);
    }
    Mix_CloseAudio();
    Mix_Quit();
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
}
