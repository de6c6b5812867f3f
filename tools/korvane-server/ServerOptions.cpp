#include "ServerOptions.h"

#include <cstdlib>

#include "network/GamePath.h"

namespace {

bool parseWhole(const std::string& text, int low, int high, int* value) {
    char* end = nullptr;
    long number = strtol(text.c_str(), &end, 10);
    if (text.empty() || *end != '\0' || number < low || number > high) return false;
    *value = int(number);
    return true;
}

}  // namespace

bool ServerOptions::parse(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        std::string option = argv[i];
        if (i + 1 >= argc) return false;
        std::string value = argv[++i];
        bool ok = false;
        if (option == "--arena") {
            // Refused as a client's arena from the network would be.
            ok = GamePath::isInside(value, "arena/");
            arena = value;
        } else if (option == "--bots") {
            ok = parseWhole(value, 0, MAX_BOTS, &bots);
        } else if (option == "--status") {
            ok = parseWhole(value, 0, 86400, &statusSeconds);
        } else if (option == "--port") {
            ok = parseWhole(value, 1, 65535, &port);
        }
        if (!ok) return false;
    }
    return true;
}

const char* ServerOptions::usage() {
    return "usage: korvane-server [--arena arena/SCRIPT] [--bots 0-63] [--status SECONDS] [--port PORT]\n";
}
