#include <gtest/gtest.h>

#include <deque>

#include "gameplay/Arena.h"
#include "gameplay/Bot.h"
#include "gameplay/Character.h"
#include "gameplay/ControllerDummy.h"

namespace {

// The bot's random numbers, given as the fractions it should see.
std::deque<float> draws;
int scriptedRandom() {
    float next = draws.empty() ? 0.0f : draws.front();
    if (!draws.empty()) draws.pop_front();
    return static_cast<int>(next * 32768.0f);
}

class BotTest : public ::testing::Test {
protected:
    void SetUp() override {
        draws.clear();
        arena.objectType = OBJECT_SERVER;
        for (int i = 0; i < 3; ++i) {
            fighters[i].id = i;
            fighters[i].maxHp = 100.0f;
            fighters[i].hp = 100.0f;
            fighters[i].speakSpeed = 2.0f;
        }
        place(fighters[0], 400.0f, 400.0f);
        place(fighters[1], 600.0f, 400.0f);
        arena.characters = {&fighters[0], &fighters[1]};
        bot.random = scriptedRandom;
        draws = {0.5f};  // aggro = 0.35
        bot.init();
        bot.setArena(&arena);
        bot.setController(&controller);
        bot.setCharacter(&fighters[0]);
    }
    void TearDown() override { arena.characters.clear(); }
    static void place(Character& fighter, float x, float y) { fighter.position = Vector(x, y, 0.0f, 0.0f); }
    bool pressed(int action) const { return controller.pressed[action]; }

