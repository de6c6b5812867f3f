#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include "HeldKeys.h"
#include "graphics/Menu.h"

namespace {

// root: Host (5 Players 1..2, 7 Start, 9 Deeper (20 Deep, 21 Up), 8 Back),
//       Slider 0..2 in steps of 1, Go (an action with a range), Exit.
class MenuTest : public ::testing::Test {
protected:
    void SetUp() override {
        menu.begin();
        menu.delay = 0.0f;
        menu.addItem(1, MENU_SUBMENU, "Host");
        menu.addChild(1, 5, MENU_VALUE, "Players")->setRange(1.0f, 2.0f, 1.0f);
        menu.addChild(1, 7, MENU_ACTION, "Start");
        menu.addChild(1, 9, MENU_SUBMENU, "Deeper");
        menu.addChild(9, 20, MENU_ACTION, "Deep");
        menu.addChild(9, 21, MENU_BACK, "Up");
        menu.addChild(1, 8, MENU_BACK, "Back");
        menu.addItem(2, MENU_VALUE, "Slider", 0.0625f)->setRange(0.0f, 2.0f, 1.0f);
        menu.addItem(3, MENU_ACTION, "Go")->setRange(0.0f, 2.0f, 1.0f);
        menu.addItem(4, MENU_BACK, "Exit");
    }
    // Whether a frame of dt with `key` held took input.
    bool acts(int key, float dt) {
        HeldKeys::releaseAll();
        HeldKeys::hold(key);
        menu.changed = false;
        menu.update(dt);
        return menu.changed;
    }
    void letGo() {
        HeldKeys::releaseAll();
        menu.update(0.0f);
    }
    // A fresh press: a frame with the key down, one with everything let go.
    bool press(int key) {
        bool acted = acts(key, 0.0f);
        letGo();
        return acted;
    }

    HeldKeys keys;
    Menu menu;
};

TEST_F(MenuTest, NavigationWrapsValuesStopAtTheirLimitsAndASubmenuOpensAtItsFirstItem) {
    const struct {
        int key;
        size_t depth;
        int current;
        float slider;
    } steps[] = {
        {SDLK_UP, 1, 3, 1.0f},     {SDLK_DOWN, 1, 0, 1.0f},  {SDLK_DOWN, 1, 1, 1.0f},   {SDLK_RIGHT, 1, 1, 2.0f},
        {SDLK_RIGHT, 1, 1, 2.0f},  {SDLK_LEFT, 1, 1, 1.0f},  {SDLK_LEFT, 1, 1, 0.0f},   {SDLK_LEFT, 1, 1, 0.0f},
        {SDLK_DOWN, 1, 2, 0.0f},   {SDLK_RIGHT, 1, 2, 0.0f},  {SDLK_LEFT, 1, 2, 0.0f},
        {SDLK_UP, 1, 1, 0.0f},     {SDLK_UP, 1, 0, 0.0f},    {SDLK_RETURN, 2, 0, 0.0f}, {SDLK_UP, 2, 3, 0.0f},
        {SDLK_DOWN, 2, 0, 0.0f},   {SDLK_DOWN, 2, 1, 0.0f},  {SDLK_DOWN, 2, 2, 0.0f},   {SDLK_RSHIFT, 3, 0, 0.0f},
        {SDLK_DOWN, 3, 1, 0.0f},   {SDLK_RSHIFT, 2, 2, 0.0f},  // "Up" goes back; the level below keeps its place
        {SDLK_ESCAPE, 1, 0, 0.0f}, {SDLK_RETURN, 2, 0, 0.0f},  // opened again: at its first item
        {SDLK_g, 1, 0, 0.0f},                                   // the second player's B
    };
    for (const auto& step : steps) {
        SCOPED_TRACE(&step - steps);
        EXPECT_TRUE(press(step.key));  // a change even where nothing moved
        EXPECT_EQ(menu.path.size(), step.depth);
        EXPECT_EQ(menu.level()->current, step.current);
        EXPECT_EQ(menu.find(2)->value, step.slider);
    }
    EXPECT_FALSE(menu.done);
    EXPECT_EQ(menu.find(3)->value, 1.0f);
    EXPECT_EQ(menu.find(5)->value, 1.5f);  // the middle of 1..2 until the owner writes another
}

TEST_F(MenuTest, AHeldKeyActsAgainExactlyAfterItsDelayAndLettingGoEndsAnyDelay) {
    const struct {
        int key;
        int item;  // the root item selected first
        float delay;
    } cases[] = {{SDLK_DOWN, 0, 0.25f}, {SDLK_RIGHT, 1, 0.0625f}, {SDLK_RETURN, 0, 1.0f}};
    for (const auto& c : cases) {
        menu.path.resize(1);
        menu.root.current = c.item;
        EXPECT_TRUE(press(c.key));
        EXPECT_TRUE(acts(c.key, 0.0f)) << c.key;
        EXPECT_FALSE(acts(c.key, c.delay * 0.75f)) << c.key;
        EXPECT_TRUE(acts(c.key, c.delay * 0.25f)) << c.key;
        letGo();
    }
    menu.delay = Menu::HELD_KEY_DELAY;  // a key still held from the screen before
    EXPECT_FALSE(acts(SDLK_RETURN, 9.0f));
    letGo();
    EXPECT_TRUE(acts(SDLK_a, 0.0f));
}

TEST_F(MenuTest, ConfirmFinishesBackAtTheRootQuitsAndADoneMenuStandsStill) {
    // Right Shift and Return confirm, right Ctrl and Escape go back; "Exit" is a back item.
    for (const auto& [item, key, quit] : {std::tuple{2, SDLK_RSHIFT, false}, {2, SDLK_RETURN, false},
                                          {0, SDLK_RCTRL, true}, {0, SDLK_ESCAPE, true}, {3, SDLK_RETURN, true}}) {
        SetUp();
        menu.root.current = item;
        press(key);
        EXPECT_TRUE(menu.done && menu.quit == quit) << key;
    }
    EXPECT_FALSE(press(SDLK_DOWN));
    menu.root.current = 1;
    for (auto step : {&Menu::select, &Menu::back, &Menu::next, &Menu::increase}) (menu.*step)();
    EXPECT_EQ(menu.find(2)->value, 1.0f);
    EXPECT_EQ(menu.root.current, 1);
    menu.resume();
    menu.increase();
    EXPECT_EQ(menu.find(2)->value, 2.0f);
}

TEST_F(MenuTest, FindAndTheTextOfALevel) {
    EXPECT_EQ(menu.find(20)->label, "Deep");
    EXPECT_EQ(menu.find(99), nullptr);
    EXPECT_EQ(menu.addChild(99, 30, MENU_ACTION, "Orphan"), nullptr);
    MenuList& list = *menu.find(1)->sub;
    EXPECT_EQ(list.text(), "[Players: 1.5]\nStart\nDeeper\nBack");
    list.current = 2;
    list.remove(0);
    EXPECT_EQ(list.currentItem()->label, "Deeper");
}

}  // namespace
