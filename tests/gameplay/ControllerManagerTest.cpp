#include <gtest/gtest.h>

#include <SDL/SDL.h>
#include <cstring>
#include <string>

#include "TestSupport.h"
#include "gameplay/ControllerDummy.h"
#include "gameplay/ControllerKeyboard.h"
#include "gameplay/ControllerManager.h"
#include "resources/Database.h"
#include "shell/Engine.h"
#include "shell/Log.h"

using TestSupport::CapturedStdout;
using TestSupport::ScopedTempDir;

namespace {

// Holds keys by writing SDL's key-state table directly, as an event pump would.
class HeldKeys {
public:
    HeldKeys() { release(); }
    ~HeldKeys() { release(); }
    void hold(int key) { SDL_GetKeyState(nullptr)[key] = 1; }
    void release() { memset(SDL_GetKeyState(nullptr), 0, SDLK_LAST); }
};

class ControllerManagerTest : public ::testing::Test {
protected:
    void SetUp() override {
        Database::clearAll();
        savedFlags = Log::getFlags();
    }
    void TearDown() override {
        ControllerManager::clear();
        Database::clearAll();
        Log::setFlags(savedFlags);
    }
    // Runs init and returns what it logged.
    std::string initLogged(const std::string& path) {
        CapturedStdout out;
        ControllerManager::init(path);
        return out.text();
    }
    static int countOf(const std::string& text, const std::string& part) {
        int n = 0;
        for (size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++n;
        return n;
    }

    ScopedTempDir dir;
    HeldKeys keys;
    uint32_t savedFlags = 0;
};

TEST_F(ControllerManagerTest, WithoutSettingsTwoKeyboardsGetTheDefaultKeys) {
    initLogged("config.nvo");
    ASSERT_EQ(ControllerManager::count(), 2);
    EXPECT_EQ(Database::get("config.nvo")->getVal("ctrl.count"), 2);
    EXPECT_EQ(Database::get("config.nvo")->getStr("ctrl.1"), "keyboard");
    EXPECT_EQ(ControllerManager::get(0)->getType(), CONTROLLER_KEYBOARD);

    // Each default key moves exactly one action of exactly one controller.
    const int expected[2][ACTION_COUNT] = {{SDLK_UP, SDLK_DOWN, SDLK_LEFT, SDLK_RIGHT, SDLK_RSHIFT, SDLK_RCTRL},
                                           {SDLK_w, SDLK_s, SDLK_a, SDLK_d, SDLK_f, SDLK_g}};
    for (int c = 0; c < 2; ++c) {
        for (int a = 0; a < ACTION_COUNT; ++a) {
            keys.release();
            keys.hold(expected[c][a]);
            for (int other = 0; other < 2; ++other)
                for (int action = 0; action < ACTION_COUNT; ++action)
                    EXPECT_EQ(ControllerManager::get(other)->isPressed(action), other == c && action == a)
                        << "key " << expected[c][a] << ", controller " << other << ", action " << action;
        }
    }
}

TEST_F(ControllerManagerTest, CountBelowOneIsReplacedByTheDefaults) {
    for (int stored : {0, -3}) {
        Database::clearAll();
        Database::get("config.nvo")->setVal("ctrl.count", stored);
        initLogged("config.nvo");
        EXPECT_EQ(ControllerManager::count(), 2) << stored;
        EXPECT_EQ(Database::get("config.nvo")->getVal("ctrl.0.keyboard.left"), 276);
    }
}

TEST_F(ControllerManagerTest, EmptyTypeKeepsNumberingAndUnknownTypeShiftsTheRest) {
    Database* settings = Database::get("mine.nvo");
    settings->setVal("ctrl.count", 3);
    settings->setStr("ctrl.0", "keyboard");
    settings->setStr("ctrl.2", "keyboard");
    settings->setVal("ctrl.2.keyboard.a", SDLK_x);
    initLogged("mine.nvo");
    ASSERT_EQ(ControllerManager::count(), 3);
    EXPECT_EQ(ControllerManager::get(1), nullptr);
    keys.hold(SDLK_x);
    EXPECT_TRUE(ControllerManager::get(2)->isPressed(ACTION_A));

    settings->setStr("ctrl.1", "joystick");
    std::string log = initLogged("mine.nvo");
    EXPECT_EQ(countOf(log, "FAIL: ControllerManager.init: Nieznany typ kontrolera: \"joystick\" (plik \"mine.nvo\")"), 1);
    ASSERT_EQ(ControllerManager::count(), 2);
    EXPECT_TRUE(ControllerManager::get(1)->isPressed(ACTION_A));
    // Our own settings were whole; the defaults never touched them.
    EXPECT_EQ(settings->getVal("ctrl.count"), 3);
}

TEST_F(ControllerManagerTest, LargeCountsWarnOnceAndAbsurdOnesAreBounded) {
    Log::setFlags(15);
    Database::get("config.nvo")->setVal("ctrl.count", 17);
    std::string log = initLogged("config.nvo");
    EXPECT_EQ(ControllerManager::count(), 17);
    EXPECT_EQ(countOf(log, "ControllerManager.init: Liczba kontrolerow >16 (17)"), 1);
    EXPECT_EQ(countOf(log, "DEBUG INFO: ControllerManager.init: Prefix: \"ctrl.16.\""), 1);

    Log::setFlags(7);
    Database::get("config.nvo")->setVal("ctrl.count", 0x7FFFFFFF);
    initLogged("config.nvo");
    EXPECT_EQ(ControllerManager::count(), 64);
    EXPECT_EQ(ControllerManager::get(64), nullptr);
    EXPECT_EQ(ControllerManager::get(-1), nullptr);
}

TEST_F(ControllerManagerTest, AnyControllerHoldingAnActionCounts) {
    initLogged("config.nvo");
    EXPECT_FALSE(ControllerManager::anyPressed());
    keys.hold(SDLK_f);
    EXPECT_TRUE(ControllerManager::anyPressed());
    EXPECT_TRUE(ControllerManager::isPressed(ACTION_A));
    keys.release();
    keys.hold(SDLK_RSHIFT);
    EXPECT_TRUE(ControllerManager::isPressed(ACTION_A));
    EXPECT_FALSE(ControllerManager::isPressed(ACTION_B));
    keys.release();
    EXPECT_FALSE(ControllerManager::isPressed(ACTION_A));
}

TEST_F(ControllerManagerTest, KeyCodesOutsideSdlsTableAreNeverPressed) {
    Database* settings = Database::get("config.nvo");
    settings->setVal("ctrl.count", 1);
    settings->setStr("ctrl.0", "keyboard");
    settings->setVal("ctrl.0.keyboard.up", SDLK_LAST);
    settings->setVal("ctrl.0.keyboard.down", -1);
    initLogged("config.nvo");
    memset(SDL_GetKeyState(nullptr), 1, SDLK_LAST);
    Controller* controller = ControllerManager::get(0);
    EXPECT_FALSE(controller->isPressed(ACTION_UP));
    EXPECT_FALSE(controller->isPressed(ACTION_DOWN));
    EXPECT_FALSE(controller->isPressed(ACTION_COUNT));
    // Unset keys read 0, and key 0 is as held as any other.
    EXPECT_TRUE(controller->isPressed(ACTION_LEFT));
}

TEST_F(ControllerManagerTest, DummyReportsWhatWasWrittenLast) {
    ControllerDummy dummy;
    EXPECT_EQ(dummy.getType(), CONTROLLER_DUMMY);
    dummy.pressed[ACTION_B] = true;
    EXPECT_TRUE(dummy.isPressed(ACTION_B));
    EXPECT_FALSE(dummy.isPressed(ACTION_A));
    EXPECT_FALSE(dummy.isPressed(-1));
    dummy.pressed[ACTION_B] = false;
    EXPECT_FALSE(dummy.isPressed(ACTION_B));
}

TEST_F(ControllerManagerTest, EngineBringsTheControllersUpAndTakesThemDown) {
    {
        CapturedStdout out;
        Engine::init();
    }
    EXPECT_EQ(ControllerManager::count(), 2);
    Engine::clear();
    EXPECT_EQ(ControllerManager::count(), 0);
}

}  // namespace
