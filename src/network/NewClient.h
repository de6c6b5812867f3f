#pragma once
#include <cstdint>
#include <string>

#include "network/Client.h"

namespace Network {

// A client of `mode` that will join the game at `address` and `port` on its
// first update, fighting as `fighterScript`. The caller owns it; a player's
// client still needs its controller.
Client* newClient(int32_t mode, const std::string& address, int32_t port, const std::string& fighterScript);

}  // namespace Network
