#include "shell/FramePacer.h"

#include <thread>

#include "shell/FrameTimer.h"

FramePacer::FramePacer(double framesPerSecond)
    : period(std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(1.0 / framesPerSecond))) {}

float FramePacer::next() {
    Clock::time_point now = Clock::now();
    if (!started) {
        started = true;
        due = now + period;
        last = now;
        return 0.0f;
    }
    if (now < due) {
        std::this_thread::sleep_until(due);
        now = Clock::now();
        due += period;
    } else {
        // Late: the next frame is a whole period from now.
        due = now + period;
    }
    float time = std::chrono::duration<float>(now - last).count();
    last = now;
    return time < FrameTimer::LARGEST ? time : FrameTimer::LARGEST;
}
