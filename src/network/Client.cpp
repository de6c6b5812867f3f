#include "network/Client.h"

#include "gameplay/Arena.h"
#include "gameplay/Bot.h"
#include "gameplay/Character.h"
#include "gameplay/ControllerDummy.h"
#include "gameplay/GameMode.h"
#include "network/Payload.h"
#include "shell/Log.h"

namespace Network {

namespace {

// Bytes behind the path of CHARACTER_INFO that are sent but never read.
const uint32_t CHARACTER_INFO_SPARE = 4;

}  // namespace

Client::~Client() { stop(); }

bool Client::init(const std::string& newAddress, int newPort) {
    stop();
    address = newAddress;
    port = newPort;
    // The first update tries at once.
    reconnectTimer = RECONNECT_PERIOD;
    reconnects = 0;
    arena = new Arena();
    arena->objectType = OBJECT_CLIENT;
    if (mode == MODE_BOT) {
        auto* dummy = new ControllerDummy();
        bot = new Bot();
        bot->init();
        bot->setArena(arena);
        bot->setController(dummy);
        controller = dummy;
    }
    return true;
}

void Client::update(float dt) {
    // A stopped client waits for init.
    if (!arena) return;
    if (!socket.isConnected()) {
        connect(dt);
        return;
    }
    socket.updatePing();
    // Everything that has arrived, in order. A server sends 4 x (N + 2)
    // snapshots a second and a relay for each change of anyone's controls:
    // a client that took one packet a frame would fall ever further behind
    // once a game has more than a dozen players.
    while (Packet* packet = socket.pop()) {
        if (onPacket) onPacket(*packet);
        parse(packet);
    }
    simulate(dt);
}

void Client::simulate(float dt) {
    if (!(gameState & 1)) return;
    if (bot) bot->update(dt);
    sendControllerState(dt);
    // From a new SERVER_INFO until ARENA_INFO the game mode has no world.
    if (!gamemode || !(flags & CLIENT_ARENA)) return;
    if (!gamemode->running) gamemode->start();
    gamemode->update(dt);
}

void Client::connect(float dt) {
    if (reconnectTimer < RECONNECT_PERIOD) {
        reconnectTimer += dt;
        return;
    }
    reconnectTimer = 0.0f;
    if (!socket.init(address, static_cast<uint16_t>(port))) {
        ++reconnects;
        return;
    }
    reconnects = 0;
    // A new connection goes through the whole sequence again; the world
    // waits as it is until the server has described it anew.
    flags = 0;
    socket.send(HANDSHAKE, 0, nullptr);
}

void Client::draw() {
    if (gamemode) gamemode->draw();
}

void Client::stop() {
    if (socket.isConnected()) socket.send(DISCONNECT, 0, nullptr);
    socket.close();
    flags = 0;
    delete gamemode;
    delete arena;
    delete character;
    if (bot) {
        delete controller;
        delete bot;
    }
    for (Player* player : players) delete player;
    players.clear();
    gamemode = nullptr;
    arena = nullptr;
    character = nullptr;
    bot = nullptr;
    controller = nullptr;
    id = -1;
    pid = -1;
    controllerState = 0;
    reconnectTimer = 0.0f;
}

void Client::setCharacter(Character* newCharacter) {
    if (newCharacter != character) delete character;
    character = newCharacter;
    sendCharacterInfo();
}

void Client::setController(Controller* newController) {
    // A bot keeps the dummy it presses.
    if (bot) return;
    controller = newController;
}

void Client::sendControllerState(float dt) {
    if (!controller) return;
    controller->update(dt);
    uint32_t buttons = 0;
    for (int action = 0; action < ACTION_COUNT; ++action)
        if (controller->isPressed(action)) buttons |= 1u << action;
    if (buttons == controllerState) return;
    controllerState = buttons;
    Payload::Writer out(8);
    out.writeI32(-1);
    out.writeU32(buttons);
    socket.send(CONTROLLER_STATE, out.size(), out.data());
}

void Client::sendCharacterInfo() {
    if (!character || character->path.empty() || !(flags & CLIENT_HANDSHAKE)) return;
    Log::info("Client.sendCharacterInfo: CHARACTER_INFO: path \"%s\"", character->path.c_str());
    Payload::Writer out(4 + static_cast<uint32_t>(character->path.size()) + 1 + CHARACTER_INFO_SPARE);
    out.writeI32(-1);
    out.writeText(character->path);
    out.writeZeros(CHARACTER_INFO_SPARE);
    socket.send(CHARACTER_INFO, out.size(), out.data());
    flags |= CLIENT_CHARACTER;
}

}  // namespace Network
