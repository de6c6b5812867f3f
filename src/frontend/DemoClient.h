#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "frontend/ContentChoice.h"
#include "frontend/GameNotice.h"
#include "network/Client.h"
#include "network/Packet.h"
#include "shell/GameState.h"

// The screen of a joining machine: the players at this keyboard in a game
// hosted elsewhere, the first one's world on the screen, and over it a
// notice while the connection is down. Escape leaves.
class DemoClient : public GameState {
public:
    static constexpr const char* DISCONNECTED = "disconnected2";

    explicit DemoClient(int32_t port = Packet::PORT) : port(port) {}

    // Players on controllers 0 and up, with the fighters chosen for them.
    // Before the push.
    void setup(int players, const std::string& address, const ContentChoice& choice = ContentChoice());
    void init() override;
    void update(float dt) override;
    void draw() override;
    void clear() override;
    void pause() override {}
    void resume() override {}
    int getType() override { return STATE_DEMO_CLIENT; }

    const int32_t port;
    std::vector<Network::Client*> clients;  // owned; entry 0 decides what is shown
    GameNotice notice;
    // The first client's failed attempts when the notice was last set.
    int32_t reconnects = 0;
};
