#include <gtest/gtest.h>

#include <vector>

#include "shell/FrameTimer.h"

namespace {

// A scripted clock: each read returns the next value.
std::vector<uint32_t> clockValues;
size_t clockIndex = 0;
std::vector<uint32_t> sleeps;

uint32_t fakeTicks() { return clockValues.at(clockIndex++); }
void fakeSleep(uint32_t ms) { sleeps.push_back(ms); }

TEST(FrameTimerTest, FramesAreMeasuredCutAtAQuarterSecondAndNeverShorterThanOneSleep) {
    struct Case {
        const char* what;
        std::vector<uint32_t> clock;
        float frameTime;
        std::vector<uint32_t> sleeps;
    };
    const Case cases[] = {
        {"ordinary", {1000, 1016}, 0.016f, {}},
        {"slow frame is cut", {1000, 1300}, 0.25f, {}},
        {"wrapped clock", {0xFFFFFFF0u, 0x00000004u}, 0.020f, {}},
        // One sleep, then the second measure is taken as it is.
        {"under a millisecond", {500, 500, 500}, 0.0f, {1}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        clockValues = c.clock;
        clockIndex = 0;
        sleeps.clear();
        FrameTimer timer(fakeTicks, fakeSleep);
        EXPECT_EQ(timer.frameTime(), 0.0f);
        timer.begin();
        EXPECT_FLOAT_EQ(timer.end(), c.frameTime);
        EXPECT_EQ(sleeps, c.sleeps);
        EXPECT_EQ(clockIndex, c.clock.size());
    }
}

}  // namespace
