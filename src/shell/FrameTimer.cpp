#include "shell/FrameTimer.h"

FrameTimer::FrameTimer(uint32_t (*ticksFn)(), void (*sleepFn)(uint32_t)) : ticks(ticksFn), sleep(sleepFn) {}

void FrameTimer::begin() { start = ticks(); }

float FrameTimer::end() {
    // Unsigned difference, so a wrapped clock still gives the right length.
    time = static_cast<float>(ticks() - start) / 1000.0f;
    if (time < SMALLEST) {
        sleep(1);
        time = static_cast<float>(ticks() - start) / 1000.0f;
    } else if (time > LARGEST) {
        time = LARGEST;
    }
    return time;
}
