#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "shell/FramePacer.h"
#include "shell/FrameStats.h"

namespace {

// Nearest rank: the smallest sample with at least that share at or below it.
TEST(FrameStats, TellsTheSampleAtTheNearestRank) {
    FrameStats stats;
    EXPECT_EQ(stats.median(), 0.0);
    stats.add(7.0);
    EXPECT_EQ(stats.p99(), 7.0);
    stats.add(3.0);
    EXPECT_EQ(stats.median(), 3.0);  // rank 1 of 2
    stats.reset();
    for (int i = 100; i >= 1; --i) stats.add(i);
    EXPECT_EQ(stats.median(), 50.0);
    EXPECT_EQ(stats.p99(), 99.0);
    EXPECT_EQ(stats.percentile(1.0), 100.0);
    stats.add(101);
    EXPECT_EQ(stats.p99(), 100.0);  // rank 100 of 101
    EXPECT_EQ(stats.percentile(0.0), 1.0);
}

TEST(FramePacer, StartsAtZeroWaitsOutItsPeriodAndCapsALateFrame) {
    FramePacer pacer(100.0);
    EXPECT_EQ(pacer.next(), 0.0f);
    auto before = std::chrono::steady_clock::now();
    float frame = pacer.next();
    EXPECT_GE(std::chrono::steady_clock::now() - before, std::chrono::milliseconds(9));
    EXPECT_GE(frame, 0.009f);
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    EXPECT_EQ(pacer.next(), 0.25f);
}

}  // namespace
