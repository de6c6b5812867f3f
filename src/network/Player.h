#pragma once
#include <cstdint>

#include "gameplay/Character.h"
#include "gameplay/ControllerDummy.h"

namespace Network {

// How far a client went through the connection sequence; all three make a
// ready player.
enum PlayerFlag : uint32_t {
    PLAYER_HANDSHAKE = 1,  // it said HANDSHAKE
    PLAYER_CONNECT = 2,    // its CONNECT was handled
    PLAYER_CHARACTER = 4,  // its fighter is loaded
    PLAYER_READY = 7,
};

// One client slot of a server, or one slot of a client's copy of the world:
// the six controls as the network last told them, and the fighter they steer.
// The record owns both; the fighter exists from the start and is loaded only
// when the player names a script.
struct Player {
    Player(int32_t slot, int32_t side) : id(slot) { character->objectType = side; }
    ~Player() {
        delete character;
        delete controller;
    }
    Player(const Player&) = delete;
    Player& operator=(const Player&) = delete;

    bool isReady() const { return (flags & PLAYER_READY) == PLAYER_READY; }

    uint32_t flags = 0;  // PlayerFlag bits; 0 for a free slot
    int32_t id;          // the slot
    int32_t pid = -1;    // persistent id, -1 until known
    ControllerDummy* controller = new ControllerDummy();
    Character* character = new Character();
    float stateTimer = 0.0f;  // seconds since the last snapshot of this player
};

}  // namespace Network
