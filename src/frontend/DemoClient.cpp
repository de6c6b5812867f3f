#include "frontend/DemoClient.h"

#include <SDL/SDL.h>

#include "gameplay/ControllerManager.h"
#include "network/NewClient.h"
#include "shell/Engine.h"

void DemoClient::setup(int players, const std::string& address, const ContentChoice& choice) {
    clear();
    for (int i = 0; i < players; ++i) {
        // One machine, one pair of speakers: only the first plays sounds.
        const int32_t mode = i == 0 ? Network::Client::MODE_MAIN : Network::Client::MODE_LOCAL;
        Network::Client* client = Network::newClient(mode, address, port, choice.fighterScript(i));
        client->setController(ControllerManager::get(i));
        clients.push_back(client);
    }
}

void DemoClient::init() {
    notice.init();
    reconnects = clients.front()->reconnects;
}

void DemoClient::update(float dt) {
    // The notice comes with the first failed attempt and goes with the
    // first that succeeds; while the connection is merely being made it
    // says nothing.
    const int32_t failed = clients.front()->reconnects;
    if (failed != reconnects) {
        reconnects = failed;
        if (failed == 0)
            notice.hide();
        else
            notice.show(DISCONNECTED);
    }
    for (Network::Client* client : clients) client->update(dt);
    if (SDL_GetKeyState(nullptr)[SDLK_ESCAPE]) Engine::pop();
}

void DemoClient::draw() {
    clients.front()->draw();
    notice.draw();
}

void DemoClient::clear() {
    // Each leaves the server as it goes.
    for (Network::Client* client : clients) delete client;
    clients.clear();
}
