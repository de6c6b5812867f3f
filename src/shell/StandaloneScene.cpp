#include "shell/StandaloneScene.h"

#include <SDL/SDL.h>

#include "gameplay/ControllerManager.h"
#include "shell/Engine.h"
#include "shell/Log.h"

void StandaloneScene::init() {
    if (!first.init(FIGHTER_SCRIPT)) Log::fail("StandaloneScene.init: Nie udalo sie wczytac postaci");
    first.id = 0;
    first.controller = ControllerManager::get(FIRST_CONTROLLER);
    if (!second.init(FIGHTER_SCRIPT)) Log::fail("StandaloneScene.init: Nie udalo sie wczytac postaci");
    second.id = 1;
    second.controller = &secondPad;
    if (!arena.init(ARENA_SCRIPT)) Log::fail("StandaloneScene.init: Nie udalo sie wczytac areny");
    arena.addCharacter(&first);
    arena.addCharacter(&second);
}

void StandaloneScene::update(float dt) {
    const Uint8* keys = SDL_GetKeyState(nullptr);
    if (keys && keys[KEY_ESCAPE]) Engine::quit();
    arena.update(dt);
}

void StandaloneScene::draw() { arena.draw(); }

void StandaloneScene::clear() {
    // Effects point at the fighters, so the arena lets go of them first.
    arena.clear();
    first.clear();
    second.clear();
}
