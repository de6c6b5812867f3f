#include <deque>

#include "WorldFixture.h"
#include "gameplay/Bot.h"

namespace {

// The bot's random numbers, given as the fractions it should see.
std::deque<float> draws;
int scriptedRandom() {
    float next = draws.empty() ? 0.0f : draws.front();
    if (!draws.empty()) draws.pop_front();
    return static_cast<int>(next * 32768.0f);
}

// The bot's own fighter at (400, 400) and another 200 to its right, both at
// full health, with words of half a second. The bot's aggro is 0.35.
class BotTest : public WorldTest {
protected:
    void SetUp() override {
        WorldTest::SetUp();
        own = addFighter(400.0f, 400.0f);
        other = addFighter(600.0f, 400.0f);
        bot.random = scriptedRandom;
        draws = {0.5f};
        bot.init();
        bot.setArena(&arena);
        bot.setController(&controller);
        bot.setCharacter(own);
    }
    // One decision from a fresh start, without second thoughts about aggro.
    void decide(float aggro, std::deque<float> numbers) {
        bot.aggro = aggro;
        bot.aggroTimer = 10.0f;
        bot.actionTime = 0.0f;
        bot.target = nullptr;
        draws = numbers;
        bot.update(0.01f);
    }
    int keys() const {
        int held = 0;
        for (int action = 0; action < ACTION_COUNT; ++action) held |= controller.pressed[action] << action;
        return held;
    }

    Character* own = nullptr;
    Character* other = nullptr;
    ControllerDummy controller;
    Bot bot;
};

TEST_F(BotTest, DecisionsFollowTheDrawsAndWhatTheOthersDo) {
    const uint32_t CHARGING = Character::CHARGING, SPEAKING = Character::SPEAKING;
    struct Case { const char* what; uint32_t otherState; float otherX, aggro; std::deque<float> draws; int action;
                  float time; bool targetsOther; };
    const Case cases[] = {
        {"bold, it speaks first", CHARGING, 600, 0.6f, {0.5f, 0.5f}, Bot::BOT_SAY, 0.15f, false},
        {"bold, it waits out a word in the air", CHARGING | SPEAKING, 600, 0.6f, {0.5f}, Bot::BOT_IDLE, 0.1f, false},
        {"cautious at aggro = r, it defends from 0.5 on", CHARGING, 600, 0.5f, {0.5f, 0.5f, 0.4f}, Bot::BOT_DEFEND,
         0.2f, false},
        {"cautious, it retreats below 0.5", CHARGING, 600, 0.1f, {0.5f, 0.49f, 0.0f}, Bot::BOT_RETREAT, 1.0f, true},
        {"nobody busy, it idles below 0.25", 0, 600, 0.35f, {0.24f, 0.4f}, Bot::BOT_IDLE, 0.2f, false},
        {"at 250 it speaks for its own speakSpeed", 0, 650, 0.35f, {0.25f, 0.9f, 0.25f, 0.5f}, Bot::BOT_SAY, 0.75f,
         true},
        {"further away it approaches", 0, 651, 0.35f, {0.9f, 0.9f, 0.9f, 0.0f}, Bot::BOT_APPROACH, 0.5f, true},
        {"someone speaking, it never idles", SPEAKING, 600, 0.35f, {0.9f, 0.9f, 0.0f}, Bot::BOT_SAY, 0.5f, true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        other->state = c.otherState;
        other->position.x = c.otherX;
        decide(c.aggro, c.draws);
        EXPECT_EQ(bot.action, c.action);
        EXPECT_NEAR(bot.actionTime, c.time, 1e-4);
        EXPECT_EQ(bot.target, c.targetsOther ? other : nullptr);
        EXPECT_TRUE(draws.empty()) << draws.size() << " draws left";
        EXPECT_EQ(keys(), 0) << "keys go down in the frame after a decision";
    }
    arena.characters = {own};  // alone
    decide(0.35f, {0.9f, 0.9f});
    EXPECT_EQ(bot.action, Bot::BOT_IDLE);
    EXPECT_NEAR(bot.actionTime, 0.5f, 1e-4);
}

// The other fighter stands at (600, 550). A retreat from (400, 400) aims
// 200 x 0.8 to the left, whatever y; from straight above it there is no way
// sideways to go.
TEST_F(BotTest, KeysFollowTheActionAndStopInABoxAroundTheGoal) {
    const int A = 1 << ACTION_A, B = 1 << ACTION_B, LEFT = 1 << ACTION_LEFT, RIGHT = 1 << ACTION_RIGHT,
              UP = 1 << ACTION_UP, DOWN = 1 << ACTION_DOWN;
    struct Case { int action; float x, y; int keys; };
    other->position = Vector(600.0f, 550.0f, 0.0f, 0.0f);
    bot.target = other;
    for (const Case& c : {Case{Bot::BOT_SAY, 400, 400, A}, {Bot::BOT_DEFEND, 400, 400, B}, {Bot::BOT_IDLE, 400, 400, 0},
                          {Bot::BOT_APPROACH, 499, 449, RIGHT | DOWN}, {Bot::BOT_APPROACH, 500, 450, 0},
                          {Bot::BOT_APPROACH, 700, 650, 0}, {Bot::BOT_APPROACH, 701, 651, LEFT | UP},
                          {Bot::BOT_RETREAT, 400, 400, LEFT}, {Bot::BOT_RETREAT, 600, 400, 0}}) {
        bot.action = c.action;
        bot.actionTime = 10.0f;
        own->position = Vector(c.x, c.y, 0.0f, 0.0f);
        bot.update(0.01f);
        EXPECT_EQ(keys(), c.keys) << "action " << c.action << " at " << c.x << ", " << c.y;
    }
}

// A new fighter takes the controller and the bot starts afresh; without one
// the bot is inert: no time passes and no key changes.
TEST_F(BotTest, ANewFighterStartsAfreshAndNoFighterLeavesTheKeysAlone) {
    bot.target = other;
    bot.action = Bot::BOT_APPROACH;
    bot.actionTime = 1.0f;
    bot.setCharacter(other);
    EXPECT_EQ(own->controller, nullptr);
    EXPECT_EQ(other->controller, &controller);
    EXPECT_EQ(bot.target, nullptr);
    EXPECT_EQ(bot.action, Bot::BOT_IDLE);
    EXPECT_EQ(bot.actionTime, 0.0f);
    bot.setCharacter(nullptr);
    controller.pressed[ACTION_A] = true;
    bot.update(1.0f);
    EXPECT_EQ(bot.actionTime, 0.0f);
    EXPECT_EQ(keys(), 1 << ACTION_A);
}

}  // namespace
