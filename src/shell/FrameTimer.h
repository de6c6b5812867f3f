#pragma once
#include <cstdint>

// The frame time of the main loop: the measured length of the last frame in
// seconds, at most a quarter of a second, with a 1 ms sleep for a frame that
// was too short to measure.
class FrameTimer {
public:
    static constexpr float SMALLEST = 0.001f;
    static constexpr float LARGEST = 0.25f;

    // ticks reads a millisecond clock, sleep waits a number of milliseconds.
    FrameTimer(uint32_t (*ticks)(), void (*sleep)(uint32_t));

    void begin();
    // Measures the frame that began at begin() and returns the new frame time.
    float end();
    float frameTime() const { return time; }

private:
    uint32_t (*ticks)();
    void (*sleep)(uint32_t);
    uint32_t start = 0;
    float time = 0.0f;
};
