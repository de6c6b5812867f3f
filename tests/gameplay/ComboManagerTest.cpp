#include <gtest/gtest.h>

#include <vector>

#include "gameplay/ComboManager.h"
#include "shell/EventClock.h"

namespace {

int32_t fakeNow = 0;
int32_t fakeClock() { return fakeNow; }

const int IDLE = 0, LEFT = INPUT_MOVE | INPUT_LEFT;

// Combos are numbered from 1 in order of registration. Inputs come 50 ms
// apart unless said otherwise, each emitted and checked as a fighter does;
// press() gives the number of a combo recognised at the last one, or 0.
class ComboManagerTest : public ::testing::Test {
protected:
    void SetUp() override { EventClock::setSource(fakeClock); }
    void TearDown() override { EventClock::setSource(nullptr); }
    void add(const std::vector<std::vector<const char*>>& combos) {
        for (const auto& tokens : combos) {
            manager.combos.push_back({static_cast<int32_t>(manager.combos.size()) + 1, {}});
            for (const char* token : tokens)
                if (int32_t mask = ComboManager::tokenMask(token)) manager.combos.back().sequence.push_back(mask);
        }
        manager.dirty = true;
    }
    int32_t press(const std::vector<int>& inputs, int32_t afterMs = 50) {
        int32_t ref = 0;
        for (int input : inputs) {
            fakeNow += afterMs;
            Event event;
            event.input = input;
            manager.onEvent(event);
            manager.check();
            ref = manager.matched ? manager.matched->ref : 0;
            manager.matched = nullptr;
        }
        return ref;
    }
    ComboManager manager;
};

TEST_F(ComboManagerTest, StepsMustComeInOrderWithoutForeignInputBetween) {
    struct Case { const char* what; std::vector<std::vector<const char*>> combos; std::vector<int> inputs; int32_t ref; };
    const Case cases[] = {
        {"in order", {{"defend", "charge", "say"}}, {INPUT_DEFEND, IDLE, INPUT_CHARGE, INPUT_SAY}, 1},
        {"out of order", {{"say", "defend"}}, {INPUT_DEFEND, IDLE, INPUT_SAY}, 0},
        {"foreign input resets", {{"charge", "say"}}, {INPUT_CHARGE, LEFT, INPUT_SAY}, 0},
        {"failed entry isn't tried as the first step", {{"say", "defend"}}, {INPUT_SAY, IDLE, INPUT_SAY, INPUT_DEFEND},
         0},
        {"failure before the start does no harm", {{"say", "defend"}}, {INPUT_DEFEND, INPUT_SAY, INPUT_DEFEND}, 1},
        {"one shared bit is enough", {{"move", "move-left"}}, {INPUT_MOVE | INPUT_RIGHT, LEFT | INPUT_DOWN}, 1},
        {"hit-self wants the word that struck back", {{"hit-self"}}, {INPUT_HIT}, 0},
        {"tokens are exact", {{"Say", "say "}}, {INPUT_SAY}, 0},
        {"a held input is one entry", {{"move-left", "move-left"}}, {LEFT, LEFT}, 0},
        {"the first registered that completes wins", {{"defend", "charge"}, {"defend"}}, {INPUT_DEFEND}, 2},
        {"and empties the queue", {{"defend", "charge"}, {"defend"}}, {INPUT_DEFEND, INPUT_CHARGE}, 0},
        {"even over a longer one", {{"charge"}, {"defend", "charge"}}, {INPUT_DEFEND, IDLE, INPUT_CHARGE}, 1},
    };
    for (const Case& c : cases) {
        manager.clear();
        add(c.combos);
        EXPECT_EQ(press(c.inputs), c.ref) << c.what;
    }
}

TEST_F(ComboManagerTest, OnlyRestLongerThanTheBreakStartsTheChainAgain) {
    add({{"defend", "charge", "say"}});
    press({INPUT_DEFEND});
    press({IDLE}, 2000);  // defence held for two seconds is no pause
    EXPECT_EQ(manager.queue.front().endTime, fakeNow);
    press({INPUT_CHARGE}, ComboManager::BREAK_MS);
    EXPECT_EQ(press({INPUT_SAY}, 300), 1);
    press({INPUT_DEFEND, IDLE});
    press({INPUT_CHARGE}, ComboManager::BREAK_MS + 1);
    EXPECT_EQ(press({INPUT_SAY}), 0);
}

}  // namespace
