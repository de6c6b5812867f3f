#pragma once
#include <chrono>
#include <cstdint>
#include <cstdio>

#include "shell/FrameStats.h"

namespace Network {
class Server;
}

// The line a dedicated server prints every period: who is connected, who
// plays, how long its frames take and how much it sends and receives.
class ServerStatus {
public:
    ServerStatus(Network::Server& server, int periodSeconds, FILE* out);

    // Counts one frame's work; prints and starts a new period when one is over.
    void frameDone(double workSeconds);

private:
    void print(double seconds);

    Network::Server& server;
    std::chrono::steady_clock::duration period;
    FILE* out;
    std::chrono::steady_clock::time_point periodStart;
    FrameStats frames;
    uint64_t bytesIn = 0;
    uint64_t bytesOut = 0;
};
