// The listed fighters fight in every listed arena through the game's own
// classes, with sound: the scripts' callbacks and ambience run, every combo
// ends, and nothing on the way fails (a missing sound or picture would).
#include <gtest/gtest.h>

#include <string>

#include "ContentList.h"
#include "TestSupport.h"
#include "audio/Sound.h"
#include "gameplay/Arena.h"
#include "gameplay/Character.h"
#include "gameplay/ControllerDummy.h"
#include "graphics/Render.h"

namespace {

const float FRAME = 1.0f / 60.0f;

class ContentPlay : public ::testing::Test {
protected:
    void SetUp() override {
        static const bool opened = Render::init(800, 600, false);
        ASSERT_TRUE(opened) << "no window under this display";
        ASSERT_TRUE(Sound::init(16));
    }
    void TearDown() override { Sound::clear(); }

    ContentList::InDataFolder here;
};

// Walks, speaks and defends by turns, so that every callback runs.
void steer(ControllerDummy& pad, int frame, int who) {
    const int phase = (frame / 25 + who) % 4;
    pad.pressed[ACTION_A] = phase == 0 || phase == 1;
    pad.pressed[ACTION_B] = phase == 3;
    pad.pressed[ACTION_LEFT] = phase == 2 && who == 0;
    pad.pressed[ACTION_RIGHT] = phase == 2 && who == 1;
    pad.pressed[ACTION_UP] = (frame / 40) % 2 == 0;
    pad.pressed[ACTION_DOWN] = (frame / 40) % 2 == 1;
}

}  // namespace

TEST(ContentLists, NameTheFrontEndDefaultsFirstAndDescribeEveryEntry) {
    const std::vector<std::string> fighters = ContentList::names("character/list.txt");
    const std::vector<std::string> arenas = ContentList::names("arena/list.txt");
    ASSERT_GE(fighters.size(), 3u);
    ASSERT_GE(arenas.size(), 2u);
    EXPECT_EQ(fighters[0], "default");
    EXPECT_EQ(arenas[0], "osmiornica");
    for (const std::string& name : fighters)
        EXPECT_FALSE(TestSupport::readFile(ContentList::DATA + "/character/" + name + "/desc.txt").empty()) << name;
    for (const std::string& name : arenas)
        EXPECT_FALSE(TestSupport::readFile(ContentList::DATA + "/arena/" + name + "/desc.txt").empty()) << name;
}

TEST_F(ContentPlay, EveryArenaHasRoomToFightAndEveryFighterFightsInIt) {
    TestSupport::CapturedStdout log;
    for (const std::string& arenaName : ContentList::names("arena/list.txt")) {
        for (const std::string& fighterName : ContentList::names("character/list.txt")) {
            SCOPED_TRACE(arenaName + ", " + fighterName);
            Arena arena;
            ASSERT_TRUE(arena.init("arena/" + arenaName + "/init.lua"));
            // Fighters stand about 90 pixels tall: the floor's far edge leaves room for heads.
            EXPECT_TRUE(arena.min.x >= 0 && arena.min.y >= 90 && arena.max.x <= 800 && arena.max.y <= 600);
            EXPECT_TRUE(arena.max.x > arena.min.x && arena.max.y > arena.min.y);
            EXPECT_GE(arena.noise, 0.0f);
            ASSERT_GE(arena.startPositions.size(), 2u);
            for (const Vector& start : arena.startPositions) EXPECT_FALSE(arena.collides(start));

            Character fighters[2];
            ControllerDummy pads[2];
            const std::string scripts[2] = {"character/" + fighterName + "/init.lua", "character/default/init.lua"};
            for (int i = 0; i < 2; ++i) {
                ASSERT_TRUE(fighters[i].init(scripts[i]));
                fighters[i].id = i;
                fighters[i].controller = &pads[i];
                arena.addCharacter(&fighters[i]);
            }
            for (int frame = 0; frame < 60 * 20; ++frame) {
                for (int i = 0; i < 2; ++i) {
                    steer(pads[i], frame, i);
                    if (fighters[i].hp <= 0.0f) fighters[i].restart();
                }
                arena.update(FRAME);
                // Drawing is slow in a software-rendered window; a few frames show the effects load.
                if (frame % 10 == 0) arena.draw();
            }
            // A combo runs in place of update until the script calls endCombo.
            Character& fighter = fighters[0];
            EXPECT_FALSE(fighter.comboManager.combos.empty());
            for (const Combo& combo : fighter.comboManager.combos) {
                fighter.restart();
                fighter.state |= Character::COMBO;
                fighter.comboRef = combo.ref;
                for (int frame = 0; frame < 60 * 10 && (fighter.state & Character::COMBO); ++frame) arena.update(FRAME);
                EXPECT_FALSE(fighter.state & Character::COMBO) << "a combo never ends";
            }
            // The arena's effects may point at the fighters: it goes first.
            arena.clear();
            for (Character& each : fighters) each.clear();
        }
    }
    const std::string text = log.text();
    EXPECT_EQ(text.find("FAIL"), std::string::npos) << text;
}
