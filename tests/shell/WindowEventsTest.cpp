#include <SDL/SDL.h>
#include <gtest/gtest.h>

#include "gameplay/ControllerManager.h"
#include "shell/Engine.h"
#include "shell/WindowEvents.h"

namespace {

void push(Uint8 type, SDLKey key = SDLK_UNKNOWN, int mod = KMOD_NONE) {
    SDL_Event event = {};
    event.type = type;
    event.key.keysym.sym = key;
    event.key.keysym.mod = static_cast<SDLMod>(mod);
    SDL_PushEvent(&event);
}

// Runs init, pushes the events and reports whether the game still runs after the pump.
template <class Push>
bool runsAfter(Push pushEvents) {
    Engine::init();
    pushEvents();
    pumpWindowEvents();
    return Engine::isRunning();
}

TEST(WindowEventsTest, CloseRequestAndAltF4WithEitherAltQuitButF4AloneDoesNot) {
    ASSERT_EQ(SDL_Init(SDL_INIT_VIDEO), 0) << SDL_GetError();
    ASSERT_NE(SDL_SetVideoMode(64, 64, 32, 0), nullptr);
    EXPECT_FALSE(runsAfter([] { push(SDL_QUIT); }));
    EXPECT_TRUE(runsAfter([] {
        push(SDL_KEYDOWN, SDLK_F4);
        push(SDL_KEYDOWN, SDLK_F5, KMOD_LALT);
        push(SDL_KEYDOWN, SDLK_F4, KMOD_LCTRL);
    }));
    EXPECT_FALSE(runsAfter([] { push(SDL_KEYDOWN, SDLK_F4, KMOD_LALT); }));
    EXPECT_FALSE(runsAfter([] { push(SDL_KEYDOWN, SDLK_F4, KMOD_RALT | KMOD_NUM); }));
    ControllerManager::clear();
    Engine::clear();
    SDL_Quit();
}

}  // namespace
