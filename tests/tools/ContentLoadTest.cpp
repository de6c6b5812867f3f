// Every listed fighter and arena loads through the game's own classes at
// every rank without a failure in the log, with its pictures wherever the
// world draws.
#include <gtest/gtest.h>

#include <string>

#include "ContentList.h"
#include "TestSupport.h"
#include "gameplay/Arena.h"
#include "gameplay/Character.h"
#include "graphics/Render.h"
#include "graphics/Sprite.h"

namespace {

class ContentLoad : public ::testing::TestWithParam<int> {
protected:
    static void SetUpTestSuite() {
        static const bool opened = Render::init(800, 600, false);
        ASSERT_TRUE(opened) << "no window under this display";
    }
    bool draws() const { return GetParam() != 2; }
};

}  // namespace

TEST_P(ContentLoad, ListedFightersAndArenasLoadWithoutAFailure) {
    ContentList::InDataFolder here;
    TestSupport::CapturedStdout log;
    for (const std::string& name : ContentList::names("arena/list.txt")) {
        Arena arena;
        arena.objectType = GetParam();
        EXPECT_TRUE(arena.init("arena/" + name + "/init.lua")) << name;
        if (draws()) {
            EXPECT_NE(arena.background.sprite, nullptr) << name;
        }
        arena.clear();
    }
    for (const std::string& name : ContentList::names("character/list.txt")) {
        Character fighter;
        fighter.objectType = GetParam();
        EXPECT_TRUE(fighter.init("character/" + name + "/init.lua")) << name;
        EXPECT_FALSE(fighter.name.empty()) << name;
        if (draws()) {
            EXPECT_NE(fighter.sprite.sprite, nullptr) << name;
            EXPECT_NE(fighter.shadow.sprite, nullptr) << name;
            ASSERT_NE(fighter.speech.sprite, nullptr) << name;
            EXPECT_GE(fighter.speech.sprite->animCount(), 4) << name;
        }
        fighter.clear();
    }
    const std::string text = log.text();
    EXPECT_EQ(text.find("FAIL"), std::string::npos) << text;
}

INSTANTIATE_TEST_SUITE_P(Ranks, ContentLoad, ::testing::Values(0, 1, 2));
