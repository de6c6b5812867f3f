// What a player waits for and what hosting costs, run under a display
// (xvfb-run): the start of the staged game to its first drawn menu frame, and
// the main thread's frame hosting 2 players and 8 bots against the frame of
// the stand-alone duel, in one run. Each frame is timed on its own, so the
// counters give the median and the 99th percentile in milliseconds; the
// resident memory of the whole process is read at the end.
#include <benchmark/benchmark.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <string>
#include <vector>

#include "../support/GameProcess.h"
#include "BenchSupport.h"
#include "frontend/DemoServer.h"
#include "gameplay/Arena.h"
#include "gameplay/ControllerManager.h"
#include "shell/Log.h"
#include "shell/StandaloneScene.h"

namespace {

const float FRAME = 1.0f / 60.0f;
const int PORT = 17391;

using Clock = std::chrono::steady_clock;

// Resident memory of a process in MB, from /proc.
double residentMb(pid_t pid) {
    std::ifstream status("/proc/" + std::to_string(pid) + "/status");
    for (std::string line; std::getline(status, line);)
        if (line.rfind("VmRSS:", 0) == 0) return std::stod(line.substr(6)) / 1024.0;
    return 0.0;
}

// Times every iteration of `frame`, and reports the median and p99.
template <typename Frame>
void timeFrames(benchmark::State& state, Frame frame) {
    std::vector<double> ms;
    for (auto _ : state) {
        const auto begin = Clock::now();
        frame();
        ms.push_back(std::chrono::duration<double, std::milli>(Clock::now() - begin).count());
    }
    std::sort(ms.begin(), ms.end());
    state.counters["median_ms"] = ms[ms.size() / 2];
    state.counters["p99_ms"] = ms[ms.size() * 99 / 100];
    state.counters["rss_MB"] = residentMb(getpid());
}

// The game's world and its controllers, without the log in the report.
bool enterGame() {
    if (!openWindow() || !enterGameData()) return false;
    Log::setFlags(0);
    ControllerManager::init("config.nvo");
    return true;
}

void BM_StandaloneDuelFrame(benchmark::State& state) {
    if (!enterGame()) return state.SkipWithError("no window or no game data");
    StandaloneScene scene;
    scene.init();
    timeFrames(state, [&] {
        scene.update(FRAME);
        scene.draw();
        Render::flip();
    });
    scene.clear();
}
BENCHMARK(BM_StandaloneDuelFrame)->Iterations(1200)->Unit(benchmark::kMillisecond)->UseRealTime();

// From the first frame on which the first player's world holds all ten.
void BM_Hosting2PlayersAnd8BotsFrame(benchmark::State& state) {
    if (!enterGame()) return state.SkipWithError("no window or no game data");
    DemoServer hosting(PORT);
    hosting.setup(2, 8);
    hosting.init();
    Network::Client& shown = *hosting.game.players.front();
    for (int frame = 0; frame < 100000; ++frame) {
        if (shown.gameState == 1 && shown.arena && shown.arena->characters.size() == 10) break;
        hosting.update(FRAME);
        SDL_Delay(1);
    }
    if (shown.arena->characters.size() != 10) return state.SkipWithError("the game never started");
    timeFrames(state, [&] {
        hosting.update(FRAME);
        hosting.draw();
        Render::flip();
    });
    hosting.clear();
}
BENCHMARK(BM_Hosting2PlayersAnd8BotsFrame)->Iterations(1200)->Unit(benchmark::kMillisecond)->UseRealTime();

// The staged game started in a fresh folder each time, until its log tells
// of the first frame; the wall time includes loading the program.
void BM_StartUpToFirstMenuFrame(benchmark::State& state) {
    char folder[] = "/tmp/korvane-bench-XXXXXX";
    if (!mkdtemp(folder)) return state.SkipWithError("no temporary folder");
    int run = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const std::string dir = std::string(folder) + "/" + std::to_string(run++);
        mkdir(dir.c_str(), 0700);
        GameProcess game(KORVANE_BINARY_DIR "/game", dir);
        state.ResumeTiming();
        game.start();
        const auto deadline = Clock::now() + std::chrono::seconds(30);
        while (game.count("main: pierwsza klatka") == 0 && Clock::now() < deadline) usleep(500);
        state.PauseTiming();
        if (Clock::now() >= deadline) return state.SkipWithError("the game showed no frame");
        state.counters["rss_MB"] = residentMb(game.id());
        game.stop(SIGKILL);
        state.ResumeTiming();
    }
    const std::string cleanUp = std::string("rm -rf ") + folder;
    if (system(cleanUp.c_str()) != 0) state.SkipWithError("temporary folder left behind");
}
BENCHMARK(BM_StartUpToFirstMenuFrame)->Iterations(10)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
