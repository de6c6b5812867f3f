#include <gtest/gtest.h>

#include <SDL/SDL.h>
#include <SDL/SDL_syswm.h>
#include <cstdlib>
#include <string>

#include "TestSupport.h"
#include "gameplay/Controller.h"
#include "gameplay/ControllerManager.h"
#include "resources/Database.h"

namespace {

// Pumps SDL's events until the action reads `pressed` or a second has passed.
bool pumpUntil(Controller* controller, int action, bool pressed) {
    for (int tries = 0; tries < 100 && controller->isPressed(action) != pressed; ++tries) {
        SDL_Delay(10);
        SDL_PumpEvents();
    }
    return controller->isPressed(action) == pressed;
}

// A key held on the X server reaches the controller through the key-state
// table that the event pump keeps.
TEST(ControllerKeyboardTest, KeyHeldOnTheDisplayIsPressedUntilReleased) {
    if (SDL_Init(SDL_INIT_VIDEO) != 0) GTEST_SKIP() << SDL_GetError();
    TestSupport::ScopedTempDir dir;
    ASSERT_NE(SDL_SetVideoMode(800, 600, 0, 0), nullptr);
    // Other tests may open windows on the same display; the keys go to ours.
    SDL_SysWMinfo info;
    SDL_VERSION(&info.version);
    ASSERT_EQ(SDL_GetWMInfo(&info), 1);
    ASSERT_EQ(system(("xdotool windowfocus --sync " + std::to_string(info.info.x11.wmwindow)).c_str()), 0);
    {
        TestSupport::CapturedStdout quiet;
        ControllerManager::init("config.nvo");
    }
    Controller* first = ControllerManager::get(0);

    ASSERT_EQ(system("xdotool keydown Left"), 0);
    EXPECT_TRUE(pumpUntil(first, ACTION_LEFT, true));
    EXPECT_FALSE(first->isPressed(ACTION_RIGHT));
    ASSERT_EQ(system("xdotool keyup Left"), 0);
    EXPECT_TRUE(pumpUntil(first, ACTION_LEFT, false));

    ControllerManager::clear();
    Database::clearAll();
    SDL_Quit();
}

}  // namespace
