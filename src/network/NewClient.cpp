#include "network/NewClient.h"

#include "gameplay/Character.h"

namespace Network {

Client* newClient(int32_t mode, const std::string& address, int32_t port, const std::string& fighterScript) {
    auto* client = new Client();
    client->mode = mode;
    client->init(address, port);
    // Only the path travels; the server and every world load the script.
    auto* fighter = new Character();
    fighter->objectType = OBJECT_SERVER;
    fighter->path = fighterScript;
    client->setCharacter(fighter);
    return client;
}

}  // namespace Network
