#include <gtest/gtest.h>

#include <vector>

#include "gameplay/Arena.h"
#include "gameplay/Character.h"
#include "gameplay/Deathmatch.h"

namespace {

using GameModes::Deathmatch;

// Two fighters with hand-set health under limited rules; times are binary
// fractions so that sums land exactly on the limits.
class DeathmatchLimitsTest : public ::testing::Test {
protected:
    void SetUp() override {
        arena.objectType = OBJECT_SERVER;
        mode.objectType = OBJECT_SERVER;
        mode.init();
        mode.arena = &arena;
        mode.roundLimit = 0;
        mode.timeLimit = 0.0f;
        for (int i = 0; i < 2; ++i) {
            fighters[i].state = 0;
            fighters[i].id = 10 + i;
            fighters[i].maxHp = 100.0f;
            fighters[i].lungCapacity = 50.0f;
            fighters[i].hp = 100.0f;
            mode.addCharacter(&fighters[i]);
        }
        mode.start();
    }
    // Ends a round by a death and runs the pause out, unless the match ended.
    void playRound(int loser) {
        fighters[loser].hp = -1.0f;
        for (int i = 0; i < 10 && mode.checkTimer >= 0.0f; ++i) mode.update(0.25f);
        for (int i = 0; i < 20 && mode.checkTimer < 0.0f && !mode.matchOver; ++i) mode.update(0.25f);
    }

    Arena arena;
    Character fighters[2];
    Deathmatch mode;
};

TEST_F(DeathmatchLimitsTest, TheRoundEndsExactlyWhenItsTimeIsUpAndTheHealthiestWinsIt) {
    struct Case {
        float hp0, hp1;
        int32_t winner;
    };
    const Case cases[] = {{80.0f, 30.0f, 10}, {20.0f, 60.0f, 11}, {50.0f, 50.0f, Deathmatch::NO_WINNER}};
    for (const Case& c : cases) {
        SetUp();
        mode.timeLimit = 1.0f;
        fighters[0].hp = c.hp0;
        fighters[1].hp = c.hp1;
        mode.update(0.5f);
        mode.update(0.375f);
        mode.update(0.0625f);
        mode.update(0.03125f);  // 0.96875 s: one step short
        EXPECT_GE(mode.checkTimer, 0.0f);
        mode.update(0.03125f);  // 1.0 s exactly
        EXPECT_LT(mode.checkTimer, 0.0f);
        EXPECT_EQ(mode.roundWinners, std::vector<int32_t>{c.winner});
        EXPECT_TRUE(fighters[0].state & Character::DISABLED);
    }
}

TEST_F(DeathmatchLimitsTest, TheRoundClockStartsAgainWithEveryRound) {
    mode.timeLimit = 4.0f;
    playRound(1);
    ASSERT_GE(mode.checkTimer, 0.0f);
    EXPECT_EQ(mode.roundTime, 0.0f);
    for (int i = 0; i < 15; ++i) mode.update(0.25f);  // 3.75 s of the new round
    EXPECT_GE(mode.checkTimer, 0.0f);
}

TEST_F(DeathmatchLimitsTest, TheMatchEndsAtTheRoundLimitWithTheMostRoundsWon) {
    struct Case {
        int32_t limit;
        std::vector<int> losers;  // index of the fighter who falls in each round
        int32_t winner;
    };
    const Case cases[] = {
        {1, {1}, 10},
        {3, {0, 1, 0}, 11},
        {2, {0, 1}, Deathmatch::NO_WINNER},
    };
    for (const Case& c : cases) {
        SetUp();
        mode.roundLimit = c.limit;
        for (std::size_t round = 0; round < c.losers.size(); ++round) {
            EXPECT_FALSE(mode.matchOver) << "before round " << round;
            playRound(c.losers[round]);
        }
        EXPECT_TRUE(mode.matchOver);
        EXPECT_EQ(mode.matchWinner, c.winner);
        // Nothing restores the fighters once the match is over.
        for (int i = 0; i < 20; ++i) mode.update(0.25f);
        EXPECT_LT(mode.checkTimer, 0.0f);
        EXPECT_EQ(mode.roundWinners.size(), c.losers.size());
    }
}

TEST_F(DeathmatchLimitsTest, WithoutLimitsRoundsGoOnAndADoubleDeathIsADraw) {
    for (int i = 0; i < 400; ++i) mode.update(0.25f);
    EXPECT_GE(mode.checkTimer, 0.0f);
    fighters[0].hp = 0.0f;
    fighters[1].hp = -3.0f;
    for (int round = 0; round < 5; ++round) playRound(round % 2);
    EXPECT_FALSE(mode.matchOver);
    ASSERT_EQ(mode.roundWinners.size(), 5u);
    EXPECT_EQ(mode.roundWinners[0], Deathmatch::NO_WINNER);
    EXPECT_EQ(mode.roundWinners[1], 10);
}

}  // namespace
