// spriteview draws a sprite file the way the game does: run it on the
// default fighter and read its last frame back.
#include <gtest/gtest.h>

#include <SDL.h>

#include <cstdlib>
#include <string>

#include "TestSupport.h"

namespace {

const std::string DATA = std::string(KORVANE_SOURCE_DIR) + "/data";
const std::string TOOL = std::string(KORVANE_BINARY_DIR) + "/tools/spriteview";

int runView(const std::string& arguments) {
    return std::system(("cd '" + DATA + "' && '" + TOOL + "' " + arguments + " >/dev/null 2>&1").c_str());
}

// Pixels in a rectangle whose colour lies within `tolerance` of r, g, b.
int countNear(SDL_Surface* s, int x0, int y0, int x1, int y1, int r, int g, int b, int tolerance) {
    int count = 0;
    SDL_LockSurface(s);
    for (int y = y0; y < y1; ++y)
        for (int x = x0; x < x1; ++x) {
            Uint8 pr, pg, pb;
            Uint32 pixel = 0;
            memcpy(&pixel, static_cast<Uint8*>(s->pixels) + y * s->pitch + x * s->format->BytesPerPixel,
                   s->format->BytesPerPixel);
            SDL_GetRGB(pixel, s->format, &pr, &pg, &pb);
            if (abs(pr - r) <= tolerance && abs(pg - g) <= tolerance && abs(pb - b) <= tolerance) ++count;
        }
    SDL_UnlockSurface(s);
    return count;
}

}  // namespace

TEST(SpriteView, ShowsTheFighterWithItsMarkersAndNames) {
    TestSupport::ScopedTempDir temp;
    const std::string shot = temp.path() + "/shot.bmp";
    ASSERT_EQ(runView("character/default/character.xml --frames 3 --shot '" + shot + "'"), 0);
    SDL_Surface* frame = SDL_LoadBMP(shot.c_str());
    ASSERT_NE(frame, nullptr);
    EXPECT_EQ(frame->w, 800);
    EXPECT_EQ(frame->h, 600);
    // The idle row comes first: the fighter's purple body in its cells.
    EXPECT_GT(countNear(frame, 0, 40, 420, 160, 123, 92, 214, 20), 400);
    // The attachment point of the mouth, and the header and names in white.
    EXPECT_GT(countNear(frame, 0, 40, 420, 160, 255, 40, 120, 10), 20);
    EXPECT_GT(countNear(frame, 0, 0, 800, 24, 255, 255, 255, 10), 100);
    SDL_FreeSurface(frame);
}

TEST(SpriteView, RefusesWhatItCannotShow) {
    EXPECT_NE(runView("no/such/sprite.xml --frames 1"), 0);
    EXPECT_NE(runView(""), 0);
}
