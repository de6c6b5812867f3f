#include <gtest/gtest.h>

#include <SDL/SDL.h>
#include <SDL/SDL_syswm.h>
#include <cstdlib>
#include <functional>
#include <string>

#include "TestSupport.h"
#include "gameplay/Controller.h"
#include "gameplay/ControllerManager.h"
#include "resources/Database.h"

namespace {

// Pumps SDL's events until `condition` holds or a second has passed.
bool pumpUntil(const std::function<bool()>& condition) {
    for (int tries = 0; tries < 100; ++tries) {
        SDL_PumpEvents();
        if (condition()) return true;
        SDL_Delay(10);
    }
    return false;
}

// A real key, held through the X server, reaches the controller through
// the key-state table that the event pump keeps up to date.
TEST(ControllerKeyboardTest, KeyHeldOnTheDisplayIsPressedUntilReleased) {
    if (!getenv("DISPLAY")) GTEST_SKIP() << "no display";
    TestSupport::ScopedTempDir dir;
    // The display belongs to the test run; without one there is nothing to press.
    if (SDL_Init(SDL_INIT_VIDEO) != 0) GTEST_SKIP() << SDL_GetError();
    ASSERT_NE(SDL_SetVideoMode(800, 600, 0, 0), nullptr);
    // Other tests may open windows on the same display; the keys go to ours.
    SDL_SysWMinfo info;
    SDL_VERSION(&info.version);
    ASSERT_EQ(SDL_GetWMInfo(&info), 1);
    std::string focus = "xdotool windowfocus --sync " + std::to_string(info.info.x11.wmwindow);
    ASSERT_EQ(system(focus.c_str()), 0);
    {
        TestSupport::CapturedStdout quiet;
        Database::clearAll();
        ControllerManager::init("config.nvo");
    }
    Controller* first = ControllerManager::get(0);
    Controller* second = ControllerManager::get(1);

    ASSERT_EQ(system("xdotool keydown Left"), 0);
    bool held = pumpUntil([&] { return first->isPressed(ACTION_LEFT); });
    EXPECT_FALSE(first->isPressed(ACTION_RIGHT));
    EXPECT_FALSE(second->isPressed(ACTION_LEFT));
    ASSERT_EQ(system("xdotool keyup Left"), 0);
    EXPECT_TRUE(held);
    EXPECT_TRUE(pumpUntil([&] { return !first->isPressed(ACTION_LEFT); }));

    ControllerManager::clear();
    Database::clearAll();
    SDL_Quit();
}

}  // namespace
