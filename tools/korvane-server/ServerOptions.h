#pragma once
#include <string>

#include "network/LocalGame.h"
#include "network/Packet.h"

// What korvane-server is told on its command line.
struct ServerOptions {
    static constexpr int MAX_BOTS = 63;

    std::string arena = Network::LocalGame::DEFAULT_ARENA;
    int bots = 0;
    // Seconds between two status lines; 0 for none.
    int statusSeconds = 10;
    int port = Packet::PORT;

    // False for anything it does not know or a value out of its range; an
    // arena must be a script of the game's own "arena/" folder.
    bool parse(int argc, char** argv);
    static const char* usage();
};
