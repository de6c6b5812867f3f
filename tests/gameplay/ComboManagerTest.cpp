#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "gameplay/ComboManager.h"
#include "shell/EventClock.h"

namespace {

int32_t fakeNow = 0;
int32_t fakeClock() { return fakeNow; }

const int IDLE = 0;

class ComboManagerTest : public ::testing::Test {
protected:
    void SetUp() override {
        fakeNow = 5000;
        EventClock::setSource(fakeClock);
    }
    void TearDown() override { EventClock::setSource(nullptr); }

    void addCombo(int32_t ref, std::vector<const char*> tokens) {
        Combo combo;
        combo.ref = ref;
        for (const char* token : tokens)
            if (int32_t mask = ComboManager::tokenMask(token)) combo.sequence.push_back(mask);
        manager.combos.push_back(combo);
        manager.dirty = true;
    }

    // Emits as a fighter does: the event, then a check. Returns the ref of
    // the combo recognised on this event, and starts it as the fighter does.
    int32_t press(int input, int32_t afterMs = 50) {
        fakeNow += afterMs;
        Event event;
        event.type = EVENT_CHARACTER;
        event.input = input;
        manager.onEvent(event);
        manager.check();
        if (!manager.matched) return 0;
        int32_t ref = manager.matched->ref;
        manager.matched = nullptr;
        return ref;
    }

    int32_t pressAll(const std::vector<int>& inputs) {
        int32_t ref = 0;
        for (int input : inputs) ref = press(input);
        return ref;
    }

    ComboManager manager;
};

TEST_F(ComboManagerTest, TokensAreExactNamesOfTheInputBits) {
    const std::pair<const char*, int32_t> known[] = {
        {"move", 0x001},   {"move-left", 0x002}, {"move-right", 0x004}, {"move-up", 0x008},
        {"move-down", 0x010}, {"charge", 0x020}, {"say", 0x040},        {"defend", 0x080},
        {"hit", 0x100},    {"hit-self", 0x200},  {"jump", 0x400},       {"combo", 0x800},
    };
    for (const auto& token : known) EXPECT_EQ(ComboManager::tokenMask(token.first), token.second) << token.first;
    for (const char* unknown : {"Say", "say ", "", "move-", "hitself"}) EXPECT_EQ(ComboManager::tokenMask(unknown), 0);
    EXPECT_EQ(ComboManager::tokenMask(nullptr), 0);
}

TEST_F(ComboManagerTest, StepsMustComeInOrderWithoutForeignInputBetween) {
    struct Case {
        const char* what;
        std::vector<const char*> tokens;
        std::vector<int> inputs;
        bool recognised;
    };
    const Case cases[] = {
        {"in order", {"defend", "charge", "say"}, {INPUT_DEFEND, IDLE, INPUT_CHARGE, INPUT_SAY}, true},
        {"out of order", {"say", "defend"}, {INPUT_DEFEND, IDLE, INPUT_SAY}, false},
        {"foreign input resets", {"charge", "say"}, {INPUT_CHARGE, INPUT_MOVE | INPUT_LEFT, INPUT_SAY}, false},
        {"failed entry is not tried as the first step", {"say", "defend"},
         {INPUT_SAY, IDLE, INPUT_SAY, INPUT_DEFEND}, false},
        {"a failure before the start does no harm", {"say", "defend"}, {INPUT_DEFEND, INPUT_SAY, INPUT_DEFEND}, true},
        {"any shared bit is enough", {"move", "move-left"},
         {INPUT_MOVE | INPUT_RIGHT | INPUT_UP, INPUT_MOVE | INPUT_LEFT | INPUT_DOWN}, true},
        {"hit-self wants the word that struck back", {"hit-self"}, {INPUT_HIT}, false},
        {"hit takes both kinds", {"hit"}, {INPUT_HIT | INPUT_HIT_SELF}, true},
        {"no steps is never recognised", {"nonsense"}, {INPUT_SAY, INPUT_DEFEND}, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        manager.clear();
        addCombo(7, c.tokens);
        EXPECT_EQ(pressAll(c.inputs), c.recognised ? 7 : 0);
    }
}

TEST_F(ComboManagerTest, FirstRegisteredThatCompletesWinsAndEmptiesTheQueue) {
    addCombo(1, {"defend", "charge"});
    addCombo(2, {"defend"});
    // The short combo completes first, and the long one never sees its charge.
    EXPECT_EQ(press(INPUT_DEFEND), 2);
    EXPECT_TRUE(manager.queue.empty());
    EXPECT_EQ(press(INPUT_CHARGE), 0);

    manager.clear();
    addCombo(1, {"charge"});
    addCombo(2, {"defend", "charge"});
    EXPECT_EQ(pressAll({INPUT_DEFEND, IDLE, INPUT_CHARGE}), 1);
}

TEST_F(ComboManagerTest, RestLongerThanTheBreakStartsTheChainAgain) {
    addCombo(9, {"defend", "charge", "say"});
    press(INPUT_DEFEND);
    // Defence held for two seconds is no pause.
    press(IDLE, 2000);
    press(INPUT_CHARGE, ComboManager::BREAK_MS);
    EXPECT_EQ(press(INPUT_SAY, 300), 9);

    press(INPUT_DEFEND);
    press(IDLE);
    press(INPUT_CHARGE, ComboManager::BREAK_MS + 1);
    EXPECT_EQ(press(INPUT_SAY), 0);
    ASSERT_EQ(manager.queue.size(), 2u);
    EXPECT_EQ(manager.queue.front().input, INPUT_CHARGE);
}

TEST_F(ComboManagerTest, HeldInputIsOneEntryAndLeavesTheCheckAlone) {
    addCombo(3, {"move-left", "say"});
    press(INPUT_MOVE | INPUT_LEFT);
    for (int frame = 0; frame < 30; ++frame) press(INPUT_MOVE | INPUT_LEFT, 16);
    ASSERT_EQ(manager.queue.size(), 1u);
    EXPECT_EQ(manager.queue.back().endTime, fakeNow);
    EXPECT_FALSE(manager.dirty);
    EXPECT_EQ(press(INPUT_SAY), 3);
}

TEST_F(ComboManagerTest, CheckRunsOnlyAfterAChange) {
    press(INPUT_DEFEND);
    addCombo(4, {"defend"});
    manager.dirty = false;
    manager.check();
    EXPECT_EQ(manager.matched, nullptr);
    manager.dirty = true;
    manager.check();
    ASSERT_NE(manager.matched, nullptr);
    EXPECT_EQ(manager.matched->ref, 4);
}

TEST_F(ComboManagerTest, FighterWhoNeverRestsKeepsABoundedQueueAndItsCombos) {
    addCombo(5, {"defend", "charge", "say"});
    for (int i = 0; i < 1000; ++i) press(i % 2 ? INPUT_MOVE | INPUT_LEFT : INPUT_MOVE | INPUT_RIGHT, 16);
    EXPECT_LE(manager.queue.size(), ComboManager::LONGEST_QUEUE);
    EXPECT_EQ(pressAll({INPUT_DEFEND, IDLE, INPUT_CHARGE, INPUT_SAY}), 5);
}

TEST_F(ComboManagerTest, ClearForgetsCombosQueueAndMatch) {
    addCombo(6, {"say"});
    press(INPUT_DEFEND);
    manager.matched = &manager.combos[0];
    manager.clear();
    EXPECT_TRUE(manager.combos.empty());
    EXPECT_TRUE(manager.queue.empty());
    EXPECT_EQ(manager.matched, nullptr);
}

}  // namespace
