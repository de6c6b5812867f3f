#include <gtest/gtest.h>

#include <vector>

#include "gameplay/ComboManager.h"
#include "shell/EventClock.h"

namespace {

int32_t fakeNow = 0;
int32_t fakeClock() { return fakeNow; }

const int IDLE = 0;
const int LEFT = INPUT_MOVE | INPUT_LEFT;

class ComboManagerTest : public ::testing::Test {
protected:
    void SetUp() override { EventClock::setSource(fakeClock); }
    void TearDown() override { EventClock::setSource(nullptr); }

    void addCombo(int32_t ref, std::vector<const char*> tokens) {
        Combo combo;
        combo.ref = ref;
        for (const char* token : tokens)
            if (int32_t mask = ComboManager::tokenMask(token)) combo.sequence.push_back(mask);
        manager.combos.push_back(combo);
        manager.dirty = true;
    }

    // Emits and checks as a fighter does, and takes over a recognised combo;
    // returns its ref, or 0.
    int32_t press(int input, int32_t afterMs = 50) {
        fakeNow += afterMs;
        Event event;
        event.input = input;
        manager.onEvent(event);
        manager.check();
        int32_t ref = manager.matched ? manager.matched->ref : 0;
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
        {"foreign input resets", {"charge", "say"}, {INPUT_CHARGE, LEFT, INPUT_SAY}, false},
        {"failed entry isn't tried as the first step", {"say", "defend"}, {INPUT_SAY, IDLE, INPUT_SAY, INPUT_DEFEND}, false},
        {"failure before the start does no harm", {"say", "defend"}, {INPUT_DEFEND, INPUT_SAY, INPUT_DEFEND}, true},
        {"one shared bit is enough", {"move", "move-left"}, {INPUT_MOVE | INPUT_RIGHT, LEFT | INPUT_DOWN}, true},
        {"hit-self wants the word that struck back", {"hit-self"}, {INPUT_HIT}, false},
        {"tokens are exact", {"Say", "say "}, {INPUT_SAY}, false},
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
    EXPECT_EQ(press(INPUT_DEFEND), 2);
    EXPECT_EQ(press(INPUT_CHARGE), 0);
    manager.clear();
    addCombo(1, {"charge"});
    addCombo(2, {"defend", "charge"});
    EXPECT_EQ(pressAll({INPUT_DEFEND, IDLE, INPUT_CHARGE}), 1);
}

TEST_F(ComboManagerTest, OnlyRestLongerThanTheBreakStartsTheChainAgain) {
    addCombo(9, {"defend", "charge", "say"});
    press(INPUT_DEFEND);
    press(IDLE, 2000);  // defence held for two seconds is no pause
    press(INPUT_CHARGE, ComboManager::BREAK_MS);
    EXPECT_EQ(press(INPUT_SAY, 300), 9);

    pressAll({INPUT_DEFEND, IDLE});
    press(INPUT_CHARGE, ComboManager::BREAK_MS + 1);
    EXPECT_EQ(press(INPUT_SAY), 0);
    EXPECT_EQ(manager.queue.size(), 2u);
}

TEST_F(ComboManagerTest, HeldInputIsOneEntryAndNoWorkForTheCheck) {
    addCombo(3, {"move-left", "say"});
    for (int frame = 0; frame < 30; ++frame) press(LEFT, 16);
    EXPECT_EQ(manager.queue.size(), 1u);
    EXPECT_EQ(manager.queue.back().endTime, fakeNow);
    EXPECT_FALSE(manager.dirty);
    EXPECT_EQ(press(INPUT_SAY), 3);
}

TEST_F(ComboManagerTest, FighterWhoNeverRestsKeepsABoundedQueueAndItsCombos) {
    addCombo(5, {"defend", "charge", "say"});
    for (int i = 0; i < 1000; ++i) press(i % 2 ? LEFT : INPUT_MOVE | INPUT_RIGHT, 16);
    EXPECT_LE(manager.queue.size(), ComboManager::LONGEST_QUEUE);
    EXPECT_EQ(pressAll({INPUT_DEFEND, IDLE, INPUT_CHARGE, INPUT_SAY}), 5);
}

}  // namespace
