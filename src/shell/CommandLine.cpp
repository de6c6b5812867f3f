#include "shell/CommandLine.h"

#include <cstring>

#include "shell/StandaloneScene.h"

namespace CommandLine {

const char* const USAGE =
    "usage: korvane                                      the game, from its first screen\n"
    "       korvane --sandbox [FIGHTER_SCRIPT [ARENA_SCRIPT]]\n"
    "                                                    the fighter on controller 1 against a bot\n"
    "                                                    of the same script, without network\n"
    "       korvane --help                               this text\n";

Request parse(int argc, const char* const* argv) {
    Request request;
    if (argc <= 1) return request;
    if (argc == 2 && strcmp(argv[1], "--help") == 0) {
        request.action = HELP;
    } else if (strcmp(argv[1], "--sandbox") == 0 && argc <= 4) {
        request.action = SANDBOX;
        request.fighterScript = argc > 2 ? argv[2] : StandaloneScene::FIGHTER_SCRIPT;
        request.arenaScript = argc > 3 ? argv[3] : StandaloneScene::ARENA_SCRIPT;
    } else {
        request.action = MISUSE;
    }
    return request;
}

}  // namespace CommandLine
