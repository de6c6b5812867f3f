#include "network/Server.h"

#include <cstdlib>

#include "gameplay/Arena.h"
#include "gameplay/GameMode.h"
#include "network/Payload.h"
#include "shell/Log.h"

namespace Network {

Server::~Server() { clear(); }

bool Server::init(GameMode* newGamemode, Arena* newArena, int newPort) {
    if (!takeWorld(newGamemode, newArena)) return false;
    port = newPort;
    if (!socket.init(static_cast<uint16_t>(port), gamemode->getMaxPlayers())) {
        Log::fail("Server.init: Nie udalo sie uruchomic socketa");
        return false;
    }
    makePlayers();
    return true;
}

bool Server::initWithoutSocket(GameMode* newGamemode, Arena* newArena) {
    if (!takeWorld(newGamemode, newArena)) return false;
    makePlayers();
    return true;
}

bool Server::takeWorld(GameMode* newGamemode, Arena* newArena) {
    if (!newGamemode) {
        Log::fail("Server.init: NULL gamemode");
        return false;
    }
    if (!newArena) {
        Log::fail("Server.init: NULL arena");
        return false;
    }
    clear();
    gamemode = newGamemode;
    arena = newArena;
    nextPid = 1;
    started = false;
    return true;
}

void Server::makePlayers() {
    int count = gamemode->getMaxPlayers();
    for (int id = 0; id < count; ++id) players.push_back(new Player(id, OBJECT_SERVER));
    gamemode->arena = arena;
    arena->addListener(this);
    arena->objectType = OBJECT_SERVER;
    arena->lua.setPtr("_eventlistener", static_cast<EventListener*>(this));
}

void Server::tick(float dt) {
    if (!socket.isRunning()) return;
    // What the frame sends goes out together once the frame is done.
    socket.holdWakes();
    updateRecv();
    update(dt);
    updateEvents();
    socket.releaseWakes();
}

void Server::clear() {
    if (socket.isRunning()) {
        broadcast(DISCONNECT, 0, nullptr);
        socket.stopRunning();
    }
    delete gamemode;
    delete arena;
    gamemode = nullptr;
    arena = nullptr;
    for (Player* player : players) delete player;
    players.clear();
    EventListener::clear();
}

void Server::send(int to, int type, uint32_t size, const void* data) { socket.send(to, type, size, data); }

void Server::broadcast(int type, uint32_t size, const void* data) {
    recipients.clear();
    int slots = socket.slotCount();
    for (int id = 0; id < slots; ++id) recipients.push_back(id);
    sendToRecipients(type, size, data);
}

void Server::sendToRecipients(int type, uint32_t size, const void* data) {
    socket.send(recipients.data(), recipients.size(), type, size, data);
}

void Server::updateRecv() {
    for (Player* player : players) {
        int id = player->id;
        if (id >= socket.slotCount()) return;
        if (!socket.hasClient(id)) {
            // The connection is gone. Its socket is closed already, and the
            // slot may be someone else's by now: only the record goes.
            if (player->flags != 0) depart(id, false);
            continue;
        }
        // One packet per client per frame, however many wait.
        if (Packet* packet = socket.pop(id)) parse(id, packet);
    }
}

void Server::update(float dt) {
    int connected = socket.getClientCount();
    if (!started) {
        if (!startGame(connected)) return;
    } else if (!gamemode->running) {
        started = false;
        return;
    } else if (connected < gamemode->getMinPlayers()) {
        sendToReady(GAME_PAUSE, 0, nullptr);
        return;
    }
    runGame(dt);
}

bool Server::startGame(int connected) {
    if (connected < gamemode->getMinPlayers()) return false;
    // Connections that never said HANDSHAKE hold nothing up.
    for (const Player* player : players)
        if ((player->flags & PLAYER_HANDSHAKE) && !player->isReady()) return false;
    Log::info("Server.update: Startowanie gamemode");
    if (!gamemode->running) gamemode->start();
    started = true;
    // Spread the players' snapshot moments over the period by slot.
    const float slots = static_cast<float>(players.size());
    for (Player* player : players) {
        if (!player->isReady()) continue;
        player->stateTimer = static_cast<float>(player->id) / slots * SNAPSHOT_PERIOD;
        sendSnapshots(player->id);
    }
    sendToReady(GAME_START, 0, nullptr);
    return true;
}

void Server::runGame(float dt) {
    gamemode->update(dt);
    for (Player* player : players) {
        if (!player->isReady()) continue;
        player->stateTimer += dt;
        if (player->stateTimer < SNAPSHOT_PERIOD) continue;
        // A random share of this frame, so that players rarely share a frame.
        player->stateTimer = static_cast<float>(rand() % 32768) / 32768.0f * dt;
        sendSnapshots(player->id);
    }
}

void Server::updateEvents() {
    drain([this](const Event& event) {
        if (event.type == EVENT_SOUND && event.name) sendSound(event.volume, event.name);
    });
}

void Server::depart(int id, bool dropConnection) {
    Log::info("Server.parse[%02d]: DISCONNECT", id);
    if (dropConnection) socket.disconnect(id);
    players[static_cast<size_t>(id)]->flags = 0;
    Payload::Writer out(4);
    out.writeI32(id);
    broadcast(DISCONNECT, out.size(), out.data());
}

}  // namespace Network
