#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "gameplay/DefaultContent.h"
#include "network/Client.h"
#include "network/Packet.h"
#include "network/Server.h"

class Controller;
namespace GameModes {
class Deathmatch;
}

namespace Network {

// A game hosted on this machine: a Server on a port, under the deathmatch
// rules, and every player of this machine and every bot as an ordinary
// Client that reaches it over the loopback, as a remote player would. The
// host has no privileged view: only the first player's world is drawn.
class LocalGame {
public:
    static constexpr const char* LOOPBACK = "127.0.0.1";
    static constexpr const char* DEFAULT_ARENA = DefaultContent::ARENA;
    static constexpr const char* DEFAULT_FIGHTER = DefaultContent::FIGHTER;

    explicit LocalGame(int32_t port = Packet::PORT);
    ~LocalGame();
    LocalGame(const LocalGame&) = delete;
    LocalGame& operator=(const LocalGame&) = delete;

    // Players and bots may be added before or after open; each tries to
    // connect in its next update. Every local player plays the server's
    // sounds, as each has its own ears on a shared machine.
    // `controller` is not owned.
    Client* addPlayer(Controller* controller, const std::string& fighterScript = DEFAULT_FIGHTER);
    Client* addBot(const std::string& fighterScript = DEFAULT_FIGHTER);
    // Loads the arena under the deathmatch rules and opens the port. False,
    // with the server's log lines, when the port can't be opened.
    bool open(const std::string& arenaScript = DEFAULT_ARENA);
    // One frame: the server, then every player, then every bot. Nothing
    // while the server isn't open: whatever else holds the port, perhaps
    // another machine's game, is not this host's to join.
    void update(float dt);
    // The first player's world, if there is a player.
    void draw();
    // Ends the server, lets every client go and closes every connection.
    void clear();
    bool isOpen() { return server.socket.isRunning(); }
    // The server's rules, made by open; null before.
    GameModes::Deathmatch* rules();

    const int32_t port;
    Server server;
    std::vector<Client*> players;  // owned; entry 0 is the one drawn
    std::vector<Client*> bots;     // owned
};

}  // namespace Network
