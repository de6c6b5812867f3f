#include "network/LocalGame.h"

#include "gameplay/Arena.h"
#include "gameplay/Deathmatch.h"
#include "network/NewClient.h"

namespace Network {

LocalGame::LocalGame(int32_t gamePort) : port(gamePort) {}

LocalGame::~LocalGame() { clear(); }

Client* LocalGame::addPlayer(Controller* controller, const std::string& fighterScript) {
    Client* client = newClient(Client::MODE_MAIN, LOOPBACK, port, fighterScript);
    client->setController(controller);
    players.push_back(client);
    return client;
}

Client* LocalGame::addBot(const std::string& fighterScript) {
    // A bot's client steers with the dummy its own Bot presses.
    Client* client = newClient(Client::MODE_BOT, LOOPBACK, port, fighterScript);
    bots.push_back(client);
    return client;
}

bool LocalGame::open(const std::string& arenaScript) {
    auto* rules = new GameModes::Deathmatch();
    auto* arena = new Arena();
    arena->objectType = OBJECT_SERVER;
    // A broken arena script has logged itself; the game goes on in an
    // arena of the default shape.
    arena->init(arenaScript);
    rules->objectType = OBJECT_SERVER;
    rules->init();
    // The server owns both from here on, and hands the arena to the rules.
    return server.init(rules, arena, port);
}

GameModes::Deathmatch* LocalGame::rules() { return static_cast<GameModes::Deathmatch*>(server.gamemode); }

void LocalGame::update(float dt) {
    if (!isOpen()) return;
    server.tick(dt);
    for (Client* client : players) client->update(dt);
    for (Client* client : bots) client->update(dt);
}

void LocalGame::draw() {
    if (!players.empty()) players.front()->draw();
}

void LocalGame::clear() {
    server.clear();
    // Each client leaves the server as it goes, through connections that
    // stand until the transport closes.
    for (std::vector<Client*>* clients : {&players, &bots}) {
        for (Client* client : *clients) delete client;
        clients->clear();
    }
    // Remote players learn at once that the game is over, and the port is
    // free for the next game.
    server.socket.close();
}

}  // namespace Network
