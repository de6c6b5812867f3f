#include "frontend/DemoServer.h"

#include <SDL/SDL.h>

#include <vector>

#include "frontend/ContentList.h"
#include "gameplay/ControllerManager.h"
#include "shell/Engine.h"

void DemoServer::setup(int players, int bots, const ContentChoice& choice) {
    clear();
    for (int i = 0; i < players; ++i) game.addPlayer(ControllerManager::get(i), choice.fighterScript(i));
    const std::vector<std::string> roster =
        bots > 0 ? ContentList::listedScripts("character", "DemoServer.setup", "Brak postaci") : std::vector<std::string>();
    for (int i = 0; i < bots; ++i)
        game.addBot(roster.empty() ? Network::LocalGame::DEFAULT_FIGHTER : roster[i % roster.size()]);
    arenaScript = choice.arenaScript();
}

void DemoServer::init() {
    notice.init();
    // The server has logged why; nobody plays until Escape.
    if (!game.open(arenaScript)) notice.show(PORT_TAKEN);
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
