#include <string>

#include "FrontendTest.h"
#include "audio/Sound.h"
#include "audio/SoundSettings.h"
#include "frontend/StateControls.h"
#include "frontend/StateDuelPrepare.h"
#include "frontend/StateIntro.h"
#include "frontend/StateMenu.h"
#include "resources/Database.h"

namespace {

// From the main menu, which the intro starts at once.
class MenuScreensTest : public FrontendTest {
protected:
    void SetUp() override {
        FrontendTest::SetUp();
        TestSupport::writeFile("lang.ini", "[menu_main]\nstart=Play\nreturn=Back\noptions=Options\n"
                                           "options_controls=Controls\noptions_player=Player\n"
                                           "options_sound=Sound\noptions_music=Music\nexit=Quit\n"
                                           "[game_classic]\nmenu_no_start=Not yet\n");
        Engine::push(new StateIntro());
        Engine::update(0.0f);
        letGo();
    }
    void TearDown() override {
        Sound::setSoundVolume(1.0f);
        FrontendTest::TearDown();
    }
    static StateMenu* menu() { return top<StateMenu>(); }
};

TEST_F(MenuScreensTest, LeavingTheMenuFadesTheIntroOutInHalfASecondAndEndsTheProgram) {
    ASSERT_NE(menu(), nullptr);
    EXPECT_EQ(menu()->text.text, "[Play]\nOptions\nQuit");
    press({SDLK_ESCAPE});
    ASSERT_NE(top<StateIntro>(), nullptr);
    for (float dt : {0.25f, 0.25f, 0.0625f}) {
        EXPECT_TRUE(Engine::isRunning());
        Engine::update(dt);
        Engine::draw();
    }
    EXPECT_FALSE(Engine::isRunning());
}

TEST_F(MenuScreensTest, APlayerItemOpensTheControlsOfThatPlayerAndTheDuelItemItsSetUp) {
    press({SDLK_DOWN, SDLK_RETURN, SDLK_RETURN, SDLK_DOWN, SDLK_DOWN, SDLK_RETURN});
    ASSERT_NE(top<StateControls>(), nullptr);
    EXPECT_EQ(top<StateControls>()->player, 2);
    press({SDLK_ESCAPE});
    ASSERT_NE(menu(), nullptr);
    EXPECT_EQ(menu()->text.text, "Player 1\nPlayer 2\n[Player 3]\nPlayer 4\nBack");
    // The duel's start item does nothing visible.
    press({SDLK_ESCAPE, SDLK_ESCAPE, SDLK_UP, SDLK_RETURN, SDLK_RETURN});
    auto* prepare = top<StateDuelPrepare>();
    ASSERT_NE(prepare, nullptr);
    const std::string shown = prepare->text.text;
    EXPECT_EQ(shown.substr(0, 9), "[Not yet]");
    press({SDLK_RETURN});
    EXPECT_EQ(top<StateDuelPrepare>(), prepare);
    EXPECT_EQ(prepare->text.text, shown);
    press({SDLK_ESCAPE});
    EXPECT_NE(menu(), nullptr);
}

TEST_F(MenuScreensTest, VolumesAreHeardAtOnceAndKeptOnceTheKeysAreLetGo) {
    press({SDLK_DOWN, SDLK_RETURN, SDLK_DOWN});
    EXPECT_EQ(menu()->text.text, "Controls\n[Sound: 100]\nMusic: 100\nBack");
    HeldKeys::hold(SDLK_LEFT);
    Engine::update(0.0f);
    EXPECT_FLOAT_EQ(Sound::getSoundVolume(), 0.99f);
    EXPECT_TRUE(TestSupport::readFile("config.nvo").empty());
    letGo();
    Database::clearAll();
    SoundSettings::load("config.nvo");
    EXPECT_FLOAT_EQ(Sound::getSoundVolume(), 0.99f);
}

}  // namespace
