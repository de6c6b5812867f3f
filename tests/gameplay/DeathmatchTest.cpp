#include <gtest/gtest.h>

#include <tuple>
#include <vector>

#include "gameplay/Arena.h"
#include "gameplay/Character.h"
#include "gameplay/Deathmatch.h"

using GameModes::Deathmatch;

namespace {

// Fighters 10 and 11 of a running mode in no arena, so that only the rules
// run, and a third, 12, on the bench; health is set by hand. Times are binary
// fractions, so that sums land exactly on the limits.
class DeathmatchTest : public ::testing::Test {
protected:
    void SetUp() override {
        fighters[2].id = 12;
        start(mode);
    }
    // Both fighters at full health, with these limits (0: none).
    void start(Deathmatch& rules, int32_t rounds = 0, float seconds = 0.0f) {
        rules.init();
        rules.arena = &arena;
        rules.roundLimit = rounds;
        rules.timeLimit = seconds;
        for (int i = 0; i < 2; ++i) {
            fighters[i].id = 10 + i;
            fighters[i].maxHp = fighters[i].hp = 100.0f;
            fighters[i].lungCapacity = 50.0f;
            fighters[i].state = 0;
            rules.addCharacter(&fighters[i]);
        }
        rules.start();
    }
    bool roundOn() const { return mode.checkTimer >= 0.0f; }
    bool disabled(int i) const { return fighters[i].state & Character::DISABLED; }
    // Fighter 0 or 1 falls, or both for -1; the round ends at the next look,
    // and the pause is run out unless the match is over.
    void lose(int fighter) {
        for (int i = 0; i < 2; ++i)
            if (fighter < 0 || fighter == i) fighters[i].hp = -1.0f;
        for (int i = 0; i < 12 && !(mode.matchOver && !roundOn()); ++i) mode.update(0.25f);
    }

    Arena arena;
    Character fighters[3];
    Deathmatch mode;
};

TEST_F(DeathmatchTest, KeepsOneEntryPerIdInOrderOfArrivalAndWaitsForAnArena) {
    Character twin;
    twin.id = 11;
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
    EXPECT_TRUE(roundOn());
    mode.update(0.01f);
    EXPECT_TRUE(!roundOn() && disabled(0) && disabled(1));
    EXPECT_EQ(mode.restartTimer, 0.0f);
}

// The server's snapshot of the timers puts a client into the pause, whose
// copy of the fighters then goes through the round change too.
TEST_F(DeathmatchTest, FightersAreRestoredOnceOnReachingOneSecondAndReleasedAfterTwo) {
    fighters[1].hp = -5.0f;
    mode.update(0.6f);
    uint32_t size = 0;
    void* snapshot = mode.serialize(&size);
    ASSERT_EQ(size, 8u);
    Deathmatch client;
    start(client);
    fighters[1].hp = -5.0f;
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

TEST_F(DeathmatchTest, ARoundEndsExactlyWhenItsTimeIsUpTheHealthiestWinningAndItsClockStartsAgain) {
    for (const auto& [hp0, hp1, winner] : {std::tuple{80.0f, 30.0f, 10}, {20.0f, 60.0f, 11}, {50.0f, 50.0f, -1}}) {
        start(mode, 0, 1.0f);
        fighters[0].hp = hp0;
        fighters[1].hp = hp1;
        for (float dt : {0.5f, 0.25f, 0.125f, 0.0625f, 0.03125f}) mode.update(dt);
        EXPECT_TRUE(roundOn());  // 0.96875 s
        mode.update(0.03125f);
        EXPECT_FALSE(roundOn());
        EXPECT_EQ(mode.roundWinners, std::vector<int32_t>{winner});
        EXPECT_TRUE(fighters[0].state & Character::DISABLED);
    }
    start(mode, 0, 1.0f);
    lose(1);  // after 0.75 s of the first round
    for (int i = 0; i < 3; ++i) mode.update(0.25f);
    EXPECT_TRUE(roundOn());
}

TEST_F(DeathmatchTest, TheMatchEndsAtItsLastRoundWithTheMostRoundsWonAndNothingMovesAfter) {
    const struct {
        int32_t limit;
        std::vector<int> losers;  // who falls in each round
        int32_t winner;           // of the match; -2 while it goes on
    } cases[] = {{1, {1}, 10}, {3, {0, 1, 0}, 11}, {2, {0, 1}, Deathmatch::NO_WINNER}, {0, {-1, 1, 1}, -2}};
    for (const auto& c : cases) {
        start(mode, c.limit, 0.0f);
        for (int loser : c.losers) {
            EXPECT_FALSE(mode.matchOver);
            lose(loser);
        }
        EXPECT_EQ(mode.matchOver, c.winner != -2);
        for (int i = 0; i < 20; ++i) mode.update(0.25f);
        EXPECT_EQ(mode.matchOver ? mode.matchWinner : -2, c.winner);
        EXPECT_EQ(roundOn(), !mode.matchOver);
        EXPECT_EQ(mode.roundWinners.size(), c.losers.size());
    }
    EXPECT_EQ(mode.roundWinners, (std::vector<int32_t>{Deathmatch::NO_WINNER, 10, 10}));  // both fell: a draw
}

}  // namespace
