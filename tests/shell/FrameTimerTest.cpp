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

class FrameTimerTest : public ::testing::Test {
protected:
    void SetUp() override {
        clockValues.clear();
        clockIndex = 0;
        sleeps.clear();
    }
};

TEST_F(FrameTimerTest, TheFirstFrameRunsWithZero) {
    FrameTimer timer(fakeTicks, fakeSleep);
    EXPECT_EQ(timer.frameTime(), 0.0f);
}

TEST_F(FrameTimerTest, ASlowFrameIsCutToAQuarterSecond) {
    clockValues = {1000, 1300};
    FrameTimer timer(fakeTicks, fakeSleep);
    timer.begin();
    EXPECT_FLOAT_EQ(timer.end(), 0.25f);
    EXPECT_TRUE(sleeps.empty());
}

TEST_F(FrameTimerTest, AnOrdinaryFrameIsMeasured) {
    clockValues = {1000, 1016};
    FrameTimer timer(fakeTicks, fakeSleep);
    timer.begin();
    EXPECT_FLOAT_EQ(timer.end(), 0.016f);
}

TEST_F(FrameTimerTest, AFrameUnderAMillisecondSleepsOnceAndTakesTheSecondMeasureUnchecked) {
    clockValues = {500, 500, 500};
    FrameTimer timer(fakeTicks, fakeSleep);
    timer.begin();
    EXPECT_EQ(timer.end(), 0.0f);
    EXPECT_EQ(sleeps, std::vector<uint32_t>{1});
}

TEST_F(FrameTimerTest, AWrappedClockStillGivesTheTrueLength) {
    clockValues = {0xFFFFFFF0u, 0x00000004u};
    FrameTimer timer(fakeTicks, fakeSleep);
    timer.begin();
    EXPECT_FLOAT_EQ(timer.end(), 0.020f);
}

}  // namespace
