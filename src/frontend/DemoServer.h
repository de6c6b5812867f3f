#pragma once
#include <cstdint>
#include <string>

#include "frontend/ContentChoice.h"
#include "frontend/GameNotice.h"
#include "network/LocalGame.h"
#include "network/Packet.h"
#include "shell/GameState.h"

// The screen of a hosting machine: a game hosted in this process, in which
// the players at this keyboard and the bots take part over the loopback like
// anybody else, the first player's world on the screen. Escape leaves.
class DemoServer : public GameState {
public:
    // Under the world when the game's port can't be opened, so that hosting
    // never fails with nothing but an empty screen.
    static constexpr const char* PORT_TAKEN = "port_taken";

    explicit DemoServer(int32_t port = Packet::PORT) : game(port) {}

    // Who plays where, before the push: players on controllers 0 and up with
    // the fighters chosen for them, then the bots with the fighters of the
    // list in turn, in the arena chosen.
    void setup(int players, int bots, const ContentChoice& choice = ContentChoice());
    void init() override;
    void update(float dt) override;
    void draw() override;
    void clear() override;
    void pause() override {}
    void resume() override {}
    int getType() override { return STATE_DEMO_SERVER; }

    Network::LocalGame game;
    GameNotice notice;
    std::string arenaScript = Network::LocalGame::DEFAULT_ARENA;
};
