#include "shell/FrameStats.h"

#include <algorithm>
#include <cmath>

double FrameStats::percentile(double share) const {
    if (samples.empty()) return 0.0;
    // Nearest rank: the smallest sample with at least `share` of them at or below it.
    double rank = std::ceil(share * static_cast<double>(samples.size()));
    size_t index = rank < 1.0 ? 0 : static_cast<size_t>(rank) - 1;
    if (index >= samples.size()) index = samples.size() - 1;
    std::vector<double> sorted(samples);
    std::nth_element(sorted.begin(), sorted.begin() + static_cast<std::ptrdiff_t>(index), sorted.end());
    return sorted[index];
}
