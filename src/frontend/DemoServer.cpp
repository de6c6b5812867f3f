#include "frontend/DemoServer.h"

#include <SDL/SDL.h>

#include "gameplay/ControllerManager.h"
#include "shell/Engine.h"

void DemoServer::setup(int players, int bots) {
    clear();
    for (int i = 0; i < players; ++i) game.addPlayer(ControllerManager::get(i));
    for (int i = 0; i < bots; ++i) game.addBot();
}

void DemoServer::init() {
    notice.init();
    // The server has logged why; nobody plays until Escape.
    if (!game.open()) notice.show(PORT_TAKEN);
}

void DemoServer::update(float dt) {
    game.update(dt);
    if (SDL_GetKeyState(nullptr)[SDLK_ESCAPE]) Engine::pop();
}

void DemoServer::draw() {
    game.draw();
    notice.draw();
}

void DemoServer::clear() { game.clear(); }
