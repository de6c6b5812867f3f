#include <gtest/gtest.h>

#include <tuple>
#include <vector>

#include "gameplay/Arena.h"
#include "gameplay/Character.h"
#include "gameplay/Deathmatch.h"

using GameModes::Deathmatch;

// Two fighters, ids 10 and 11, with hand-set health; times are binary
// fractions, so that sums land exactly on the limits.
class DeathmatchLimitsTest : public ::testing::Test {
protected:
    void start(int32_t rounds, float seconds) {
        mode.init();
        mode.arena = &arena;
        mode.roundLimit = rounds;
        mode.timeLimit = seconds;
        for (int i = 0; i < 2; ++i) {
            fighters[i].id = 10 + i;
            fighters[i].maxHp = fighters[i].hp = 100.0f;
            fighters[i].state = 0;
            mode.addCharacter(&fighters[i]);
        }
        mode.start();
    }
    bool roundOn() const { return mode.checkTimer >= 0.0f; }
    // Fighter 0 or 1 falls, or both for -1; the round ends at the next look,
    // and the pause is run out unless the match is over.
    void lose(int fighter) {
        for (int i = 0; i < 2; ++i)
            if (fighter < 0 || fighter == i) fighters[i].hp = -1.0f;
        for (int i = 0; i < 12 && !(mode.matchOver && !roundOn()); ++i) mode.update(0.25f);
    }

    Arena arena;
    Character fighters[2];
    Deathmatch mode;
};

TEST_F(DeathmatchLimitsTest, ARoundEndsExactlyWhenItsTimeIsUpTheHealthiestWinningAndItsClockStartsAgain) {
    for (const auto& [hp0, hp1, winner] : {std::tuple{80.0f, 30.0f, 10}, {20.0f, 60.0f, 11}, {50.0f, 50.0f, -1}}) {
        start(0, 1.0f);
        fighters[0].hp = hp0;
        fighters[1].hp = hp1;
        for (float dt : {0.5f, 0.25f, 0.125f, 0.0625f, 0.03125f}) mode.update(dt);
        EXPECT_TRUE(roundOn());  // 0.96875 s
        mode.update(0.03125f);
        EXPECT_FALSE(roundOn());
        EXPECT_EQ(mode.roundWinners, std::vector<int32_t>{winner});
        EXPECT_TRUE(fighters[0].state & Character::DISABLED);
    }
    start(0, 1.0f);
    lose(1);  // after 0.75 s of the first round
    for (int i = 0; i < 3; ++i) mode.update(0.25f);
    EXPECT_TRUE(roundOn());
}

TEST_F(DeathmatchLimitsTest, TheMatchEndsAtItsLastRoundWithTheMostRoundsWonAndNothingMovesAfter) {
    const struct {
        int32_t limit;
        std::vector<int> losers;  // who falls in each round
        int32_t winner;           // of the match; -2 while it goes on
    } cases[] = {{1, {1}, 10}, {3, {0, 1, 0}, 11}, {2, {0, 1}, Deathmatch::NO_WINNER}, {0, {-1, 1, 1}, -2}};
    for (const auto& c : cases) {
        start(c.limit, 0.0f);
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
