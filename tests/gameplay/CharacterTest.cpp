#include "WorldFixture.h"

namespace {

// A power of two, so that timers count down to exactly 0.
const float DT = 0.125f;
const int A = 1 << ACTION_A, B = 1 << ACTION_B, LEFT = 1 << ACTION_LEFT, RIGHT = 1 << ACTION_RIGHT,
          UP = 1 << ACTION_UP, DOWN = 1 << ACTION_DOWN;
const uint32_t CONTROLLABLE = Character::CONTROLLABLE, MOVING = Character::MOVING, DEAD = Character::DEAD,
               DEFENDING = Character::DEFENDING, CHARGING = Character::CHARGING, SPEAKING = Character::SPEAKING;

// Fighters of 100 hp and lungs, walking at 100, with words of 25 air and
// power 10 that last half a second.
class CharacterTest : public WorldTest {
protected:
    void SetUp() override {
        WorldTest::SetUp();
        speaker = addFighter(200.0f, 450.0f, 0);
        hearer = addFighter(400.0f, 450.0f, 4);
    }
    Character* speaker = nullptr;
    Character* hearer = nullptr;
};

// One frame from a fresh round with the given air, flags, block and keys: the
// flags it leaves on and off, the walk, the last input event and the air.
TEST_F(CharacterTest, OneFrameOfInput) {
    struct Case { const char* what; float air; uint32_t state; float block; int keys; uint32_t on, off; float walked;
                  int32_t event; float airAfter; };
    const Case cases[] = {
        {"a word needs more air than it holds", 25, 0, 0, A, CONTROLLABLE, CHARGING, 0, 0, 31.25f},
        {"one breath more starts it", 26, 0, 0, A, CHARGING | CONTROLLABLE, 0, 0, INPUT_CHARGE, 17.75f},
        {"charging goes on while the lungs hold more than a step", 7, CHARGING, 0, A, CHARGING, SPEAKING, 0, 0, 0.75f},
        {"the word goes out when they hold no more", 6.25f, CHARGING, 0, A, SPEAKING, CHARGING, 0, INPUT_SAY, 6.25f},
        {"defence needs more than 0.15 of the lungs", 0.15f * 100, 0, 0, B, CONTROLLABLE, DEFENDING, 0, 0, 21.25f},
        {"just over the line it comes up", 16, 0, 0, B, DEFENDING, CONTROLLABLE, 0, INPUT_DEFEND, 3.5f},
        {"a defence that is up holds below the line", 10, DEFENDING, 0, B, DEFENDING, 0, 0, INPUT_DEFEND, 0},
        {"and drops without air", 0, DEFENDING, 0, B, CONTROLLABLE, DEFENDING, 0, 0, 6.25f},
        {"defence beats speech", 100, 0, 0, A | B, DEFENDING, CHARGING | CONTROLLABLE, 0, INPUT_DEFEND, 87.5f},
        {"charging refuses defence", 100, CHARGING, 0, A | B, CHARGING, DEFENDING, 0, 0, 93.75f},
        {"letting defence go, speak held", 100, DEFENDING, 0, A, CHARGING, DEFENDING, 0, INPUT_CHARGE, 91.75f},
        {"walking", 100, 0, 0, RIGHT, CONTROLLABLE | MOVING, 0, 12.5f, INPUT_MOVE | INPUT_RIGHT, 100},
        {"charging halves the walk", 100, 0, 0, A | RIGHT, CHARGING, 0, 6.25f, INPUT_MOVE | INPUT_RIGHT, 91.75f},
        {"blocked", 100, 0, 0.15f, RIGHT, 0, CONTROLLABLE | MOVING, 0, 0, 100},
        {"a block running out in the frame frees it", 100, 0, DT, RIGHT, MOVING, 0, 12.5f, INPUT_MOVE | INPUT_RIGHT, 100},
        {"disabled", 100, Character::DISABLED, 0, A | RIGHT, 0, CHARGING | CONTROLLABLE, 0, 0, 100},
        {"the frame that revives takes no input", 100, DEAD, 0, A | RIGHT, 0, DEAD | CHARGING, 0, 0, 100},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        speaker->restart();
        speaker->position.x = 200.0f;
        speaker->air = c.air;
        speaker->state = c.state;
        speaker->block = c.block;
        hold(speaker, c.keys);
        speaker->update(DT);
        EXPECT_EQ(speaker->state & (c.on | c.off), c.on);
        EXPECT_FLOAT_EQ(speaker->position.x - 200.0f, c.walked);
        EXPECT_EQ(speaker->lastEvent.input, c.event);
        EXPECT_FLOAT_EQ(speaker->air, c.airAfter);
    }
}

TEST_F(CharacterTest, AWordGoesOutOnReleaseOrWhenFullAndTheNextWaitsUntilItIsSpoken) {
    hold(speaker, A);
    speaker->update(DT);  // a third at once
    speaker->update(DT);  // plus twice airUsage a second
    hold(speaker, UP);
    speaker->update(DT);
    float power = 10.0f * (0.33f * 25.0f + 2.0f * 25.0f * DT) / 25.0f;
    EXPECT_EQ((std::vector<double>{eval(speaker->lua, "#said"), eval(speaker->lua, "said[1]"), speaker->charge,
                                   speaker->speakBlock, speaker->position.y}),
              (std::vector<double>{1, power, 0, 0.5, 450 - 6.25}));
    EXPECT_EQ(speaker->state & (SPEAKING | CHARGING), SPEAKING);
    EXPECT_EQ(speaker->lastEvent.input, INPUT_MOVE | INPUT_UP);
    hold(speaker, 0);
    speaker->update(DT);
    EXPECT_EQ(speaker->lastEvent.input, 0);  // came to rest

    // Held with air to spare, the key gives full words a speaking time apart.
    speaker->air = speaker->lungCapacity = 1000.0f;
    hold(speaker, A);
    for (int frame = 0; frame < 100 && eval(speaker->lua, "#said") < 2; ++frame) speaker->update(DT);
    EXPECT_FLOAT_EQ(eval(speaker->lua, "said[2]"), 10.0f);  // voiceVolume
    for (int frame = 0; frame < 3; ++frame) {
        speaker->update(DT);
        EXPECT_FALSE(speaker->state & CHARGING) << "frame " << frame;
    }
    speaker->update(DT);  // 0.5 s gone: the word ends, the next charge starts
    EXPECT_EQ(speaker->state & (SPEAKING | CHARGING), CHARGING);
}

TEST_F(CharacterTest, HitsTakeHealthWithoutInterruptingAndAtZeroLeaveOnlyDeath) {
    hold(hearer, B);
    hearer->update(DT);
    hearer->update(DT);
    hearer->hit(8.0f, speaker);  // a quarter through the defence, and the script sees that
    EXPECT_EQ((std::vector<double>{eval(hearer->lua, "defends"), hearer->hp, eval(hearer->lua, "hits[1]")}),
              (std::vector<double>{1, 98, 2}));
    EXPECT_EQ(hearer->lastEvent.input, INPUT_HIT);

    hold(speaker, A);
    speaker->update(DT);
    speaker->hit(10.0f, hearer);
    EXPECT_TRUE(speaker->state & CHARGING);
    speaker->hit(90.0f, hearer);
    EXPECT_EQ(speaker->state, DEAD);
    speaker->update(DT);
    EXPECT_EQ(speaker->state, DEAD);  // at 0 it stays dead
}

TEST_F(CharacterTest, ARecognisedComboRunsInPlaceOfTheCallbacksUntilItEnds) {
    ASSERT_TRUE(speaker->lua.run(
        "addCombo(function() combos = (combos or 0) + 1; if combos == 2 then endCombo() end end, {'defend'})"));
    hold(speaker, B);
    speaker->update(DT);
    EXPECT_TRUE(speaker->state & Character::COMBO);
    for (int frame = 0; frame < 3; ++frame) speaker->update(DT);
    // No onDefend, and update only after the combo's second run ended it.
    EXPECT_EQ((std::vector<double>{eval(speaker->lua, "defends"), eval(speaker->lua, "combos"), eval(speaker->lua, "updates")}),
              (std::vector<double>{0, 2, 2}));
    EXPECT_EQ(speaker->comboRef, 0);
}

TEST_F(CharacterTest, AJumpRisesAtFullSpeedFirstAndALandingBouncesOnlyFasterThan225) {
    speaker->jump(300.0f);
    speaker->update(DT);
    speaker->update(DT);
    EXPECT_EQ((std::vector<float>{speaker->position.z, speaker->speed.z}),
              (std::vector<float>{300.0f * DT * 2 - 750.0f * DT * DT, 300.0f - 750.0f * DT}));
    EXPECT_EQ(speaker->lastEvent.input, INPUT_MOVE);  // moving in the air without keys
    for (int frame = 0; frame < 40; ++frame) speaker->update(DT);
    for (float fall : {-300.0f, -225.0f, -200.0f}) {
        speaker->speed.z = fall;
        speaker->update(DT);
        EXPECT_EQ(speaker->position.z, 0.0f);
        EXPECT_EQ(speaker->speed.z, fall < -225.0f ? -0.5f * fall : 0.0f) << fall;
    }
}

// Walls stop a fighter exactly on the edge, and it faces the way it walks:
// walking straight down keeps the facing.
TEST_F(CharacterTest, WallsStopTheFighterExactlyOnTheEdgeAndItFacesTheWayItWalks) {
    struct Case { float x, y; int keys; float edgeX, edgeY; int32_t facing; };
    for (const Case& c : {Case{5, 597, LEFT | DOWN, 0, 600, 4}, Case{5, 597, DOWN, 5, 600, 4},
                          Case{795, 303, RIGHT | UP, 800, 300, 0}}) {
        speaker->position = Vector(c.x, c.y, 0.0f, 0.0f);
        hold(speaker, c.keys);
        speaker->update(DT);
        EXPECT_EQ((std::vector<float>{speaker->position.x, speaker->position.y}), (std::vector<float>{c.edgeX, c.edgeY}));
        EXPECT_EQ(speaker->direction, c.facing);
        speaker->update(DT);
        EXPECT_FALSE(speaker->state & MOVING);
    }
}

TEST(CharacterLoadTest, RefusesBrokenScriptsThenRepairsTheNumbersAndStartsWithAWordOfAir) {
    Character fighter;
    fighter.objectType = OBJECT_SERVER;
    for (const char* script : {"no_init.lua", "broken.lua", "missing.lua"})
        EXPECT_FALSE(fighter.init(dataPath(script))) << script;
    fighter.moveSpeed = fighter.voiceVolume = fighter.speakSpeed = fighter.lungCapacity = -1.0f;
    fighter.airUsage = fighter.maxHp = 0.0f;
    ASSERT_TRUE(fighter.init(dataPath("bare_fighter.lua")));
    EXPECT_EQ((std::vector<float>{0, 0, 0, 0, 25, 0.1f, 0.1f, 25}),
              (std::vector<float>{fighter.moveSpeed, fighter.voiceVolume, fighter.speakSpeed, fighter.lungCapacity,
                                  fighter.airUsage, fighter.maxHp, fighter.hp, fighter.air}));
    EXPECT_TRUE(fighter.lua.hasFunction("onHit"));  // the missing callbacks are declared
    fighter.lungCapacity = 100.0f;
    fighter.restart();
    EXPECT_EQ(fighter.air, 100.0f);
    EXPECT_EQ(fighter.state, CONTROLLABLE);
}

}  // namespace
