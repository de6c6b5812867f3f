#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "network/Packet.h"
#include "network/Payload.h"
#include "network/Player.h"
#include "network/SocketServer.h"
#include "shell/Event.h"

class Arena;
class GameMode;

namespace Network {

// The authoritative side of a game. It owns the rules, the arena and one
// player record per possible client, runs them each frame on the main
// thread, and turns what the clients send into changes of that world and
// into packets. It draws nothing; scripts' sounds reach it as events.
class Server : public EventListener {
public:
    // Seconds between two snapshots of one player.
    static constexpr float SNAPSHOT_PERIOD = 0.25f;

    Server() = default;
    ~Server() override;

    // Takes ownership of both, opens the port and makes a record per slot
    // of the rules. False, with a log line, when either is missing or the
    // port can't be opened; tick then does nothing.
    bool init(GameMode* gamemode, Arena* arena, int port);
    // The world of init without a listening socket: the server then learns
    // only what parse is given, and what it sends goes nowhere. For feeding
    // packets without a peer.
    bool initWithoutSocket(GameMode* gamemode, Arena* arena);
    // The frame: one packet per client, the rules, the scripts' sounds.
    void tick(float dt);
    // Tells the clients the game is over and lets everything go.
    void clear() override;

    void send(int to, int type, uint32_t size, const void* data);
    // To every occupied client slot.
    void broadcast(int type, uint32_t size, const void* data);
    // Acts on one packet of client `id` and frees it.
    void parse(int id, Packet* packet);

    int32_t port = 0;
    SocketServer socket;
    std::vector<Player*> players;  // owned; index = client id
    GameMode* gamemode = nullptr;  // owned
    Arena* arena = nullptr;        // owned
    int32_t nextPid = 1;           // the last persistent id given out
    bool started = false;          // the clients were told the game runs

private:
    bool takeWorld(GameMode* gamemode, Arena* arena);
    void makePlayers();

    void updateRecv();
    void update(float dt);
    bool startGame(int connected);
    void runGame(float dt);
    void updateEvents();
    // The player is forgotten and the others are told; the fighter stays
    // where it stands. The connection is dropped here only if asked.
    void depart(int id, bool dropConnection);

    // Sends to every id in `recipients`, which the caller has just filled.
    void sendToRecipients(int type, uint32_t size, const void* data);

    void parseControllerState(int id, Packet* packet);
    void parseHandshake(int id);
    void parseConnect(int id, Packet* packet);
    void parseCharacterInfo(int id, Packet* packet);
    void refuseCharacter(int id, const std::string& path);
    void acceptCharacter(int id);
    void logShortPacket(int id, const Packet* packet);

    // To one client, or to every one for a negative `to`.
    void deliver(int to, int type, const Payload::Writer& payload);
    void sendToReady(int type, uint32_t size, const void* data);
    void sendSnapshots(int id);
    void sendCharacterState(int id);
    void sendArenaState(int to);
    void sendGameModeState(int to);
    void sendServerInfo(int to);
    void sendArenaInfo(int to);
    void sendCharacterInfo(int to, int id);
    void sendConnect(int to, int id, int pid);
    void sendSound(float volume, const char* name);

    // Reused from send to send, so that a broadcast allocates nothing.
    std::vector<int> recipients;
};

}  // namespace Network
