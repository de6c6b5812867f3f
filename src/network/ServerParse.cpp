// What the server makes of a client's packet. Whatever one client sends, the
// others go on being served: every payload is checked before it is read.
#include <climits>

#include "gameplay/Arena.h"
#include "gameplay/GameMode.h"
#include "network/Payload.h"
#include "network/GamePath.h"
#include "network/Server.h"
#include "resources/Resource.h"
#include "shell/Log.h"

namespace Network {

namespace {

const char* const FIGHTER_FOLDER = "character/";
// Only the six actions travel.
const uint32_t BUTTON_MASK = (1u << ACTION_COUNT) - 1;

}  // namespace

void Server::parse(int id, Packet* packet) {
    if (id < 0 || static_cast<size_t>(id) >= players.size()) {
        Log::info("Server.parse: Nieznany klient %d (graczy %u)", id, static_cast<unsigned>(players.size()));
        Packet::destroy(packet);
        return;
    }
    switch (packet->type) {
        case CONTROLLER_STATE:
        case CONTROLLER_RELAY:
            parseControllerState(id, packet);
            break;
        case HANDSHAKE:
            parseHandshake(id);
            break;
        case DISCONNECT:  // the departure shows when the slot empties
        case DATA_RAW:
        case DATA_ARENA:
        case DATA_CHARACTER:
            break;
        case CONNECT:
            parseConnect(id, packet);
            break;
        case CHARACTER_INFO:
            parseCharacterInfo(id, packet);
            break;
        default:
            Log::info("Client.parse: Nieobslugiwany typ pakietu (type %d, size %u)", packet->type, packet->size);
            break;
    }
    Packet::destroy(packet);
}

void Server::logShortPacket(int id, const Packet* packet) {
    Log::info("Server.parse[%02d]: Za krotki pakiet (type %d, size %u)", id, packet->type, packet->size);
}

void Server::parseControllerState(int id, Packet* packet) {
    Payload::Reader in(packet);
    int32_t claimedId = 0;
    uint32_t buttons = 0;
    if (!in.readI32(&claimedId) || !in.readU32(&buttons)) return logShortPacket(id, packet);
    buttons &= BUTTON_MASK;
    ControllerDummy* controller = players[static_cast<size_t>(id)]->controller;
    for (int action = 0; action < ACTION_COUNT; ++action) controller->pressed[action] = (buttons >> action) & 1u;
    // The relay names the sender, whatever it claimed, and carries no more
    // than the two words, however long the packet was.
    Payload::Writer out(8);
    out.writeI32(id);
    out.writeU32(buttons);
    sendToReady(CONTROLLER_RELAY, out.size(), out.data());
}

void Server::parseHandshake(int id) {
    Log::info("Server.parse[%02d]: HANDSHAKE", id);
    Player* player = players[static_cast<size_t>(id)];
    // A slot with marks is a new connection whose predecessor left between
    // two frames: that one departs first.
    if (player->flags != 0) depart(id, false);
    player->flags |= PLAYER_HANDSHAKE;
    send(id, HANDSHAKE, 0, nullptr);
}

void Server::parseConnect(int id, Packet* packet) {
    Log::info("Server.parse[%02d]: CONNECT", id);
    Payload::Reader in(packet);
    int32_t claimedId = 0;
    int32_t pid = 0;
    if (!in.readI32(&claimedId) || !in.readI32(&pid)) return logShortPacket(id, packet);
    Player* player = players[static_cast<size_t>(id)];
    // A pid above 0 is believed without a check.
    if (pid < 1) {
        nextPid = nextPid < INT_MAX ? nextPid + 1 : 2;
        pid = nextPid;
        sendConnect(id, -1, pid);
    }
    player->pid = pid;
    sendConnect(-1, id, pid);
    sendServerInfo(id);
    sendArenaInfo(id);
    for (const Player* other : players)
        if (other->flags & PLAYER_CHARACTER) sendCharacterInfo(id, other->id);
    player->flags |= PLAYER_CONNECT;
    if (started) send(id, GAME_START, 0, nullptr);
}

void Server::parseCharacterInfo(int id, Packet* packet) {
    Payload::Reader in(packet);
    int32_t claimedId = 0;
    std::string path;
    if (!in.readI32(&claimedId) || !in.readText(&path)) return logShortPacket(id, packet);
    Log::info("Server.parse[%02d]: CHARACTER_INFO: path: \"%s\"", id, path.c_str());
    // A host runs no script from outside its own fighters' folder.
    if (!GamePath::isInside(path, FIGHTER_FOLDER)) {
        Log::fail("Server.parse[%02d]: CHARACTER_INFO: Niedozwolona sciezka \"%s\"", id, path.c_str());
        return refuseCharacter(id, path);
    }
    Player* player = players[static_cast<size_t>(id)];
    Character* fighter = player->character;
    if (fighter->init(path)) return acceptCharacter(id);

    Log::fail("Server.parse[%02d]: CHARACTER_INFO: Nie udalo sie wczytac postaci \"%s\"", id, path.c_str());
    // What stood in the slot before is no fighter any more.
    player->flags &= ~static_cast<uint32_t>(PLAYER_CHARACTER);
    arena->removeCharacter(fighter);
    gamemode->removeCharacter(fighter);
    // A script that exists but fails leaves the client connected, never ready.
    if (!Resource::exists(path)) refuseCharacter(id, path);
}

void Server::refuseCharacter(int id, const std::string& path) {
    Log::fail("Server.parse[%02d]: CHARACTER_INFO: Nie znaleziono postaci \"%s\"", id, path.c_str());
    Log::fail("Server.parse[%02d]: CHARACTER_INFO: Trzeba bedzie pobrac ja od niesfornego klienta, ktory uzywa "
              "niestandardowych.",
              id);
    Log::fail("Server.parse[%02d]: CHARACTER_INFO: Problem w tym, ze autorowi sie nie chcialo tego zaimplementowac.",
              id);
    Log::fail("Server.parse[%02d]: CHARACTER_INFO: Mozesz go pogonic, moze to cos da.", id);
    Log::fail("Server.parse[%02d]: CHARACTER_INFO: A poki co... Zegnaj, kliencie~", id);
    depart(id, true);
}

void Server::acceptCharacter(int id) {
    Player* player = players[static_cast<size_t>(id)];
    Character* fighter = player->character;
    Log::ok("Server.parse[%02d]: CHARACTER_INFO: Wczytano postac \"%s\"", id, fighter->path.c_str());
    fighter->id = id;
    fighter->arena = arena;
    fighter->controller = player->controller;
    fighter->addListener(this);
    fighter->lua.setPtr("_eventlistener", static_cast<EventListener*>(this));
    // Both know a fighter by its id: a slot loaded again is not entered twice.
    arena->addCharacter(fighter);
    gamemode->addCharacter(fighter);
    sendCharacterInfo(-1, id);
    player->flags |= PLAYER_CHARACTER;
    if (started) send(id, GAME_START, 0, nullptr);
}

}  // namespace Network
