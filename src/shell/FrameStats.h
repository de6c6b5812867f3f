#pragma once
#include <cstddef>
#include <vector>

// Durations of frames gathered over a period and told as a median and a
// 99th percentile, the two numbers that say how a loop keeps up: the usual
// frame, and the slow one that players notice.
class FrameStats {
public:
    void add(double seconds) { samples.push_back(seconds); }
    size_t count() const { return samples.size(); }
    // The value at or below which `share` (0 to 1) of the samples lie, by
    // the nearest rank; 0 when there are none.
    double percentile(double share) const;
    double median() const { return percentile(0.5); }
    double p99() const { return percentile(0.99); }
    // Starts a new period.
    void reset() { samples.clear(); }

private:
    std::vector<double> samples;
};
