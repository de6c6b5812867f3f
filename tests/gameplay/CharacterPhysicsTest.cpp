#include <cmath>

#include "WorldFixture.h"

namespace {

const float DT = 0.125f;

class CharacterPhysicsTest : public WorldTest {
protected:
    void SetUp() override {
        WorldTest::SetUp();
        fighter = addFighter(400.0f, 450.0f, 0);
    }
    Character* fighter = nullptr;
};

TEST_F(CharacterPhysicsTest, FastLandingBouncesAtHalfSpeedSlowOneStops) {
    fighter->speed.z = -300.0f;
    fighter->update(DT);
    EXPECT_FLOAT_EQ(fighter->position.z, 0.0f);
    EXPECT_FLOAT_EQ(fighter->speed.z, 150.0f);

    fighter->speed.z = -200.0f;
    fighter->update(DT);
    EXPECT_FLOAT_EQ(fighter->position.z, 0.0f);
    EXPECT_FLOAT_EQ(fighter->speed.z, 0.0f);
}

TEST_F(CharacterPhysicsTest, JumpRisesAtFullSpeedThenGravityPulls) {
    fighter->jump(300.0f);
    fighter->update(DT);
    EXPECT_FLOAT_EQ(fighter->position.z, 300.0f * DT);
    EXPECT_TRUE(fighter->state & Character::MOVING);
    fighter->update(DT);
    EXPECT_FLOAT_EQ(fighter->speed.z, 300.0f - 750.0f * DT);
    // Up in the air the fighter keeps emitting movement, even without keys.
    EXPECT_EQ(fighter->lastEvent.input, INPUT_MOVE);
    for (int i = 0; i < 40; ++i) fighter->update(DT);
    EXPECT_FLOAT_EQ(fighter->position.z, 0.0f);
}

TEST_F(CharacterPhysicsTest, WallsStopTheFighterExactlyOnTheEdge) {
    fighter->position = Vector(795.0f, 303.0f, 0.0f, 0.0f);
    hold(fighter, ACTION_RIGHT);
    hold(fighter, ACTION_UP);
    fighter->update(DT);
    EXPECT_FLOAT_EQ(fighter->position.x, 800.0f);
    EXPECT_FLOAT_EQ(fighter->position.y, 300.0f);
    EXPECT_TRUE(fighter->state & Character::MOVING);
    fighter->update(DT);
    EXPECT_FLOAT_EQ(fighter->position.x, 800.0f);
    EXPECT_FALSE(fighter->state & Character::MOVING);

    // The other two walls.
    hold(fighter, ACTION_RIGHT, false);
    hold(fighter, ACTION_UP, false);
    fighter->position = Vector(5.0f, 597.0f, 0.0f, 0.0f);
    hold(fighter, ACTION_LEFT);
    hold(fighter, ACTION_DOWN);
    fighter->update(DT);
    EXPECT_FLOAT_EQ(fighter->position.x, 0.0f);
    EXPECT_FLOAT_EQ(fighter->position.y, 600.0f);
}

TEST_F(CharacterPhysicsTest, DirectionFollowsHorizontalSpeedOnly) {
    hold(fighter, ACTION_LEFT);
    fighter->update(DT);
    EXPECT_EQ(fighter->direction, 4);
    hold(fighter, ACTION_LEFT, false);
    hold(fighter, ACTION_DOWN);
    fighter->update(DT);
    EXPECT_EQ(fighter->direction, 4);
    hold(fighter, ACTION_RIGHT);
    fighter->update(DT);
    EXPECT_EQ(fighter->direction, 0);
}

TEST_F(CharacterPhysicsTest, AirRefillsAtHalfTheLungsASecondUpToTheirSize) {
    fighter->air = 50.0f;
    fighter->update(DT);
    EXPECT_FLOAT_EQ(fighter->air, 50.0f + 100.0f * 0.5f * DT);
    for (int i = 0; i < 40; ++i) fighter->update(DT);
    EXPECT_FLOAT_EQ(fighter->air, 100.0f);
}

TEST_F(CharacterPhysicsTest, ScriptNonsenseNeitherCrashesNorHangs) {
    Character* other = addFighter(300.0f, 400.0f);
    fighter->position = Vector(1e30f, -1e30f, 5e29f, 0.0f);
    fighter->speed = Vector(NAN, INFINITY, -INFINITY, 0.0f);
    other->moveSpeed = -1e38f;
    other->speakSpeed = NAN;
    other->voiceVolume = INFINITY;
    hold(other, ACTION_A);
    hold(other, ACTION_LEFT);
    for (int i = 0; i < 20; ++i) arena.update(DT);
    arena.say(Vector(NAN, NAN, NAN, 0.0f), INFINITY, other);
    // The arena keeps both fighters, whatever their numbers became.
    EXPECT_EQ(arena.characters.size(), 2u);
    EXPECT_EQ(arena.findCharacter(other->id), other);
}

TEST(CharacterLoadTest, RepairsScriptNumbersAndStartsWithAWordOfAir) {
    Character fighter;
    fighter.objectType = OBJECT_SERVER;
    fighter.moveSpeed = -5.0f;
    fighter.voiceVolume = -1.0f;
    fighter.speakSpeed = -2.0f;
    fighter.lungCapacity = -3.0f;
    fighter.airUsage = 0.0f;
    fighter.maxHp = -10.0f;
    ASSERT_TRUE(fighter.init(std::string(KORVANE_SOURCE_DIR) + "/tests/data/gameplay/bare_fighter.lua"));
    EXPECT_EQ(fighter.moveSpeed, 0.0f);
    EXPECT_EQ(fighter.voiceVolume, 0.0f);
    EXPECT_EQ(fighter.speakSpeed, 0.0f);
    EXPECT_EQ(fighter.lungCapacity, 0.0f);
    EXPECT_EQ(fighter.airUsage, 25.0f);
    EXPECT_FLOAT_EQ(fighter.maxHp, 0.1f);
    EXPECT_FLOAT_EQ(fighter.hp, 0.1f);
    EXPECT_EQ(fighter.air, 25.0f);
    // The missing callbacks were declared, so a hit runs without trouble.
    EXPECT_TRUE(fighter.lua.hasFunction("onHit"));

    fighter.lungCapacity = 100.0f;
    fighter.restart();
    EXPECT_EQ(fighter.air, 100.0f);
    EXPECT_EQ(fighter.state, static_cast<uint32_t>(Character::CONTROLLABLE));
}

TEST(CharacterLoadTest, RefusesScriptsThatCannotRunOrLackInit) {
    const std::string dir = std::string(KORVANE_SOURCE_DIR) + "/tests/data/gameplay/";
    Character fighter;
    fighter.objectType = OBJECT_SERVER;
    EXPECT_FALSE(fighter.init(dir + "no_init.lua"));
    EXPECT_FALSE(fighter.init(dir + "broken.lua"));
    EXPECT_FALSE(fighter.init(dir + "missing.lua"));
    // A fighter can be loaded again after failing.
    EXPECT_TRUE(fighter.init(dir + "fighter.lua"));
    EXPECT_EQ(fighter.path, dir + "fighter.lua");
}

}  // namespace
