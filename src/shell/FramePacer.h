#pragma once
#include <chrono>

// Frames at a fixed rate for a program without a window to wait on: it
// sleeps until the next frame is due instead of spinning, so an idle loop
// costs next to nothing. A frame that comes late is not made up for by a
// burst of short ones.
class FramePacer {
public:
    using Clock = std::chrono::steady_clock;

    explicit FramePacer(double framesPerSecond);

    // Sleeps until the next frame is due and returns the frame time: the
    // seconds since the previous frame began, at most a quarter of a second
    // (the game's own bound). The first frame gets 0.
    float next();

private:
    Clock::duration period;
    Clock::time_point due;
    Clock::time_point last;
    bool started = false;
};
