#pragma once
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "network/Packet.h"
#include "network/Player.h"
#include "network/SocketClient.h"

class Arena;
class Bot;
class Character;
class Controller;
class ControllerDummy;
class GameMode;

namespace Network {

// How far the connection sequence went on this side.
enum ClientFlag : uint32_t {
    CLIENT_HANDSHAKE = 1,  // the server's HANDSHAKE arrived
    CLIENT_ARENA = 2,      // the arena is loaded and in the game mode
    CLIENT_CHARACTER = 4,  // our own CHARACTER_INFO went out
};

// One player's view of a game: a connection and a complete copy of the
// world, rebuilt from what the server says. Every fighter, our own too, is
// steered by a ControllerDummy that only the server's packets change; each
// snapshot overwrites the fighter's numbers. A bot is a client whose
// controls come from a Bot.
class Client {
public:
    // Seconds between two connection attempts.
    static constexpr float RECONNECT_PERIOD = 5.0f;
    // No server of this game has more slots; a SERVER_INFO that claims more
    // is refused.
    static constexpr int32_t MAX_SLOTS = 64;

    enum Mode {
        MODE_MAIN = 0,    // the machine's main client: plays the sounds
        MODE_LOCAL = 1,   // a further local player
        MODE_BOT = 2,     // steered by its own Bot
    };

    Client() = default;
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;
    ~Client();

    // Always true: the connection itself is made by update. Set `mode`
    // first.
    bool init(const std::string& address, int port);
    // Connects or keeps the connection, parses every packet that has
    // arrived, then runs the frame of the world.
    void update(float dt);
    void draw();
    // Leaves the server and lets everything go but the address, the port,
    // the count of failed attempts, the game state and the mode.
    void stop();
    // Takes ownership. Only the script path is used, for CHARACTER_INFO,
    // which goes out at once if the connection is far enough.
    void setCharacter(Character* character);
    // Not owned.
    void setController(Controller* controller);
    // Acts on one packet from the server and frees it.
    void parse(Packet* packet);
    // The frame of the world that follows the packets in update: while the
    // game runs, the bot, our controls to the server, and the game mode.
    // With parse, it lets packets be checked without a peer.
    void simulate(float dt);

    SocketClient socket;
    float reconnectTimer = 0.0f;
    std::vector<Player*> players;   // owned; one per slot of the server
    GameMode* gamemode = nullptr;   // owned; made on SERVER_INFO
    Arena* arena = nullptr;         // owned; made by init, loaded on ARENA_INFO
    uint32_t flags = 0;             // ClientFlag bits
    int32_t id = -1;                // our slot on the server
    int32_t pid = -1;               // our persistent id; survives a reconnect
    Character* character = nullptr;  // owned; the fighter we chose
    Bot* bot = nullptr;              // owned; only in MODE_BOT
    Controller* controller = nullptr;  // the bot's dummy (owned) or not owned
    uint32_t controllerState = 0;    // the six bits last sent
    int32_t gameState = 0;           // 0 stopped, 1 running, 2 paused
    std::string address;
    int32_t port = 0;
    int32_t reconnects = 0;  // failed attempts in a row
    int32_t mode = MODE_MAIN;
    // Shown each packet from the server just before update parses it; for
    // tools that measure the traffic.
    std::function<void(const Packet&)> onPacket;

private:
    void connect(float dt);
    void sendControllerState(float dt);
    void sendCharacterInfo();
    void releasePlayers();

    Player* playerFor(int32_t slot, const Packet* packet);
    void parseControllerState(Packet* packet);
    void parseCharacterState(Packet* packet);
    void parseSound(Packet* packet);
    void parseDisconnect(Packet* packet);
    void parseConnect(Packet* packet);
    void parseServerInfo(Packet* packet);
    void parseCharacterInfo(Packet* packet);
    void parseArenaInfo(Packet* packet);
    void logShortPacket(const Packet* packet);
};

}  // namespace Network
