#include <gtest/gtest.h>

#include "gameplay/Arena.h"
#include "gameplay/Character.h"
#include "gameplay/Deathmatch.h"

namespace {

// A running mode over fighters in no arena, so that only the rules run; health is set by hand.
class DeathmatchTest : public ::testing::Test {
protected:
    void SetUp() override {
        for (int i = 0; i < 3; ++i) {
            fighters[i].id = i;
            fighters[i].maxHp = fighters[i].hp = 100.0f;
            fighters[i].lungCapacity = 50.0f;
        }
        start(mode, OBJECT_SERVER, {&fighters[0], &fighters[1]});
    }
    void start(GameModes::Deathmatch& rules, int32_t side, std::initializer_list<Character*> players) {
        rules.objectType = side;
        rules.init();
        rules.arena = &arena;
        for (Character* player : players) rules.addCharacter(player);
        rules.start();
    }
    bool roundOver() const { return mode.checkTimer < 0.0f; }
    bool disabled(int i) const { return fighters[i].state & Character::DISABLED; }

    Arena arena;
    Character fighters[3];
    GameModes::Deathmatch mode;
};

TEST_F(DeathmatchTest, KeepsOneEntryPerIdInOrderOfArrivalAndWaitsForAnArena) {
    Character twin;
    twin.id = 1;
    mode.addCharacter(&twin);
    mode.addCharacter(&fighters[2]);
    EXPECT_EQ(mode.characters, (std::vector<Character*>{&fighters[0], &fighters[1], &fighters[2]}));
    mode.arena = nullptr;  // a client's rules may be told to run before the arena is named
    mode.update(0.25f);
    EXPECT_EQ(mode.checkTimer, 0.0f);
}

TEST_F(DeathmatchTest, TheRoundEndsAtTheFirstLookPastHalfASecondWithOneOrNoneAlive) {
    mode.update(0.25f);
    fighters[1].hp = -5.0f;
    mode.update(0.25f);  // exactly 0.5 s: not yet a look
    EXPECT_FALSE(roundOver());
    mode.update(0.01f);
    EXPECT_TRUE(roundOver() && disabled(0) && disabled(1));
    EXPECT_EQ(mode.restartTimer, 0.0f);

    start(mode, OBJECT_SERVER, {&fighters[0], &fighters[1]});
    fighters[0].hp = -5.0f;
    mode.update(0.6f);
    EXPECT_TRUE(roundOver());
}

// The server's snapshot of the timers puts a client into the pause, whose
// copy of the fighters then goes through the round change too.
TEST_F(DeathmatchTest, FightersAreRestoredOnceOnReachingOneSecondAndReleasedAfterTwo) {
    fighters[1].hp = -5.0f;
    mode.update(0.6f);
    uint32_t size = 0;
    void* snapshot = mode.serialize(&size);
    ASSERT_EQ(size, 8u);
    GameModes::Deathmatch client;
    start(client, OBJECT_CLIENT, {&fighters[0], &fighters[1]});
    EXPECT_FALSE(client.deserialize(snapshot, 7));  // one byte short: refused
    EXPECT_FALSE(client.checkTimer < 0.0f);
    EXPECT_TRUE(client.deserialize(snapshot, 8));
    fighters[0].hp = 40.0f;
    fighters[0].position = Vector(123.0f, 456.0f, 0.0f, 0.0f);
    client.update(0.5f);
    EXPECT_EQ(fighters[1].hp, -5.0f);  // not yet
    client.update(0.5f);  // restored on the spot, still held
    EXPECT_EQ((std::vector<float>{fighters[0].hp, fighters[1].hp, fighters[1].air, fighters[0].position.x}),
              (std::vector<float>{100, 100, 50, 123}));
    EXPECT_TRUE(client.checkTimer < 0.0f && disabled(0) && disabled(1));

    fighters[0].hp = 70.0f;  // not healed again: the restore runs once
    client.update(1.0f);  // 2.0 reached
    EXPECT_LT(client.checkTimer, 0.0f);
    client.update(0.01f);
    EXPECT_FALSE(client.checkTimer < 0.0f || disabled(0) || disabled(1));
    EXPECT_EQ(fighters[0].hp, 70.0f);
}

}  // namespace
