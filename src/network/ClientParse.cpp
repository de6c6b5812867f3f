// What a client makes of the server's packets. The server may be anyone's:
// every payload is checked before it is read, ids must name a slot of the
// table, and scripts and sounds load only from the game's own folders.
#include "audio/Sound.h"
#include "gameplay/Arena.h"
#include "gameplay/Bot.h"
#include "gameplay/Deathmatch.h"
#include "network/Client.h"
#include "network/Payload.h"
#include "network/GamePath.h"
#include "shell/Log.h"

namespace Network {

namespace {

const char* const FIGHTER_FOLDER = "character/";
const char* const ARENA_FOLDER = "arena/";

}  // namespace

void Client::parse(Packet* packet) {
    switch (packet->type) {
        case CONTROLLER_STATE:
        case CONTROLLER_RELAY:
            parseControllerState(packet);
            break;
        case CHARACTER_STATE:
            parseCharacterState(packet);
            break;
        case ARENA_STATE:
            if (arena) arena->deserialize(packet->payload(), packet->size);
            break;
        case GAMEMODE_STATE:
            if (gamemode) gamemode->deserialize(packet->payload(), packet->size);
            break;
        case GAME_START:
            Log::info("Client.parse: GAME_START");
            gameState = 1;
            break;
        case GAME_PAUSE:
            Log::info("Client.parse: GAME_PAUSE");
            gameState = 2;
            break;
        case GAME_STOP:
            Log::info("Client.parse: Gra zatrzymana");
            gameState = 0;
            break;
        case RESERVED_10:
        case RESERVED_11:
        case RESERVED_90:
        case DATA_RAW:
        case DATA_ARENA:
        case DATA_CHARACTER:
            break;
        case SOUND:
            parseSound(packet);
            break;
        case HANDSHAKE: {
            Log::info("Client.parse: HANDSHAKE");
            flags |= CLIENT_HANDSHAKE;
            Payload::Writer out(8);
            out.writeI32(-1);
            out.writeI32(pid);
            socket.send(CONNECT, out.size(), out.data());
            break;
        }
        case DISCONNECT:
            parseDisconnect(packet);
            break;
        case CONNECT:
            parseConnect(packet);
            break;
        case SERVER_INFO:
            parseServerInfo(packet);
            break;
        case CHARACTER_INFO:
            parseCharacterInfo(packet);
            break;
        case ARENA_INFO:
            parseArenaInfo(packet);
            break;
        default:
            Log::info("Client.parse: Nieznany typ pakietu (type %d, size %u)", packet->type, packet->size);
            break;
    }
    Packet::destroy(packet);
}

void Client::logShortPacket(const Packet* packet) {
    Log::info("Client.parse: Za krotki pakiet (type %d, size %u)", packet->type, packet->size);
}

Player* Client::playerFor(int32_t slot, const Packet* packet) {
    if (slot >= 0 && static_cast<size_t>(slot) < players.size()) return players[static_cast<size_t>(slot)];
    Log::info("Client.parse: Nieznany gracz %d (type %d, max %u)", slot, packet->type,
              static_cast<unsigned>(players.size()));
    return nullptr;
}

void Client::parseControllerState(Packet* packet) {
    Payload::Reader in(packet);
    int32_t slot = 0;
    uint32_t buttons = 0;
    if (!in.readI32(&slot) || !in.readU32(&buttons)) return logShortPacket(packet);
    if (slot < 0 || static_cast<size_t>(slot) >= players.size()) {
        Log::debug("Client.parseControllerState: id %d; players %u", slot, static_cast<unsigned>(players.size()));
        return;
    }
    ControllerDummy* dummy = players[static_cast<size_t>(slot)]->controller;
    for (int action = 0; action < ACTION_COUNT; ++action) dummy->pressed[action] = (buttons >> action) & 1u;
}

void Client::parseCharacterState(Packet* packet) {
    Payload::Reader in(packet);
    int32_t slot = 0;
    if (!in.readI32(&slot)) return logShortPacket(packet);
    if (Player* player = playerFor(slot, packet)) player->character->deserialize(in.rest(), in.restSize());
}

void Client::parseSound(Packet* packet) {
    // Several local clients share one machine's speakers.
    if (mode != MODE_MAIN) return;
    Payload::Reader in(packet);
    float volume = 0.0f;
    std::string name;
    if (!in.readF32(&volume) || !in.readText(&name)) return logShortPacket(packet);
    // Nor may a server have us read files from outside the game.
    if (!GamePath::isInside(name, "")) {
        Log::fail("Client.parse: SOUND; Niedozwolona nazwa \"%s\"", name.c_str());
        return;
    }
    Sound::play(name, volume);
}

void Client::parseDisconnect(Packet* packet) {
    Payload::Reader in(packet);
    int32_t slot = 0;
    if (packet->size == 0)
        Log::info("Client.parse: DISCONNECT; Serwer konczy gre");
    else if (in.readI32(&slot))
        Log::info("Client.parse: DISCONNECT; Klient %d rozlaczyl sie", slot);
    else
        logShortPacket(packet);
}

void Client::parseConnect(Packet* packet) {
    Payload::Reader in(packet);
    int32_t slot = 0;
    int32_t announcedPid = 0;
    if (!in.readI32(&slot) || !in.readI32(&announcedPid)) return logShortPacket(packet);
    Log::info("Client.parse: CONNECT; id: %d (max %u); pid: %d", slot, static_cast<unsigned>(players.size()),
              announcedPid);
    if (slot < 0) {
        pid = announcedPid;
        Log::info("Client.parse: CONNECT; new pid: %d", pid);
    } else if (announcedPid == pid) {
        id = slot;
        Log::info("Client.parse: CONNECT; my id: %d", id);
    }
    // Anything else is another client's arrival.
}

void Client::parseServerInfo(Packet* packet) {
    Payload::Reader in(packet);
    int32_t maxClients = 0;
    int32_t type = 0;
    if (!in.readI32(&maxClients) || !in.readI32(&type)) return logShortPacket(packet);
    Log::info("Client.parse: SERVER_INFO; max_clients: %d; gamemode: %d", maxClients, type);
    if (maxClients < 0 || maxClients > MAX_SLOTS) {
        Log::fail("Client.parse: SERVER_INFO; Zla liczba graczy %d", maxClients);
        return;
    }
    releasePlayers();
    delete gamemode;
    // There is one rule set, whatever the server names.
    gamemode = new GameModes::Deathmatch();
    gamemode->objectType = OBJECT_CLIENT;
    gamemode->init();
    // The arena waits for ARENA_INFO, and the new game mode with it.
    flags &= ~static_cast<uint32_t>(CLIENT_ARENA);
    for (int32_t slot = 0; slot < maxClients; ++slot) players.push_back(new Player(-1, OBJECT_CLIENT));
    sendCharacterInfo();
}

// The old fighters leave the arena, their bubbles and the bot's aim with
// them, before they are deleted.
void Client::releasePlayers() {
    if (bot) bot->setCharacter(nullptr);
    for (Player* player : players) {
        if (arena) arena->removeCharacter(player->character);
        if (gamemode) gamemode->removeCharacter(player->character);
        delete player;
    }
    players.clear();
}

void Client::parseCharacterInfo(Packet* packet) {
    Payload::Reader in(packet);
    int32_t slot = 0;
    std::string path;
    if (!in.readI32(&slot) || !in.readText(&path)) return logShortPacket(packet);
    Log::info("Client.parse: CHARACTER_INFO; id: %d; path: \"%s\"", slot, path.c_str());
    Player* player = playerFor(slot, packet);
    if (!player || !arena) return;
    if (!GamePath::isInside(path, FIGHTER_FOLDER)) {
        Log::fail("Client.parse: CHARACTER_INFO; Niedozwolona sciezka \"%s\"", path.c_str());
        return;
    }
    Character* fighter = player->character;
    if (!fighter->init(path)) {
        Log::fail("Client.parse: Nie udalo sie zainicjowac postaci %d (\"%s\")", slot, path.c_str());
        // What stood in the slot before is no fighter any more.
        if (bot && bot->character == fighter) bot->setCharacter(nullptr);
        arena->removeCharacter(fighter);
        gamemode->removeCharacter(fighter);
        return;
    }
    fighter->id = slot;
    fighter->arena = arena;
    fighter->controller = player->controller;
    arena->addCharacter(fighter);
    gamemode->addCharacter(fighter);
    // The bot's own fighter obeys the bot's dummy directly.
    if (slot == id && bot) bot->setCharacter(fighter);
}

void Client::parseArenaInfo(Packet* packet) {
    Payload::Reader in(packet);
    std::string path;
    if (!in.readText(&path)) return logShortPacket(packet);
    Log::info("Client.parse: ARENA_INFO; path: \"%s\"", path.c_str());
    if (!arena) return;
    if (!GamePath::isInside(path, ARENA_FOLDER)) {
        Log::fail("Client.parse: ARENA_INFO; Niedozwolona sciezka \"%s\"", path.c_str());
        return;
    }
    flags &= ~static_cast<uint32_t>(CLIENT_ARENA);
    if (!arena->init(path)) {
        Log::fail("Client.parse: Nie udalo sie zainicjowac areny (\"%s\")", path.c_str());
        return;
    }
    if (gamemode) gamemode->arena = arena;
    flags |= CLIENT_ARENA;
}

}  // namespace Network
