// Runs bots against each other in a world that draws nothing, faster than
// real time, and reports how long rounds last, who wins and what the bots do.
//
//   botsim [--rounds N] [--seed S] [--arena PATH] FIGHTER_SCRIPT FIGHTER_SCRIPT
//
// Run it in the staged game directory (it reads "data.ini" like the game).

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "BotMatch.h"
#include "resources/Resource.h"
#include "shell/Log.h"
#include "shell/RunLog.h"

namespace {

const char* const LOG_FILE = "log.txt";

int usage() {
    fprintf(stderr, "usage: botsim [--rounds N] [--seed S] [--arena PATH] FIGHTER_SCRIPT FIGHTER_SCRIPT\n");
    return 2;
}

}  // namespace

int main(int argc, char** argv) {
    BotMatch::Setup setup;
    std::vector<std::string> fighters;
    unsigned seed = 1;
    for (int i = 1; i < argc; ++i) {
        std::string arg = argv[i];
        if ((arg == "--rounds" || arg == "--seed" || arg == "--arena") && i + 1 < argc) {
            std::string value = argv[++i];
            if (arg == "--rounds")
                setup.rounds = atoi(value.c_str());
            else if (arg == "--seed")
                seed = static_cast<unsigned>(strtoul(value.c_str(), nullptr, 0));
            else
                setup.arena = value;
        } else if (!arg.empty() && arg[0] != '-') {
            fighters.push_back(arg);
        } else {
            return usage();
        }
    }
    if (fighters.size() != 2 || setup.rounds < 1) return usage();
    setup.fighters[0] = fighters[0];
    setup.fighters[1] = fighters[1];

    // The report keeps standard output; the world's own messages, some of
    // which are written straight to standard output, go to the game's log.
    FILE* report = RunLog::takeStandardOutput(LOG_FILE, "botsim");
    if (!report) return 1;
    Log::setFlags(Log::LOG_INFO | Log::LOG_FAIL | Log::LOG_OK);
    Log::info("botsim: Start");
    srand(seed);
    if (!Resource::open("data.ini")) {
        fprintf(stderr, "botsim: no data.ini here; run it in the staged game directory\n");
        return 1;
    }
    BotMatch::Result result;
    bool ok = BotMatch::run(setup, result);
    Resource::clear();
    Log::info("botsim: Stop");
    if (!ok) {
        fprintf(stderr, "botsim: the world could not be set up (see %s)\n", LOG_FILE);
        return 1;
    }
    BotMatch::print(setup, result, report);
    fclose(report);
    return 0;
}
