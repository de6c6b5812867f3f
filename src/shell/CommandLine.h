#pragma once
#include <string>

// What the program is asked to do by its arguments. With none it opens on the
// first screen; a content author asks for the sandbox, a duel without network
// in which a changed script shows at once.
namespace CommandLine {

enum Action {
    PLAY,
    SANDBOX,
    HELP,
    MISUSE,  // the usage goes to standard error and the exit code is 2
};

struct Request {
    Action action = PLAY;
    // For the sandbox; the game's own fighter and arena when left out.
    std::string fighterScript;
    std::string arenaScript;
};

extern const char* const USAGE;
constexpr int EXIT_MISUSE = 2;

Request parse(int argc, const char* const* argv);

}  // namespace CommandLine
