#include "gameplay/ControllerKeyboard.h"

#include <SDL/SDL.h>

#include "resources/Database.h"

namespace {

const char* const ACTION_KEY_NAMES[ACTION_COUNT] = {".up", ".down", ".left", ".right", ".a", ".b"};

}  // namespace

const char* ControllerKeyboard::keyName(int action) { return isAction(action) ? ACTION_KEY_NAMES[action] : ""; }

void ControllerKeyboard::init(const std::string& path, const std::string& prefix) {
    Database* settings = Database::get(path);
    for (int action = 0; action < ACTION_COUNT; ++action) keys[action] = settings->getVal(prefix + keyName(action));
    keyState = SDL_GetKeyState(nullptr);
}

void ControllerKeyboard::setKeys(const int32_t codes[ACTION_COUNT]) {
    for (int action = 0; action < ACTION_COUNT; ++action) keys[action] = codes[action];
}

bool ControllerKeyboard::isPressed(int action) {
    if (!keyState || !isAction(action)) return false;
    // Key codes come from a file the user can edit; SDL's table ends at SDLK_LAST.
    int32_t key = keys[action];
    return key >= 0 && key < SDLK_LAST && keyState[key] != 0;
}
