// What the server puts on the wire: snapshots, the descriptions of the game,
// and the scripts' sounds.
#include "gameplay/Arena.h"
#include "gameplay/GameMode.h"
#include "network/Payload.h"
#include "network/Server.h"

namespace Network {

namespace {

// Bytes behind a payload's last field that are sent but never read.
const uint32_t CHARACTER_STATE_SPARE = 4;
const uint32_t ARENA_INFO_SPARE = 1;
const uint32_t CHARACTER_INFO_SPARE = 4;
const uint32_t SOUND_SPARE = 8;

}  // namespace

void Server::deliver(int to, int type, const Payload::Writer& payload) {
    if (to < 0)
        broadcast(type, payload.size(), payload.data());
    else
        send(to, type, payload.size(), payload.data());
}

void Server::sendToReady(int type, uint32_t size, const void* data) {
    recipients.clear();
    for (const Player* player : players)
        if (player->isReady()) recipients.push_back(player->id);
    sendToRecipients(type, size, data);
}

void Server::sendSnapshots(int id) {
    sendCharacterState(id);
    sendArenaState(id);
    sendGameModeState(id);
}

void Server::sendCharacterState(int id) {
    uint32_t size = 0;
    const void* state = players[static_cast<size_t>(id)]->character->serialize(&size);
    Payload::Writer out(size + 4 + CHARACTER_STATE_SPARE);
    out.writeI32(id);
    out.writeBytes(state, size);
    out.writeZeros(CHARACTER_STATE_SPARE);
    sendToReady(CHARACTER_STATE, out.size(), out.data());
}

void Server::sendArenaState(int to) {
    uint32_t size = 0;
    if (const void* state = arena->serialize(&size)) send(to, ARENA_STATE, size, state);
}

void Server::sendGameModeState(int to) {
    uint32_t size = 0;
    if (const void* state = gamemode->serialize(&size)) send(to, GAMEMODE_STATE, size, state);
}

void Server::sendServerInfo(int to) {
    Payload::Writer out(8);
    out.writeI32(gamemode->getMaxPlayers());
    out.writeI32(gamemode->getType());
    deliver(to, SERVER_INFO, out);
}

void Server::sendArenaInfo(int to) {
    Payload::Writer out(static_cast<uint32_t>(arena->path.size()) + 1 + ARENA_INFO_SPARE);
    out.writeText(arena->path);
    out.writeZeros(ARENA_INFO_SPARE);
    deliver(to, ARENA_INFO, out);
}

void Server::sendCharacterInfo(int to, int id) {
    if (!socket.hasClient(id)) return;
    const std::string& path = players[static_cast<size_t>(id)]->character->path;
    Payload::Writer out(4 + static_cast<uint32_t>(path.size()) + 1 + CHARACTER_INFO_SPARE);
    out.writeI32(id);
    out.writeText(path);
    out.writeZeros(CHARACTER_INFO_SPARE);
    deliver(to, CHARACTER_INFO, out);
}

void Server::sendConnect(int to, int id, int pid) {
    Payload::Writer out(8);
    out.writeI32(id);
    out.writeI32(pid);
    deliver(to, CONNECT, out);
}

void Server::sendSound(float volume, const char* name) {
    const std::string text(name);
    Payload::Writer out(4 + static_cast<uint32_t>(text.size()) + 1 + SOUND_SPARE);
    out.writeF32(volume);
    out.writeText(text);
    out.writeZeros(SOUND_SPARE);
    deliver(-1, SOUND, out);
}

}  // namespace Network
