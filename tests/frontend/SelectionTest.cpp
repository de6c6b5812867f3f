#include <sys/stat.h>

#include <string>
#include <utility>

#include "FrontendTest.h"
#include "frontend/StateArenaSelect.h"
#include "frontend/StateCharacterSelect.h"
#include "frontend/StateDuelPrepare.h"

namespace {

std::string fighterScript(const std::string& name) { return "function init() setName('" + name + "') end"; }
const char* const ARENA_SCRIPT = "function init() end\nfunction update() end";

// From the duel set-up, whose items from the top are start, arena, fighter 1, fighter 2.
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
    // Opens the selection screen `down` items below the one selected now.
    void open(int down) {
        for (int i = 0; i < down; ++i) press({SDLK_DOWN});
        press({SDLK_RETURN});
    }
};

TEST_F(SelectionTest, FightersComeInTheListsOrderThenFromDiskAndTheChoiceGoesBack) {
    inMemory("character/list.txt", "beta\r\nmissing\n\nalpha\ndelta");
    inMemory("character/beta/init.lua", fighterScript("Beta"));
    inMemory("character/beta/desc.txt", "Beta the brave.");
    inMemory("character/alpha/init.lua", fighterScript("Alpha"));
    inMemory("character/delta/init.lua", fighterScript("Delta"));
    ASSERT_EQ(mkdir("character", 0700) | mkdir("character/gamma", 0700), 0);
    TestSupport::writeFile("character/gamma/init.lua", fighterScript("Gamma"));
    open(2);
    auto* select = top<StateCharacterSelect>();
    ASSERT_NE(select, nullptr);
    // Back, Any, Beta, Alpha, Delta, Gamma, the cursor on line 6 / 2.
    EXPECT_EQ(select->list.text, "Alpha\nDelta\nGamma\n[Back]\nAny\nBeta");
    // Down to "random", "beta" and "alpha", which has no description.
    for (const auto& [text, alpha] : {std::pair{"", 0.0f}, {"Beta the brave.", 255.0f}, {"", 255.0f}}) {
        press({SDLK_DOWN});
        EXPECT_EQ(select->desc.text, text);
        EXPECT_EQ(select->desc.alpha, alpha);
    }
    press({SDLK_RETURN});
    EXPECT_EQ(prepare()->fighterPaths[0], "character/alpha/init.lua");
    EXPECT_FALSE(prepare()->menu.done);
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
    press({SDLK_DOWN, SDLK_DOWN});
    EXPECT_EQ(select->desc.text, "The first.");
    for (const auto& [gaining, losing] : {std::pair{127.5f, 191.25f}, {255.0f, 127.5f}}) {
        Engine::update(0.25f);
        EXPECT_EQ(select->entries[2].alpha, gaining);
        EXPECT_EQ(select->entries[0].alpha, losing);
    }
    press({SDLK_DOWN});
    EXPECT_EQ(select->desc.alpha, 0.0f);  // "two" has no description
    press({SDLK_RETURN});
    EXPECT_EQ(prepare()->arenaPath, "arena/two/init.lua");
}

TEST_F(SelectionTest, RandomPicksOnlyWhatLoadedAndNothingFromAnEmptyList) {
    inMemory("character/list.txt", "alpha");
    inMemory("character/alpha/init.lua", fighterScript("Alpha"));
    inMemory("arena/list.txt", "one\ntwo");
    inMemory("arena/one/init.lua", ARENA_SCRIPT);
    inMemory("arena/two/init.lua", ARENA_SCRIPT);
    open(3);
    press({SDLK_DOWN, SDLK_RETURN});
    EXPECT_EQ(prepare()->fighterPaths[1], "character/alpha/init.lua");
    press({SDLK_UP, SDLK_UP});
    for (int i = 0; i < 10; ++i) {
        prepare()->arenaPath.clear();
        open(0);
        press({SDLK_DOWN, SDLK_RETURN});
        EXPECT_TRUE(prepare()->arenaPath == "arena/one/init.lua" || prepare()->arenaPath == "arena/two/init.lua");
    }
    Resource::clear();
    for (const auto& [item, cancelled] : {std::pair{3, "Wybor postaci przerwany"}, {1, "Wybor areny przerwany"}}) {
        prepare()->menu.root.current = item;
        open(0);
        press({SDLK_DOWN, SDLK_RETURN});  // nothing to draw from: the screen stays
        EXPECT_EQ(prepare(), nullptr);
        TestSupport::CapturedStdout out;
        press({SDLK_ESCAPE});
        EXPECT_NE(out.text().find(cancelled), std::string::npos);
    }
    EXPECT_EQ(prepare()->fighterPaths[1], "character/alpha/init.lua");
}

}  // namespace
