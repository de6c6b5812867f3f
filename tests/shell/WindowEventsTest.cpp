#include <SDL/SDL.h>
#include <gtest/gtest.h>

#include "gameplay/ControllerManager.h"
#include "shell/Engine.h"
#include "shell/WindowEvents.h"

namespace {

class WindowEventsTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        ASSERT_EQ(SDL_Init(SDL_INIT_VIDEO), 0);
        ASSERT_NE(SDL_SetVideoMode(64, 64, 32, 0), nullptr);
    }
    static void TearDownTestSuite() { SDL_Quit(); }

    void SetUp() override { Engine::init(); }
    void TearDown() override {
        ControllerManager::clear();
        Engine::clear();
    }

    static void pushKey(SDLKey key, SDLMod mod) {
        SDL_Event event = {};
        event.type = SDL_KEYDOWN;
        event.key.keysym.sym = key;
        event.key.keysym.mod = mod;
        SDL_PushEvent(&event);
    }
};

TEST_F(WindowEventsTest, CloseRequestQuits) {
    SDL_Event event = {};
    event.type = SDL_QUIT;
    SDL_PushEvent(&event);
    pumpWindowEvents();
    EXPECT_FALSE(Engine::isRunning());
}

TEST_F(WindowEventsTest, AltF4WithLeftAltQuitsAndF4AloneDoesNot) {
    pushKey(SDLK_F4, KMOD_NONE);
    pushKey(SDLK_F5, KMOD_LALT);
    pushKey(SDLK_F4, KMOD_LCTRL);
    pumpWindowEvents();
    EXPECT_TRUE(Engine::isRunning());

    pushKey(SDLK_F4, KMOD_LALT);
    pumpWindowEvents();
    EXPECT_FALSE(Engine::isRunning());
}

TEST_F(WindowEventsTest, AltF4WithRightAltQuits) {
    pushKey(SDLK_F4, static_cast<SDLMod>(KMOD_RALT | KMOD_NUM));
    pumpWindowEvents();
    EXPECT_FALSE(Engine::isRunning());
}

}  // namespace
