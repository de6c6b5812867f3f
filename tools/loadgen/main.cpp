// Puts a load on a game server: bot clients from one process, without a
// window, play on it for a while; then it reports what each received.
//
//   loadgen [--address HOST[:PORT]] [--clients N] [--seconds S]
//
// Run it in the staged game directory (it reads "data.ini" like the game);
// its own log goes to "loadgen.log" there. Exit 1 when a client did not join
// or a rate was off, 2 on bad usage.
#include <SDL/SDL.h>
#include <SDL/SDL_net.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <string>
#include <vector>

#include "LoadClient.h"
#include "LoadReport.h"
#include "network/Packet.h"
#include "resources/Resource.h"
#include "shell/FramePacer.h"
#include "shell/FrameStats.h"
#include "shell/Log.h"
#include "shell/RunLog.h"

namespace {

const char* const LOG_FILE = "loadgen.log";
const int MAX_CLIENTS = 64;
// Clients run at the frame rate of a game in a window.
const double FRAMES_PER_SECOND = 60.0;
// How long frames must keep pace, everybody in, before the traffic is counted.
const double SETTLE_SECONDS = 1.0;

struct Options {
    std::string host = "127.0.0.1";
    int port = Packet::PORT;
    int clients = 16;
    double seconds = 10.0;
};

int usage() {
    fprintf(stderr, "usage: loadgen [--address HOST[:PORT]] [--clients 1-%d] [--seconds S]\n", MAX_CLIENTS);
    return 2;
}

bool parseNumber(const std::string& text, double low, double high, double* value) {
    char* end = nullptr;
    double number = strtod(text.c_str(), &end);
    if (text.empty() || *end != '\0' || !(number >= low && number <= high)) return false;
    *value = number;
    return true;
}

bool parseAddress(const std::string& text, Options* options) {
    size_t colon = text.rfind(':');
    options->host = text.substr(0, colon);
    if (options->host.empty()) return false;
    if (colon == std::string::npos) return true;
    double port = 0;
    if (!parseNumber(text.substr(colon + 1), 1, 65535, &port) || port != int(port)) return false;
    options->port = int(port);
    return true;
}

bool parseOptions(int argc, char** argv, Options* options) {
    for (int i = 1; i < argc; ++i) {
        std::string arg = argv[i];
        if (i + 1 >= argc) return false;
        std::string value = argv[++i];
        double number = 0;
        if (arg == "--address") {
            if (!parseAddress(value, options)) return false;
        } else if (arg == "--clients") {
            if (!parseNumber(value, 1, MAX_CLIENTS, &number) || number != int(number)) return false;
            options->clients = int(number);
        } else if (arg == "--seconds") {
            if (!parseNumber(value, 1, 86400, &number)) return false;
            options->seconds = number;
        } else {
            return false;
        }
    }
    return true;
}

double secondsSince(std::chrono::steady_clock::time_point start) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

LoadReport play(const Options& options) {
    std::vector<std::unique_ptr<LoadClient>> clients;
    for (int i = 0; i < options.clients; ++i)
        clients.push_back(std::make_unique<LoadClient>(options.host, options.port));
    // The tally opens once everybody is in and every world has loaded every
    // fighter, which shows as frames that keep pace again; or halfway
    // through, if that never comes.
    const double period = 1.0 / FRAMES_PER_SECOND;
    double calmSince = -1.0;
    bool open = false;
    FrameStats frames;
    FramePacer pacer(FRAMES_PER_SECOND);
    const auto start = std::chrono::steady_clock::now();
    for (;;) {
        float dt = pacer.next();
        double now = secondsSince(start);
        if (now >= options.seconds) break;
        bool everyoneIn = true;
        for (auto& client : clients) {
            client->update(dt, now);
            everyoneIn = everyoneIn && client->joined();
        }
        double work = secondsSince(start) - now;
        if (open) {
            frames.add(work);
            continue;
        }
        if (!everyoneIn || work >= period)
            calmSince = -1.0;
        else if (calmSince < 0)
            calmSince = now;
        if ((calmSince >= 0 && now - calmSince >= SETTLE_SECONDS) || now >= options.seconds / 2) {
            open = true;
            for (auto& client : clients) client->openTally();
        }
    }
    LoadReport report;
    // A load generator that cannot keep its own frame rate measures itself.
    report.frameMedian = frames.median();
    report.frameP99 = frames.p99();
    for (auto& client : clients)
        report.rows.push_back(
            {client->everJoined(), client->id(), client->reconnects(), client->ping(), client->closeTally()});
    return report;
}

}  // namespace

int main(int argc, char** argv) {
    Options options;
    if (!parseOptions(argc, argv, &options)) return usage();

    // The report keeps standard output; the clients' log lines, some of which
    // are written straight to standard output, go to the log.
    FILE* out = RunLog::takeStandardOutput(LOG_FILE, "loadgen");
    if (!out) return 1;
    Log::setFlags(Log::LOG_INFO | Log::LOG_FAIL | Log::LOG_OK);
    Log::info("loadgen: Start");
    srand(static_cast<unsigned>(time(nullptr)));
    if (!Resource::open("data.ini")) {
        fprintf(stderr, "loadgen: no data.ini here; run it in the staged game directory\n");
        return 1;
    }
    SDL_Init(SDL_INIT_NOPARACHUTE);
    if (SDLNet_Init() != 0) {
        fprintf(stderr, "loadgen: the network could not be started\n");
        return 1;
    }
    fprintf(out, "loadgen: %d clients on %s:%d for %.0f s\n", options.clients, options.host.c_str(), options.port,
            options.seconds);
    fflush(out);
    bool passed = play(options).print(out);
    fclose(out);
    SDLNet_Quit();
    SDL_Quit();
    Resource::clear();
    Log::info("loadgen: Stop");
    return passed ? 0 : 1;
}
