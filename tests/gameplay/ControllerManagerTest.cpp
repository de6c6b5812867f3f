#include <gtest/gtest.h>

#include <SDL/SDL.h>
#include <cstring>
#include <string>

#include "TestSupport.h"
#include "gameplay/Controller.h"
#include "gameplay/ControllerManager.h"
#include "resources/Database.h"
#include "shell/Log.h"

namespace {

// Keys are held by writing SDL's key-state table, as an event pump would.
void releaseAll() { memset(SDL_GetKeyState(nullptr), 0, SDLK_LAST); }
void hold(int key) { SDL_GetKeyState(nullptr)[key] = 1; }

class ControllerManagerTest : public ::testing::Test {
protected:
    void SetUp() override { releaseAll(); }
    void TearDown() override {
        releaseAll();
        ControllerManager::clear();
        Database::clearAll();
        Log::setFlags(7);
    }
    // Runs init and returns what it logged.
    static std::string init(const std::string& path) {
        TestSupport::CapturedStdout out;
        ControllerManager::init(path);
        return out.text();
    }
    TestSupport::ScopedTempDir dir;
};

TEST_F(ControllerManagerTest, WithoutSettingsTwoKeyboardsGetTheDefaultKeys) {
    Database::get("config.nvo")->setVal("ctrl.count", -3);
    init("config.nvo");
    ASSERT_EQ(ControllerManager::count(), 2);
    EXPECT_EQ(Database::get("config.nvo")->getVal("ctrl.count"), 2);
    const int keys[2][ACTION_COUNT] = {{SDLK_UP, SDLK_DOWN, SDLK_LEFT, SDLK_RIGHT, SDLK_RSHIFT, SDLK_RCTRL},
                                       {SDLK_w, SDLK_s, SDLK_a, SDLK_d, SDLK_f, SDLK_g}};
    // Each key moves exactly one action of exactly one controller.
    for (int c = 0; c < 2; ++c) {
        for (int a = 0; a < ACTION_COUNT; ++a) {
            releaseAll();
            hold(keys[c][a]);
            EXPECT_TRUE(ControllerManager::isPressed(a));
            for (int other = 0; other < 2; ++other)
                for (int action = 0; action < ACTION_COUNT; ++action)
                    EXPECT_EQ(ControllerManager::get(other)->isPressed(action), other == c && action == a)
                        << "key " << keys[c][a] << ", controller " << other << ", action " << action;
        }
    }
    releaseAll();
    EXPECT_FALSE(ControllerManager::anyPressed());
}

TEST_F(ControllerManagerTest, EmptyTypeKeepsNumberingAndUnknownTypeShiftsTheRest) {
    Database* settings = Database::get("mine.nvo");
    settings->setVal("ctrl.count", 3);
    settings->setStr("ctrl.0", "keyboard");
    settings->setStr("ctrl.2", "keyboard");
    settings->setVal("ctrl.2.keyboard.a", SDLK_x);
    init("mine.nvo");
    ASSERT_EQ(ControllerManager::count(), 3);
    EXPECT_EQ(ControllerManager::get(1), nullptr);
    hold(SDLK_x);
    EXPECT_TRUE(ControllerManager::get(2)->isPressed(ACTION_A));

    settings->setStr("ctrl.1", "joystick");
    EXPECT_NE(init("mine.nvo").find("] FAIL: ControllerManager.init: Nieznany typ kontrolera: \"joystick\" (plik "
                                    "\"mine.nvo\")\n"),
              std::string::npos);
    ASSERT_EQ(ControllerManager::count(), 2);
    EXPECT_TRUE(ControllerManager::get(1)->isPressed(ACTION_A));
}

TEST_F(ControllerManagerTest, LargeCountsWarnAndAbsurdOnesAreBounded) {
    Log::setFlags(15);
    Database::get("config.nvo")->setVal("ctrl.count", 17);
    std::string log = init("config.nvo");
    EXPECT_EQ(ControllerManager::count(), 17);
    EXPECT_NE(log.find("INFO: ControllerManager.init: Liczba kontrolerow >16 (17)"), std::string::npos);
    EXPECT_NE(log.find("DEBUG INFO: ControllerManager.init: Prefix: \"ctrl.16.\""), std::string::npos);

    Log::setFlags(7);
    Database::get("config.nvo")->setVal("ctrl.count", 0x7FFFFFFF);
    init("config.nvo");
    EXPECT_EQ(ControllerManager::count(), 64);
    EXPECT_EQ(ControllerManager::get(64), nullptr);
}

TEST_F(ControllerManagerTest, KeyCodesOutsideSdlsTableAreNeverPressed) {
    Database* settings = Database::get("config.nvo");
    settings->setVal("ctrl.count", 1);
    settings->setStr("ctrl.0", "keyboard");
    settings->setVal("ctrl.0.keyboard.up", SDLK_LAST);
    settings->setVal("ctrl.0.keyboard.down", -1);
    init("config.nvo");
    memset(SDL_GetKeyState(nullptr), 1, SDLK_LAST);
    EXPECT_FALSE(ControllerManager::isPressed(ACTION_UP));
    EXPECT_FALSE(ControllerManager::isPressed(ACTION_DOWN));
    EXPECT_FALSE(ControllerManager::isPressed(ACTION_COUNT));
}

}  // namespace
