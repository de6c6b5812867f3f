#pragma once
#include <chrono>
#include <cstdint>
#include <cstdio>

#include "shell/FrameStats.h"

namespace Network {
class Server;
}

// The line a dedicated server prints every period: who is connected, who
// plays, how long its frames take and how much it sends and receives. A
// frame's time is told twice: as the clock on the wall saw it, and as the
// processor spent it on this thread; on a busy machine the two differ by
// the time the thread waited for its turn.
class ServerStatus {
public:
    ServerStatus(Network::Server& server, int periodSeconds, FILE* out);

    void beginFrame();
    // Counts the frame; prints and starts a new period when one is over.
    void endFrame();

private:
    void print(double seconds);

    Network::Server& server;
    std::chrono::steady_clock::duration period;
    FILE* out;
    std::chrono::steady_clock::time_point periodStart;
    FrameStats frames;
    FrameStats cpuFrames;
    std::chrono::steady_clock::time_point frameStart;
    double frameCpuStart = 0.0;
    uint64_t bytesIn = 0;
    uint64_t bytesOut = 0;
};
