// The game's dedicated server: a deathmatch hosted on a machine without a
// screen or a sound device, for as long as it runs.
//
//   korvane-server [--arena arena/SCRIPT] [--bots 0-63] [--status SECONDS] [--port PORT]
//
// It reads "data.ini" and appends to "log.txt" in its working directory, as
// the game does; status lines go to standard output. Bots are clients of its own over the
// loopback. SIGINT or SIGTERM ends it in order, with exit code 0.
#include <SDL/SDL.h>
#include <SDL/SDL_net.h>

#include <csignal>
#include <cstdio>

#include "ServerOptions.h"
#include "ServerStatus.h"
#include "network/LocalGame.h"
#include "resources/Database.h"
#include "resources/Resource.h"
#include "shell/FramePacer.h"
#include "shell/Log.h"
#include "shell/RunLog.h"

namespace {

const char* const LOG_FILE = "log.txt";
const int EXIT_NO_DATA = 185;
const int EXIT_NO_PORT = 1;
const int EXIT_USAGE = 2;
// A server frame as often as a game in a window draws one.
const double FRAMES_PER_SECOND = 60.0;

volatile sig_atomic_t stopSignal = 0;

void onStopSignal(int signal) { stopSignal = signal; }

void catchStopSignals() {
    struct sigaction action {};
    action.sa_handler = onStopSignal;
    sigemptyset(&action.sa_mask);
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
}

// Frames until a stop signal comes.
void serve(Network::LocalGame& game, ServerStatus& status) {
    FramePacer pacer(FRAMES_PER_SECOND);
    while (!stopSignal) {
        float dt = pacer.next();
        status.beginFrame();
        game.update(dt);
        status.endFrame();
    }
    Log::info("main: Sygnal %d, zatrzymywanie serwera", int(stopSignal));
}

}  // namespace

int main(int argc, char** argv) {
    ServerOptions options;
    if (!options.parse(argc, argv)) {
        fputs(ServerOptions::usage(), stderr);
        return EXIT_USAGE;
    }
    // Status lines keep standard output; the log takes it over, as in the game.
    FILE* out = RunLog::takeStandardOutput(LOG_FILE, "korvane-server");
    if (!out) return 1;
    catchStopSignals();
    RunLog::begin();
    if (!Resource::open("data.ini")) {
        fprintf(stderr, "korvane-server: no data.ini here; run it in the game's directory\n");
        return EXIT_NO_DATA;
    }
    // The clock of the pings; no window, no sound device.
    SDL_Init(SDL_INIT_NOPARACHUTE);
    if (SDLNet_Init() != 0) Log::fail("init: Nie udalo sie wystartowac sieci");

    int code = 0;
    {
        Network::LocalGame game(options.port);
        for (int i = 0; i < options.bots; ++i) game.addBot();
        if (game.open(options.arena)) {
            Log::info("main: init %ums", SDL_GetTicks());
            fprintf(out, "korvane-server: port %d, arena %s, %d bots\n", options.port, options.arena.c_str(),
                    options.bots);
            fflush(out);
            ServerStatus status(game.server, options.statusSeconds, out);
            serve(game, status);
        } else {
            fprintf(stderr, "korvane-server: port %d cannot be opened (see %s)\n", options.port, LOG_FILE);
            code = EXIT_NO_PORT;
        }
        // The server says goodbye to its clients, then the bots leave.
        game.clear();
    }
    Database::clearAll();
    SDLNet_Quit();
    SDL_Quit();
    Resource::clear();
    RunLog::end();
    fclose(out);
    return code;
}
