#include "shell/Engine.h"

#include <cstddef>
#include <vector>

#include "audio/Sound.h"
#include "gameplay/ControllerManager.h"
#include "resources/Database.h"
#include "shell/GameState.h"

namespace {

bool running = false;
std::vector<GameState*> states;

}  // namespace

namespace Engine {

bool init() {
    states.reserve(8);
    running = true;
    ControllerManager::init(Database::SETTINGS_FILE);
    return true;
}

void update(float dt) {
    ControllerManager::update(dt);
    Sound::update(dt);
    if (!states.empty()) states.back()->update(dt);
}

void draw() {
    if (!states.empty()) states.back()->draw();
}

void push(GameState* state) {
    GameState* previous = states.empty() ? nullptr : states.back();
    states.push_back(state);
    if (previous) previous->pause();
    state->init();
}

void pop() {
    if (states.empty()) return;
    std::size_t countAtStart = states.size();
    if (countAtStart >= 2) states[countAtStart - 2]->resume();
    GameState* leaving = states.back();
    leaving->clear();
    delete leaving;
    states.pop_back();
    if (countAtStart == 1) running = false;
}

GameState* top() { return states.empty() ? nullptr : states.back(); }

void quit() { running = false; }

bool isRunning() { return running; }

void clear() {
    while (!states.empty()) {
        GameState* leaving = states.back();
        leaving->clear();
        states.pop_back();
        // Deleted too, so that a finished run leaves nothing behind.
        delete leaving;
    }
    ControllerManager::clear();
}

unsigned depth() { return static_cast<unsigned>(states.size()); }

}  // namespace Engine
