#include "frontend/StateControls.h"

#include <cstring>
#include <string>

#include "frontend/ScreenText.h"
#include "gameplay/ControllerKeyboard.h"
#include "gameplay/ControllerManager.h"
#include "graphics/Render.h"
#include "resources/LanguageFile.h"
#include "shell/Engine.h"
#include "shell/Log.h"

namespace {

// The words of the actions in the language file, in the order of the actions.
const char* const ACTION_WORDS[ACTION_COUNT] = {"up", "down", "left", "right", "a", "b"};

}  // namespace

StateControls::StateControls(int32_t player) : player(player) {}

void StateControls::init() {
    LanguageFile::load(lang, "controls");
    Controller* controller = ControllerManager::get(player);
    if (controller && controller->getType() == CONTROLLER_KEYBOARD)
        memcpy(keys, static_cast<ControllerKeyboard*>(controller)->keys, sizeof keys);
    // Keys held when the screen opens, such as the one that chose it, count
    // only once they are let go and pressed again.
    memcpy(before, SDL_GetKeyState(nullptr), sizeof before);
    ScreenText::init(text, Render::getWidth(), Render::getHeight(), ScreenText::CENTRED);
    buildText();
}

void StateControls::update(float) {
    const int32_t key = freshKey();
    if (key == SDLK_ESCAPE) {
        cancelled = true;
        Engine::pop();
    } else if (key != 0) {
        take(key);
    }
}

int32_t StateControls::freshKey() {
    const uint8_t* now = SDL_GetKeyState(nullptr);
    const bool escape = now[SDLK_ESCAPE] && !before[SDLK_ESCAPE];
    int32_t fresh = 0;
    for (int32_t key = 1; key < SDLK_LAST && fresh == 0; ++key)
        if (now[key] && !before[key]) fresh = key;
    memcpy(before, now, sizeof before);
    return escape ? SDLK_ESCAPE : fresh;
}

void StateControls::take(int32_t key) {
    refusedFor = -1;
    for (int32_t action = 0; action < step; ++action)
        if (keys[action] == key) refusedFor = action;
    if (refusedFor < 0) keys[step++] = key;
    if (step == ACTION_COUNT)
        finish();
    else
        buildText();
}

void StateControls::finish() {
    if (ControllerManager::setKeyboard(player, keys))
        Log::info("StateControls.update: Nowe klawisze gracza %d", player + 1);
    else
        Log::fail("StateControls.update: Nie udalo sie zapisac klawiszy gracza %d", player + 1);
    Engine::pop();
}

std::string StateControls::keyName(int32_t key) {
    if (key <= 0 || key >= SDLK_LAST) return lang.get("none");
    return SDL_GetKeyName(static_cast<SDLKey>(key));
}

void StateControls::buildText() {
    std::string out = lang.get("title") + " " + std::to_string(player + 1) + "\n";
    for (int32_t action = 0; action < ACTION_COUNT; ++action) {
        const std::string label = lang.get(ACTION_WORDS[action]) + ": ";
        if (action == step)
            out += "\n[" + label + lang.get("press") + "]";
        else
            out += "\n" + label + keyName(keys[action]);
    }
    out += "\n\n";
    if (refusedFor >= 0) out += lang.get("taken") + " " + lang.get(ACTION_WORDS[refusedFor]);
    out += "\n" + lang.get("cancel");
    text.setText(out);
    text.update();
}

void StateControls::draw() { text.draw(0.0f, 0.0f, 0.0f, 255.0f); }
