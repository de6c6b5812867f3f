#include <sys/stat.h>

#include <string>
#include <vector>

#include "FrontendTest.h"
#include "frontend/StateArenaSelect.h"
#include "frontend/StateCharacterSelect.h"
#include "frontend/StateDuelPrepare.h"
#include "gameplay/Arena.h"
#include "gameplay/Character.h"

namespace {

std::string fighterScript(const std::string& name) { return "function init() setName('" + name + "') end"; }
const char* const ARENA_SCRIPT = "function init() end\nfunction update() end";

// The prepare screen's items, from the top: start, arena, fighter 1, fighter 2.
class SelectionTest : public FrontendTest {
protected:
    void SetUp() override {
        FrontendTest::SetUp();
        TestSupport::writeFile("lang.ini", "[character_select]\nreturn=Back\nrandom=Any\n"
                                           "[arena_select]\nreturn=Leave\nrandom=Any arena\n");
        Engine::push(new StateDuelPrepare());
        letGo();
    }
    StateDuelPrepare* prepare() { return top<StateDuelPrepare>(); }
    // Opens a selection screen from the prepare screen: the item `down` steps below the start.
    void open(int down) {
        for (int i = 0; i < down; ++i) press(SDLK_DOWN);
        press(SDLK_RETURN);
    }
};

TEST_F(SelectionTest, FightersComeInTheListsOrderBadNamesAreSkippedAndTheChoiceGoesBack) {
    inMemory("character/list.txt", "beta\r\nmissing\n\nalpha");
    inMemory("character/beta/init.lua", fighterScript("Beta"));
    inMemory("character/beta/desc.txt", "Beta the brave.");
    inMemory("character/alpha/init.lua", fighterScript("Alpha"));
    open(2);
    auto* select = top<StateCharacterSelect>();
    ASSERT_NE(select, nullptr);
    std::vector<std::string> labels;
    for (MenuItem* item : select->menu.root.items) labels.push_back(item->label);
    EXPECT_EQ(labels, (std::vector<std::string>{"Back", "Any", "Beta", "Alpha"}));
    EXPECT_EQ(select->list.text, "Beta\nAlpha\n[Back]\nAny");  // the wheel: the cursor on line 4 / 2

    press(SDLK_DOWN);  // "random" shows no description
    EXPECT_EQ(select->desc.alpha, 0.0f);
    press(SDLK_DOWN);
    EXPECT_EQ(select->desc.text, "Beta the brave.");
    EXPECT_EQ(select->desc.alpha, 255.0f);
    press(SDLK_DOWN);
    EXPECT_EQ(select->desc.text, "");  // Alpha has none
    press(SDLK_RETURN);
    EXPECT_EQ(prepare()->fighterPaths[0], "character/alpha/init.lua");
    EXPECT_FALSE(prepare()->menu.done);
}

TEST_F(SelectionTest, RandomPicksALoadedFighterAndNothingFromAnEmptyList) {
    inMemory("character/list.txt", "alpha\n");
    inMemory("character/alpha/init.lua", fighterScript("Alpha"));
    open(3);
    pressAll({SDLK_DOWN, SDLK_RETURN});
    EXPECT_EQ(prepare()->fighterPaths[1], "character/alpha/init.lua");

    Resource::clear();
    inMemory("character/list.txt", "ghost\n");
    open(0);
    pressAll({SDLK_DOWN, SDLK_RETURN});  // nothing to draw from: the screen stays
    auto* select = top<StateCharacterSelect>();
    ASSERT_NE(select, nullptr);
    EXPECT_FALSE(select->menu.done);
    TestSupport::CapturedStdout log;
    pressAll({SDLK_UP, SDLK_RETURN});
    EXPECT_NE(log.text().find("StateDuelPrepare.resume: Wybor postaci przerwany"), std::string::npos);
    EXPECT_EQ(prepare()->fighterPaths[1], "character/alpha/init.lua");
}

TEST_F(SelectionTest, TheFolderWalkAddsWhatLiesOnDiskBehindTheList) {
    inMemory("character/list.txt", "beta");
    inMemory("character/beta/init.lua", fighterScript("Beta"));
    ASSERT_EQ(mkdir("character", 0700), 0);
    ASSERT_EQ(mkdir("character/gamma", 0700), 0);
    TestSupport::writeFile("character/gamma/init.lua", fighterScript("Gamma"));
    open(2);
    auto* select = top<StateCharacterSelect>();
    ASSERT_EQ(select->fighters.size(), 2u);
    EXPECT_EQ(select->fighters[1].character->name, "Gamma");
}

TEST_F(SelectionTest, ArenasFadeInTwiceAsFastAsTheyFadeOutAndTheChoiceGoesBack) {
    inMemory("arena/list.txt", "one\nnowhere\ntwo\n");
    inMemory("arena/one/init.lua", ARENA_SCRIPT);
    inMemory("arena/one/desc.txt", "The first.");
    inMemory("arena/two/init.lua", ARENA_SCRIPT);
    open(1);
    auto* select = top<StateArenaSelect>();
    ASSERT_NE(select, nullptr);
    ASSERT_EQ(select->entries.size(), 4u);
    EXPECT_EQ(select->desc.text, "Leave");
    Engine::update(0.5f);
    EXPECT_EQ(select->entries[0].alpha, 255.0f);
    pressAll({SDLK_DOWN, SDLK_DOWN});
    EXPECT_EQ(select->desc.text, "The first.");
    Engine::update(0.25f);
    EXPECT_EQ(select->entries[2].alpha, 127.5f);
    EXPECT_EQ(select->entries[0].alpha, 191.25f);
    Engine::update(0.25f);
    EXPECT_EQ(select->entries[2].alpha, 255.0f);
    EXPECT_EQ(select->entries[0].alpha, 127.5f);

    press(SDLK_DOWN);
    EXPECT_EQ(select->desc.alpha, 0.0f);  // "two" has no description
    press(SDLK_RETURN);
    EXPECT_EQ(prepare()->arenaPath, "arena/two/init.lua");
}

TEST_F(SelectionTest, RandomArenasAreNeverReturnOrRandomAndAnEmptyListPicksNothing) {
    inMemory("arena/list.txt", "one\ntwo");
    inMemory("arena/one/init.lua", ARENA_SCRIPT);
    inMemory("arena/two/init.lua", ARENA_SCRIPT);
    for (int i = 0; i < 10; ++i) {
        prepare()->arenaPath.clear();
        open(i == 0 ? 1 : 0);
        pressAll({SDLK_DOWN, SDLK_RETURN});
        const std::string& chosen = prepare()->arenaPath;
        EXPECT_TRUE(chosen == "arena/one/init.lua" || chosen == "arena/two/init.lua") << chosen;
    }
    Resource::clear();
    open(0);
    pressAll({SDLK_DOWN, SDLK_RETURN});
    auto* select = top<StateArenaSelect>();
    ASSERT_NE(select, nullptr);
    EXPECT_FALSE(select->menu.done);
    TestSupport::CapturedStdout log;
    press(SDLK_ESCAPE);
    EXPECT_NE(log.text().find("StateDuelPrepare.resume: Wybor areny przerwany"), std::string::npos);
}

}  // namespace