    Arena arena;
    Character fighters[3];
    ControllerDummy controller;
    Bot bot;
};

TEST_F(BotTest, InitDrawsAggroBetweenATenthAndAlmostSixTenths) {
    EXPECT_NEAR(bot.aggro, 0.35f, 1e-4);
    draws = {0.0f};
    bot.init();
    EXPECT_NEAR(bot.aggro, 0.1f, 1e-4);
    draws = {32767.0f / 32768.0f};
    bot.init();
    EXPECT_LT(bot.aggro, 0.6f);
    EXPECT_GT(bot.aggro, 0.599f);
}

TEST_F(BotTest, SetCharacterMovesTheControllerAndStartsAfresh) {
    EXPECT_EQ(fighters[0].controller, &controller);
    bot.target = &fighters[1];
    bot.action = Bot::BOT_APPROACH;
    bot.actionTime = 1.0f;
    bot.setCharacter(&fighters[1]);
    EXPECT_EQ(fighters[0].controller, nullptr);
    EXPECT_EQ(fighters[1].controller, &controller);
    EXPECT_EQ(bot.target, nullptr);
    EXPECT_EQ(bot.action, Bot::BOT_IDLE);
    EXPECT_EQ(bot.actionTime, 0.0f);
    bot.setCharacter(nullptr);
    EXPECT_EQ(fighters[1].controller, nullptr);
    // Without a fighter the bot is inert: no time passes, no key changes.
    controller.pressed[ACTION_A] = true;
    bot.update(1.0f);
    EXPECT_EQ(bot.actionTime, 0.0f);
    EXPECT_TRUE(pressed(ACTION_A));
}

TEST_F(BotTest, ABoldBotSpeaksFirstWhenAnotherIsCharging) {
    fighters[1].state = Character::CHARGING;
    bot.aggro = 0.6f;
    bot.aggroTimer = 10.0f;
    draws = {0.5f, 0.5f};  // bold (0.6 > 0.5), then the word's length 0.15 s
    bot.update(0.01f);
    EXPECT_EQ(bot.action, Bot::BOT_SAY);
    EXPECT_NEAR(bot.actionTime, 0.15f, 1e-4);
    EXPECT_FALSE(pressed(ACTION_A));  // keys go down in the next frame
    bot.update(0.01f);
    EXPECT_TRUE(pressed(ACTION_A));
}

TEST_F(BotTest, ABoldBotWaitsOutAWordAlreadyInTheAir) {
    fighters[1].state = Character::CHARGING | Character::SPEAKING;
    bot.aggro = 0.6f;
    bot.aggroTimer = 10.0f;
    draws = {0.5f};
    bot.update(0.01f);
    EXPECT_EQ(bot.action, Bot::BOT_IDLE);
    EXPECT_NEAR(bot.actionTime, 0.1f, 1e-4);
}

TEST_F(BotTest, ACautiousBotDefendsOrRetreatsSidewaysOnly) {
    fighters[1].state = Character::CHARGING;
    bot.aggro = 0.1f;
    bot.aggroTimer = 10.0f;
    draws = {0.5f, 0.7f, 0.4f};  // cautious, defend, for 0.2 s
    bot.update(0.01f);
    EXPECT_EQ(bot.action, Bot::BOT_DEFEND);
    EXPECT_NEAR(bot.actionTime, 0.2f, 1e-4);
    bot.update(0.01f);
    EXPECT_TRUE(pressed(ACTION_B));

    // The attacker stands to the right and below: the retreat runs left, never
    // up or down.
    place(fighters[1], 600.0f, 550.0f);
    bot.actionTime = 0.0f;
    draws = {0.5f, 0.2f, 0.0f};  // cautious, not defend, retreat for 1 s
    bot.update(0.01f);
    EXPECT_EQ(bot.action, Bot::BOT_RETREAT);
    EXPECT_EQ(bot.target, &fighters[1]);
    EXPECT_NEAR(bot.actionTime, 1.0f, 1e-4);
    bot.update(0.01f);
    EXPECT_TRUE(pressed(ACTION_LEFT));
    EXPECT_FALSE(pressed(ACTION_RIGHT));
    EXPECT_FALSE(pressed(ACTION_UP));
    EXPECT_FALSE(pressed(ACTION_DOWN));
    EXPECT_FALSE(pressed(ACTION_B));  // released from the last action
}

TEST_F(BotTest, ApproachStopsInsideTheBoxAroundTheTarget) {
    bot.aggro = 0.1f;
    bot.aggroTimer = 10.0f;
    place(fighters[1], 900.0f, 700.0f);
    draws = {0.9f, 0.9f, 0.9f, 0.0f};  // no idle, nearest, too far to speak, 0.5 s
    bot.update(0.01f);
    ASSERT_EQ(bot.action, Bot::BOT_APPROACH);
    EXPECT_EQ(bot.target, &fighters[1]);
    bot.update(0.01f);
    EXPECT_TRUE(pressed(ACTION_RIGHT));
    EXPECT_TRUE(pressed(ACTION_DOWN));

    place(fighters[0], 801.0f, 601.0f);  // 99 short of the target on both axes
    bot.update(0.01f);
    EXPECT_FALSE(pressed(ACTION_RIGHT));
    EXPECT_FALSE(pressed(ACTION_DOWN));
    place(fighters[0], 1001.0f, 801.0f);  // 101 past it
    bot.update(0.01f);
    EXPECT_TRUE(pressed(ACTION_LEFT));
    EXPECT_TRUE(pressed(ACTION_UP));
}

TEST_F(BotTest, InRangeTheBotSpeaksForItsOwnSpeakSpeed) {
    bot.aggroTimer = 10.0f;
    draws = {0.9f, 0.9f, 0.5f, 0.5f};  // no idle, nearest, speak, 0.5 * 2 + 0.5 s
    bot.update(0.01f);
    EXPECT_EQ(bot.action, Bot::BOT_SAY);
    EXPECT_NEAR(bot.actionTime, 1.5f, 1e-4);
}

TEST_F(BotTest, TiesGoToTheLaterFighterAndTheDeadAreNeverWeakest) {
    fighters[1].hp = 30.0f;
    fighters[2].hp = 30.0f;
    place(fighters[2], 200.0f, 400.0f);  // as near as fighters[1], on the other side
    arena.characters = {&fighters[0], &fighters[1], &fighters[2]};
    bot.aggroTimer = 10.0f;
    bot.aggro = 0.6f;
    draws = {0.9f, 0.1f, 0.0f, 0.0f};  // no idle, weakest, no word, approach
    bot.update(0.01f);
    EXPECT_EQ(bot.target, &fighters[2]);

    fighters[2].hp = 0.0f;  // dead: not the weakest, but still the nearest
    bot.actionTime = 0.0f;
    draws = {0.9f, 0.1f, 0.0f, 0.0f};
    bot.update(0.01f);
    EXPECT_EQ(bot.target, &fighters[1]);
    bot.aggro = 0.1f;
    bot.actionTime = 0.0f;
    draws = {0.9f, 0.9f, 0.0f, 0.0f};
    bot.update(0.01f);
    EXPECT_EQ(bot.target, &fighters[2]);
}

TEST_F(BotTest, ABotAloneIdlesForHalfASecond) {
    arena.characters = {&fighters[0]};
    draws = {0.9f, 0.9f};
    bot.update(0.01f);
    EXPECT_EQ(bot.action, Bot::BOT_IDLE);
    EXPECT_NEAR(bot.actionTime, 0.5f, 1e-4);
    EXPECT_EQ(bot.target, nullptr);
}

TEST_F(BotTest, AggroDriftsWithHealthAndIsTestedBeforeTheStep) {
    fighters[0].hp = 100.0f;
    fighters[1].hp = 10.0f;  // the others' sum over all fighters: 5
    bot.aggro = 0.58f;
    draws = {0.9f, 0.9f, 0.0f, 0.0f};
    bot.update(0.01f);
    EXPECT_NEAR(bot.aggro, 0.63f, 1e-4);  // below 0.6 before the step
    EXPECT_NEAR(bot.aggroTimer, 0.55f, 1e-4);

    fighters[0].hp = 10.0f;
    fighters[1].hp = 100.0f;
    bot.aggro = 0.12f;
    bot.aggroTimer = 0.0f;
    bot.actionTime = 0.0f;
    draws = {0.9f, 0.9f, 0.0f, 0.0f};
    bot.update(0.01f);
    EXPECT_NEAR(bot.aggro, 0.07f, 1e-4);
    EXPECT_NEAR(bot.aggroTimer, 0.1f, 1e-4);
}

TEST_F(BotTest, ASayShorterThanAFrameNeverPressesTheKey) {
    fighters[1].state = Character::CHARGING;
    bot.aggro = 0.6f;
    bot.aggroTimer = 10.0f;
    draws = {0.0f, 0.01f};  // bold, a word of 0.003 s
    bot.update(0.02f);
    ASSERT_EQ(bot.action, Bot::BOT_SAY);
    fighters[1].state = 0;
    draws = {0.1f, 0.1f};  // the next decision: idle
    bot.update(0.02f);
    EXPECT_FALSE(pressed(ACTION_A));
}

}  // namespace
