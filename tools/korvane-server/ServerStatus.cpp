#include "ServerStatus.h"

#include <ctime>

#include "network/Server.h"

ServerStatus::ServerStatus(Network::Server& game, int periodSeconds, FILE* stream)
    : server(game), period(std::chrono::seconds(periodSeconds)), out(stream),
      periodStart(std::chrono::steady_clock::now()) {}

namespace {

double threadCpuSeconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) + double(now.tv_nsec) * 1e-9;
}

}  // namespace

void ServerStatus::beginFrame() {
    if (period.count() <= 0) return;
    frameStart = std::chrono::steady_clock::now();
    frameCpuStart = threadCpuSeconds();
}

void ServerStatus::endFrame() {
    if (period.count() <= 0) return;
    auto now = std::chrono::steady_clock::now();
    frames.add(std::chrono::duration<double>(now - frameStart).count());
    cpuFrames.add(threadCpuSeconds() - frameCpuStart);
    if (now - periodStart < period) return;
    print(std::chrono::duration<double>(now - periodStart).count());
    periodStart = now;
    frames.reset();
    cpuFrames.reset();
}

void ServerStatus::print(double seconds) {
    uint64_t in = 0, sent = 0;
    server.socket.getTraffic(&in, &sent);
    int ready = 0;
    for (const Network::Player* player : server.players) ready += player->isReady() ? 1 : 0;
    char clock[16];
    time_t now = time(nullptr);
    strftime(clock, sizeof clock, "%H:%M:%S", localtime(&now));
    fprintf(out,
            "%s clients %d ready %d frame_ms median %.3f p99 %.3f cpu_ms median %.3f p99 %.3f "
            "bytes_per_s in %.0f out %.0f\n",
            clock, server.socket.getClientCount(), ready, frames.median() * 1e3, frames.p99() * 1e3,
            cpuFrames.median() * 1e3, cpuFrames.p99() * 1e3, double(in - bytesIn) / seconds,
            double(sent - bytesOut) / seconds);
    fflush(out);
    bytesIn = in;
    bytesOut = sent;
}
