#include <gtest/gtest.h>

#include <cstring>

#include "gameplay/Arena.h"
#include "gameplay/Character.h"
#include "gameplay/Deathmatch.h"

namespace {

// A mode over fighters that are not in the arena, so that only the rules run:
// the fighters' hp is set by hand.
class DeathmatchTest : public ::testing::Test {
protected:
    void SetUp() override {
        arena.objectType = OBJECT_SERVER;
        mode.objectType = OBJECT_SERVER;
        mode.init();
        mode.arena = &arena;
        for (int i = 0; i < 3; ++i) {
            fighters[i].id = i;
            fighters[i].maxHp = 100.0f;
            fighters[i].lungCapacity = 50.0f;
            fighters[i].hp = 100.0f;
        }
        mode.addCharacter(&fighters[0]);
        mode.addCharacter(&fighters[1]);
        mode.start();
    }
    void kill(Character& fighter) {
        fighter.hp = -5.0f;
        fighter.state = Character::DEAD;
    }
    // Runs frames of dt until the predicate holds or the frames run out.
    int framesUntil(float dt, int limit, bool (*done)(const GameModes::Deathmatch&)) {
        for (int i = 1; i <= limit; ++i) {
            mode.update(dt);
            if (done(mode)) return i;
        }
        return -1;
    }

    Arena arena;
    Character fighters[3];
    GameModes::Deathmatch mode;
};

bool roundOver(const GameModes::Deathmatch& m) { return m.checkTimer < 0.0f; }
bool roundOn(const GameModes::Deathmatch& m) { return m.checkTimer >= 0.0f; }

TEST_F(DeathmatchTest, AddCharacterKeepsOneEntryPerIdInOrderOfArrival) {
    Character twin;
    twin.id = 1;
    mode.addCharacter(&twin);
    mode.addCharacter(&fighters[2]);
    ASSERT_EQ(mode.characters.size(), 3u);
    EXPECT_EQ(mode.characters[1], &fighters[1]);
    EXPECT_EQ(mode.characters[2], &fighters[2]);
}

TEST_F(DeathmatchTest, TheRoundEndsAtTheNextLookAfterTheSecondToLastDeath) {
    mode.update(0.3f);
    kill(fighters[1]);
    mode.update(0.1f);  // 0.4 s: no look yet
    EXPECT_TRUE(roundOn(mode));
    mode.update(0.1f);  // 0.5 s: not above the interval, still no look
    EXPECT_TRUE(roundOn(mode));
    mode.update(0.05f);  // past 0.5 s: the look ends the round
    EXPECT_TRUE(roundOver(mode));
    EXPECT_EQ(mode.restartTimer, 0.0f);
    for (int i = 0; i < 2; ++i) EXPECT_TRUE(fighters[i].state & Character::DISABLED);
}

TEST_F(DeathmatchTest, TwoDeathsInOneWordEndTheRoundWithNoSurvivor) {
    kill(fighters[0]);
    kill(fighters[1]);
    EXPECT_GT(framesUntil(0.1f, 10, roundOver), 0);
}

TEST_F(DeathmatchTest, ALoneFighterNeverEndsARound) {
    GameModes::Deathmatch alone;
    alone.objectType = OBJECT_SERVER;
    alone.init();
    alone.arena = &arena;
    alone.addCharacter(&fighters[0]);
    alone.start();
    kill(fighters[0]);
    for (int i = 0; i < 100; ++i) alone.update(0.1f);
    EXPECT_GE(alone.checkTimer, 0.0f);
    EXPECT_FALSE(fighters[0].state & Character::DISABLED);
}

TEST_F(DeathmatchTest, FightersAreRestoredOnceOnCrossingOneSecondAndReleasedAfterTwo) {
    kill(fighters[1]);
    ASSERT_GT(framesUntil(0.3f, 5, roundOver), 0);
    fighters[0].hp = 40.0f;
    fighters[0].position = Vector(123.0f, 456.0f, 0.0f, 0.0f);

    mode.update(0.6f);
    EXPECT_FLOAT_EQ(fighters[1].hp, -5.0f);  // not yet
    mode.update(0.6f);                       // crosses 1.0: restored, still held
    EXPECT_FLOAT_EQ(fighters[0].hp, 100.0f);
    EXPECT_FLOAT_EQ(fighters[1].hp, 100.0f);
    EXPECT_FLOAT_EQ(fighters[1].air, 50.0f);
    EXPECT_FLOAT_EQ(fighters[0].position.x, 123.0f);  // restored on the spot
    for (int i = 0; i < 2; ++i) EXPECT_TRUE(fighters[i].state & Character::DISABLED);

    // Damage taken during the wait is not healed again: the restore ran once.
    fighters[0].hp = 70.0f;
    mode.update(0.5f);
    EXPECT_TRUE(roundOver(mode));
    mode.update(0.5f);  // restartTimer now at or above 2.0
    EXPECT_TRUE(roundOver(mode));
    mode.update(0.01f);  // the release
    EXPECT_TRUE(roundOn(mode));
    EXPECT_FLOAT_EQ(fighters[0].hp, 70.0f);
    for (int i = 0; i < 2; ++i) EXPECT_FALSE(fighters[i].state & Character::DISABLED);
}

TEST_F(DeathmatchTest, ASnapshotMovesTheTimersAndCanForceThePause) {
    uint32_t size = 0;
    mode.checkTimer = 0.25f;
    mode.restartTimer = 1.5f;
    void* bytes = mode.serialize(&size);
    ASSERT_EQ(size, 8u);
    float fields[2];
    memcpy(fields, bytes, 8);
    EXPECT_EQ(fields[0], 0.25f);
    EXPECT_EQ(fields[1], 1.5f);

    GameModes::Deathmatch client;
    client.objectType = OBJECT_CLIENT;
    client.init();
    client.arena = &arena;
    client.addCharacter(&fighters[0]);
    client.addCharacter(&fighters[1]);
    const float pause[2] = {-1.0f, 0.0f};
    EXPECT_FALSE(client.deserialize(pause, 7));
    EXPECT_TRUE(roundOn(client));
    EXPECT_TRUE(client.deserialize(pause, 8));
    EXPECT_TRUE(roundOver(client));
    client.update(1.1f);  // the client restores its copy too
    EXPECT_FLOAT_EQ(fighters[0].hp, 100.0f);
    EXPECT_TRUE(fighters[0].state & Character::DISABLED);
}

TEST_F(DeathmatchTest, ClearForgetsFightersAndArenaAndStopsTheMode) {
    uint32_t size = 0;
    mode.serialize(&size);
    mode.clear();
    EXPECT_TRUE(mode.characters.empty());
    EXPECT_EQ(mode.arena, nullptr);
    EXPECT_FALSE(mode.running);
    EXPECT_EQ(mode.buffer, nullptr);
    mode.update(0.25f);  // a client's mode may run before it has an arena: it waits
    EXPECT_EQ(mode.checkTimer, 0.0f);
}

}  // namespace
