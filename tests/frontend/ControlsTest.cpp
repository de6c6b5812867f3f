#include <string>

#include "FrontendTest.h"
#include "frontend/StateControls.h"
#include "gameplay/ControllerKeyboard.h"
#include "gameplay/ControllerManager.h"
#include "resources/Database.h"

namespace {

class ControlsTest : public FrontendTest {
protected:
    void SetUp() override {
        FrontendTest::SetUp();
        TestSupport::writeFile("lang.ini", "[controls]\nup=Up\ndown=Down\ntaken=Taken by\nnone=none\n");
    }
    static StateControls* open(int player) {
        auto* screen = new StateControls(player);
        Engine::push(screen);
        return screen;
    }
    // As the file holds it.
    static int32_t storedKey(int player, const char* action) {
        Database::clearAll();
        return Database::get("config.nvo")->getVal("ctrl." + std::to_string(player) + ".keyboard." + action);
    }
};

TEST_F(ControlsTest, EachActionTakesTheNextFreshKeyUntilTheSixthSavesThemAndEscapeKeepsTheOld) {
    open(1);
    press({SDLK_x, SDLK_y, SDLK_ESCAPE});
    EXPECT_EQ(Engine::depth(), 0u);
    EXPECT_EQ(static_cast<ControllerKeyboard*>(ControllerManager::get(1))->keys[ACTION_UP], SDLK_w);

    HeldKeys::hold(SDLK_RETURN);  // still down from choosing the item: not a choice
    StateControls* screen = open(0);
    Engine::update(0.0f);
    EXPECT_EQ(screen->step, 0);
    letGo();
    press({SDLK_RETURN, SDLK_b, SDLK_RETURN});
    EXPECT_EQ(screen->step, 2);
    EXPECT_NE(screen->text.text.find("Up: return\nDown: b\n"), std::string::npos) << screen->text.text;
    EXPECT_NE(screen->text.text.find("Taken by Up"), std::string::npos) << screen->text.text;
    press({SDLK_c, SDLK_d, SDLK_e});
    EXPECT_TRUE(TestSupport::readFile("config.nvo").empty());
    press({SDLK_f});  // the sixth: in use at once, and saved
    EXPECT_EQ(Engine::depth(), 0u);
    HeldKeys::hold(SDLK_e);
    EXPECT_TRUE(ControllerManager::get(0)->isPressed(ACTION_A));
    EXPECT_FALSE(ControllerManager::get(0)->isPressed(ACTION_RIGHT));
    EXPECT_EQ(storedKey(0, "up"), SDLK_RETURN);
    EXPECT_EQ(storedKey(0, "b"), SDLK_f);
    EXPECT_EQ(storedKey(1, "up"), SDLK_w);
}

TEST_F(ControlsTest, APlayerWithoutAControllerGetsAKeyboard) {
    Controller* first = ControllerManager::get(0);
    StateControls* screen = open(3);
    EXPECT_NE(screen->text.text.find("Down: none"), std::string::npos);
    press({SDLK_1, SDLK_2, SDLK_3, SDLK_4, SDLK_5, SDLK_6});
    ASSERT_EQ(ControllerManager::count(), 4);
    EXPECT_EQ(ControllerManager::get(0), first);
    EXPECT_EQ(ControllerManager::get(2), nullptr);
    HeldKeys::hold(SDLK_3);
    EXPECT_TRUE(ControllerManager::get(3)->isPressed(ACTION_LEFT));
    EXPECT_EQ(storedKey(3, "right"), SDLK_4);
    EXPECT_EQ(Database::get("config.nvo")->getVal("ctrl.count"), 4);
}

}  // namespace
