#pragma once
#include <unistd.h>

#include <memory>
#include <vector>

#include "graphics/Render.h"
#include "network/SocketClient.h"

// The one window of a benchmark program, opened on first use; false without a display.
inline bool openWindow() {
    static const bool opened = Render::init(800, 600, false);
    return opened;
}

// The game's own data folder as the working directory, as the game has it.
inline bool enterGameData() { return chdir(KORVANE_SOURCE_DIR "/data") == 0; }

// Transports connected to the loopback `port`, as many as connect of `count`.
inline std::vector<std::unique_ptr<SocketClient>> connectClients(int count, uint16_t port) {
    std::vector<std::unique_ptr<SocketClient>> clients;
    for (int i = 0; i < count; ++i)
        if (auto client = std::make_unique<SocketClient>(); client->init("127.0.0.1", port))
            clients.push_back(std::move(client));
    return clients;
}

// Reads and drops whatever has come for each client.
inline void drain(const std::vector<std::unique_ptr<SocketClient>>& clients) {
    for (const auto& client : clients) {
        client->updatePing();
        while (Packet* packet = client->pop()) Packet::destroy(packet);
    }
}
