// The local screens from the intro on: the main menu, the controls screen,
// the duel set-up and the two selection screens.
#include <sys/stat.h>

#include <string>
#include <utility>

#include "FrontendTest.h"
#include "audio/Sound.h"
#include "audio/SoundSettings.h"
#include "frontend/StateArenaSelect.h"
#include "frontend/StateCharacterSelect.h"
#include "frontend/StateControls.h"
#include "frontend/StateDuelPrepare.h"
#include "frontend/StateIntro.h"
#include "frontend/StateMenu.h"
#include "gameplay/ControllerManager.h"
#include "resources/Database.h"

namespace {

std::string fighterScript(const std::string& name) { return "function init() setName('" + name + "') end"; }
const char* const ARENA_SCRIPT = "function init() end\nfunction update() end";

class ScreensTest : public FrontendTest {
protected:
    void SetUp() override {
        FrontendTest::SetUp();
        TestSupport::writeFile("lang.ini", "[menu_main]\nstart=Play\nreturn=Back\noptions=Options\n"
                                           "options_controls=Controls\noptions_player=Player\noptions_sound=Sound\n"
                                           "options_music=Music\nexit=Quit\n[game_classic]\nmenu_start=Go\nmenu_select_char_1=One\n"
                                           "[controls]\nup=Up\ndown=Down\ntaken=Taken by\nnone=none\n"
                                           "[character_select]\nreturn=Back\nrandom=Any\n"
                                           "[arena_select]\nreturn=Leave\nrandom=Any arena\n");
        Engine::push(new StateIntro());
        Engine::update(0.0f);  // the intro starts the menu at once
        letGo();
    }
    void TearDown() override {
        Sound::setSoundVolume(1.0f);
        FrontendTest::TearDown();
    }
    static StateMenu* menu() { return top<StateMenu>(); }
    static StateDuelPrepare* prepare() { return top<StateDuelPrepare>(); }
    // From the duel set-up, whose items are start, arena, fighter 1, fighter 2:
    // the selection screen `down` items below the one selected now.
    static void select(int down) {
        if (!prepare()) press({SDLK_RETURN, SDLK_RETURN});
        for (int i = 0; i < down; ++i) press({SDLK_DOWN});
        press({SDLK_RETURN});
    }
    // As the file holds it.
    static int32_t storedKey(int player, const char* action) {
        Database::clearAll();
        return Database::get("config.nvo")->getVal("ctrl." + std::to_string(player) + ".keyboard." + action);
    }
};

TEST_F(ScreensTest, LeavingTheMenuFadesTheIntroOutInHalfASecondAndEndsTheProgram) {
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

TEST_F(ScreensTest, VolumesAreHeardAtOnceAndKeptOnceTheKeysAreLetGo) {
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

TEST_F(ScreensTest, APlayersItemAsksForEachActionsKeyInTurnAndTheSixthKeySavesThem) {
    // Player 3 has no controller; Escape leaves him none and writes nothing.
    press({SDLK_DOWN, SDLK_RETURN, SDLK_RETURN, SDLK_DOWN, SDLK_DOWN, SDLK_RETURN});
    ASSERT_NE(top<StateControls>(), nullptr);
    EXPECT_EQ(top<StateControls>()->player, 2);
    EXPECT_NE(top<StateControls>()->text.text.find("Down: none"), std::string::npos);
    press({SDLK_x, SDLK_y, SDLK_ESCAPE});
    EXPECT_EQ(menu()->text.text, "Player 1\nPlayer 2\n[Player 3]\nPlayer 4\nBack");
    EXPECT_EQ(ControllerManager::get(2), nullptr);
    EXPECT_TRUE(TestSupport::readFile("config.nvo").empty());

    // Player 4 gets a keyboard of his own; the gap before him stays empty.
    Controller* first = ControllerManager::get(0);
    press({SDLK_DOWN, SDLK_RETURN, SDLK_1, SDLK_2, SDLK_3, SDLK_4, SDLK_5, SDLK_6});
    ASSERT_EQ(ControllerManager::count(), 4);
    EXPECT_EQ(ControllerManager::get(0), first);
    EXPECT_EQ(ControllerManager::get(2), nullptr);
    EXPECT_EQ(storedKey(3, "right"), SDLK_4);
    EXPECT_EQ(Database::get("config.nvo")->getVal("ctrl.count"), 4);

    press({SDLK_UP, SDLK_UP, SDLK_UP});
    HeldKeys::hold(SDLK_RETURN);  // held on into the screen it opens: not a choice
    Engine::update(0.0f);
    Engine::update(0.0f);
    StateControls* screen = top<StateControls>();
    ASSERT_NE(screen, nullptr);
    EXPECT_EQ(screen->step, 0);
    letGo();
    press({SDLK_RETURN, SDLK_b, SDLK_RETURN});
    EXPECT_EQ(screen->step, 2);
    EXPECT_NE(screen->text.text.find("Up: return\nDown: b\n"), std::string::npos) << screen->text.text;
    EXPECT_NE(screen->text.text.find("Taken by Up"), std::string::npos) << screen->text.text;
    press({SDLK_c, SDLK_d, SDLK_e});
    EXPECT_EQ(storedKey(0, "up"), SDLK_UP);
    press({SDLK_f});  // the sixth: in use at once, and saved
    EXPECT_NE(menu(), nullptr);
    HeldKeys::hold(SDLK_e);
    EXPECT_TRUE(ControllerManager::get(0)->isPressed(ACTION_A));
    EXPECT_FALSE(ControllerManager::get(0)->isPressed(ACTION_RIGHT));
    EXPECT_EQ(storedKey(0, "up"), SDLK_RETURN);
    EXPECT_EQ(storedKey(0, "b"), SDLK_f);
    EXPECT_EQ(storedKey(1, "up"), SDLK_w);
}

TEST_F(ScreensTest, FightersComeInTheListsOrderThenFromDiskAndTheChoiceGoesBack) {
    inMemory("character/list.txt", "beta\r\nmissing\n\nalpha\ndelta");
    inMemory("character/beta/init.lua", fighterScript("Beta"));
    inMemory("character/beta/desc.txt", "Beta the brave.");
    inMemory("character/alpha/init.lua", fighterScript("Alpha"));
    inMemory("character/delta/init.lua", fighterScript("Delta"));
    ASSERT_EQ(mkdir("character", 0700) | mkdir("character/gamma", 0700), 0);
    TestSupport::writeFile("character/gamma/init.lua", fighterScript("Gamma"));
    select(2);
    auto* choice = top<StateCharacterSelect>();
    ASSERT_NE(choice, nullptr);
    // Back, Any, Beta, Alpha, Delta, Gamma, the cursor on line 6 / 2.
    EXPECT_EQ(choice->list.text, "Alpha\nDelta\nGamma\n[Back]\nAny\nBeta");
    // Down to "random", "beta" and "alpha", which has no description.
    for (const auto& [text, alpha] : {std::pair{"", 0.0f}, {"Beta the brave.", 255.0f}, {"", 255.0f}}) {
        press({SDLK_DOWN});
        EXPECT_EQ(choice->desc.text, text);
        EXPECT_EQ(choice->desc.alpha, alpha);
    }
    press({SDLK_RETURN});
    EXPECT_EQ(prepare()->choice.fighterPaths[0], "character/alpha/init.lua");
    EXPECT_EQ(prepare()->text.text.substr(0, 17), "Go\n\n[One: Alpha]\n");
    EXPECT_FALSE(prepare()->menu.done);
}

TEST_F(ScreensTest, ArenasFadeInTwiceAsFastAsTheyFadeOutAndTheChoiceGoesBack) {
    inMemory("arena/list.txt", "one\nnowhere\ntwo\n");
    inMemory("arena/one/init.lua", ARENA_SCRIPT);
    inMemory("arena/one/desc.txt", "The first.");
    inMemory("arena/two/init.lua", ARENA_SCRIPT);
    select(1);
    auto* choice = top<StateArenaSelect>();
    ASSERT_NE(choice, nullptr);
    ASSERT_EQ(choice->entries.size(), 4u);
    EXPECT_EQ(choice->desc.text, "Leave");
    Engine::update(0.5f);
    press({SDLK_DOWN, SDLK_DOWN});
    EXPECT_EQ(choice->desc.text, "The first.");
    for (const auto& [gaining, losing] : {std::pair{127.5f, 191.25f}, {255.0f, 127.5f}}) {
        Engine::update(0.25f);
        EXPECT_EQ(choice->entries[2].alpha, gaining);
        EXPECT_EQ(choice->entries[0].alpha, losing);
    }
    press({SDLK_DOWN});
    EXPECT_EQ(choice->desc.alpha, 0.0f);  // "two" has no description
    press({SDLK_RETURN});
    EXPECT_EQ(prepare()->choice.arenaPath, "arena/two/init.lua");
}

TEST_F(ScreensTest, RandomPicksOnlyWhatLoadedAndNothingFromAnEmptyList) {
    inMemory("character/list.txt", "alpha");
    inMemory("character/alpha/init.lua", fighterScript("Alpha"));
    inMemory("arena/list.txt", "nowhere\ntwo");
    inMemory("arena/two/init.lua", ARENA_SCRIPT);
    select(3);
    press({SDLK_DOWN, SDLK_RETURN});
    EXPECT_EQ(prepare()->choice.fighterPaths[1], "character/alpha/init.lua");
    press({SDLK_UP, SDLK_UP});
    select(0);
    press({SDLK_DOWN, SDLK_RETURN});
    EXPECT_EQ(prepare()->choice.arenaPath, "arena/two/init.lua");
    Resource::clear();
    for (const auto& [item, cancelled] : {std::pair{3, "Wybor postaci przerwany"}, {1, "Wybor areny przerwany"}}) {
        prepare()->menu.root.current = item;
        select(0);
        press({SDLK_DOWN, SDLK_RETURN});  // nothing to draw from: the screen stays
        EXPECT_EQ(prepare(), nullptr);
        TestSupport::CapturedStdout out;
        press({SDLK_ESCAPE});
        EXPECT_NE(out.text().find(cancelled), std::string::npos);
    }
    EXPECT_EQ(prepare()->choice.fighterPaths[1], "character/alpha/init.lua");
}

}  // namespace
