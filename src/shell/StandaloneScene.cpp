#include "shell/StandaloneScene.h"

#include <SDL/SDL.h>

#include "gameplay/ControllerManager.h"
#include "shell/Engine.h"
#include "shell/Log.h"

void StandaloneScene::init() {
    if (!first.init(fighterScript)) Log::fail("StandaloneScene.init: Nie udalo sie wczytac postaci");
    first.id = 0;
    first.controller = ControllerManager::get(FIRST_CONTROLLER);
    if (!second.init(fighterScript)) Log::fail("StandaloneScene.init: Nie udalo sie wczytac postaci");
    second.id = 1;
    bot.init();
    bot.setArena(&arena);
    bot.setController(&secondPad);
    bot.setCharacter(&second);
    if (!arena.init(arenaScript)) Log::fail("StandaloneScene.init: Nie udalo sie wczytac areny");
    arena.addCharacter(&first);
    arena.addCharacter(&second);
    mode.init();
    mode.arena = &arena;
    mode.addCharacter(&first);
    mode.addCharacter(&second);
    mode.start();
}

void StandaloneScene::update(float dt) {
    const Uint8* keys = SDL_GetKeyState(nullptr);
    if (keys && keys[KEY_ESCAPE]) Engine::quit();
    bot.update(dt);
    mode.update(dt);
}

// The arena under the fighters' health and air bars.
void StandaloneScene::draw() { mode.draw(); }

void StandaloneScene::clear() {
    mode.clear();
    // Effects point at the fighters, so the arena lets go of them first.
    arena.clear();
    first.clear();
    second.clear();
}
