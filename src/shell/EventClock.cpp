#include "shell/EventClock.h"

#include <chrono>

namespace {

int32_t steadyMilliseconds() {
    static const auto start = std::chrono::steady_clock::now();
    auto elapsed = std::chrono::steady_clock::now() - start;
    return static_cast<int32_t>(std::chrono::duration_cast<std::chrono::milliseconds>(elapsed).count());
}

int32_t (*source)() = steadyMilliseconds;

}  // namespace

namespace EventClock {

int32_t now() { return source(); }

void setSource(int32_t (*replacement)()) { source = replacement ? replacement : steadyMilliseconds; }

}  // namespace EventClock
