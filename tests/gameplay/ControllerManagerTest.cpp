#include <gtest/gtest.h>

#include <SDL/SDL.h>

#include <cstring>
#include <string>

#include "TestSupport.h"
#include "gameplay/Controller.h"
#include "gameplay/ControllerManager.h"
#include "resources/Database.h"

namespace {

// Keys are held by writing SDL's key-state table, as the event pump would.
void hold(int key) {
    memset(SDL_GetKeyState(nullptr), 0, SDLK_LAST);
    if (key >= 0) SDL_GetKeyState(nullptr)[key] = 1;
}

class ControllerManagerTest : public ::testing::Test {
protected:
    void TearDown() override {
        hold(-1);
        ControllerManager::clear();
        Database::clearAll();
    }
    // Runs init on settings with this count and returns what it logged.
    static std::string init(int count, const std::string& path = "config.nvo") {
        Database::get(path)->setVal("ctrl.count", count);
        TestSupport::CapturedStdout out;
        ControllerManager::init(path);
        return out.text();
    }
    TestSupport::ScopedTempDir dir;
};

// Arrows with right Shift and Ctrl for the first player, WSAD with F and G
// for the second; each key moves its action of its controller only.
TEST_F(ControllerManagerTest, ACountOfZeroGivesTwoKeyboardsWithTheDefaultKeys) {
    init(0);
    ASSERT_EQ(ControllerManager::count(), 2);
    EXPECT_EQ(Database::get("config.nvo")->getVal("ctrl.count"), 2);
    const int keys[] = {SDLK_UP, SDLK_DOWN, SDLK_LEFT, SDLK_RIGHT, SDLK_RSHIFT, SDLK_RCTRL,
                        SDLK_w,  SDLK_s,    SDLK_a,    SDLK_d,     SDLK_f,      SDLK_g};
    for (int k = 0; k < 2 * ACTION_COUNT; ++k) {
        hold(keys[k]);
        int player = k / ACTION_COUNT, action = k % ACTION_COUNT;
        EXPECT_TRUE(ControllerManager::get(player)->isPressed(action) && ControllerManager::isPressed(action)) << k;
        EXPECT_FALSE(ControllerManager::get(1 - player)->isPressed(action)) << k;
        EXPECT_FALSE(ControllerManager::get(player)->isPressed((action + 1) % ACTION_COUNT)) << k;
    }
    hold(-1);
    EXPECT_FALSE(ControllerManager::anyPressed());
}

// Settings are a file the user can edit.
TEST_F(ControllerManagerTest, AbsurdCountsAndKeyCodesAreBounded) {
    EXPECT_NE(init(17).find("INFO: ControllerManager.init: Liczba kontrolerow >16 (17)"), std::string::npos);
    EXPECT_EQ(init(16).find("Liczba kontrolerow"), std::string::npos);
    init(0x7FFFFFFF);
    EXPECT_TRUE(ControllerManager::count() == 64 && ControllerManager::get(64) == nullptr);
    Database* settings = Database::get("config.nvo");
    settings->setStr("ctrl.0", "keyboard");
    settings->setVal("ctrl.0.keyboard.up", SDLK_LAST);
    settings->setVal("ctrl.0.keyboard.down", -1);
    init(1);
    memset(SDL_GetKeyState(nullptr), 1, SDLK_LAST);
    EXPECT_FALSE(ControllerManager::isPressed(ACTION_UP) || ControllerManager::isPressed(ACTION_DOWN) ||
                 ControllerManager::isPressed(ACTION_COUNT));
}

}  // namespace
