#include "gameplay/ControllerManager.h"

#include <vector>

#include "gameplay/ControllerKeyboard.h"
#include "resources/Database.h"
#include "shell/Log.h"

namespace {

// The count comes from a file the user can edit; no game has more players
// than a server takes connections.
const int MOST_CONTROLLERS = 64;
const int WARN_ABOVE = 16;

std::vector<Controller*> controllers;
std::string settingsPath = Database::SETTINGS_FILE;

std::string prefixOf(int index) { return "ctrl." + std::to_string(index); }

// Writes controller `index` as a keyboard with these keys; returns the prefix of its keys.
std::string storeKeyboard(Database& settings, int index, const int32_t keys[ACTION_COUNT]) {
    const std::string key = prefixOf(index);
    const std::string prefix = key + ".keyboard";
    settings.setStr(key, "keyboard");
    for (int action = 0; action < ACTION_COUNT; ++action)
        settings.setVal(prefix + ControllerKeyboard::keyName(action), keys[action]);
    return prefix;
}

struct DefaultKeyboard {
    int index;
    int32_t keys[ACTION_COUNT];
};

// Arrows with right Shift and right Ctrl; WSAD with F and G.
const DefaultKeyboard DEFAULT_KEYBOARDS[] = {
    {0, {273, 274, 276, 275, 303, 305}},
    {1, {119, 115, 97, 100, 102, 103}},
};

}  // namespace

namespace ControllerManager {

void init(const std::string& path) {
    clear();
    settingsPath = path;
    Database* settings = Database::get(path);
    int wanted = settings->getVal("ctrl.count");
    if (wanted < 1) {
        writeDefaults();
        wanted = settings->getVal("ctrl.count");
    }
    if (wanted > WARN_ABOVE) Log::info("ControllerManager.init: Liczba kontrolerow >16 (%d)", wanted);
    if (wanted > MOST_CONTROLLERS) {
        Log::fail("ControllerManager.init: Liczba kontrolerow ograniczona do %d", MOST_CONTROLLERS);
        wanted = MOST_CONTROLLERS;
    }
    controllers.reserve(wanted > 0 ? wanted : 0);
    for (int i = 0; i < wanted; ++i) {
        const std::string key = prefixOf(i);
        const std::string type = settings->getStr(key);
        const std::string prefix = key + "." + type;
        Log::debug("ControllerManager.init: Prefix: \"%s\"", prefix.c_str());
        if (type.empty()) {
            controllers.push_back(nullptr);
        } else if (type == "keyboard") {
            auto* keyboard = new ControllerKeyboard();
            keyboard->init(path, prefix);
            controllers.push_back(keyboard);
        } else {
            Log::fail("ControllerManager.init: Nieznany typ kontrolera: \"%s\" (plik \"%s\")", type.c_str(), path.c_str());
        }
    }
}

void writeDefaults() {
    Database* settings = Database::get(Database::SETTINGS_FILE);
    settings->setVal("ctrl.count", 2);
    for (const DefaultKeyboard& keyboard : DEFAULT_KEYBOARDS) storeKeyboard(*settings, keyboard.index, keyboard.keys);
}

bool setKeyboard(int index, const int32_t keys[ACTION_COUNT]) {
    if (index < 0 || index >= MOST_CONTROLLERS) return false;
    Database* settings = Database::get(settingsPath);
    const std::string prefix = storeKeyboard(*settings, index, keys);
    if (settings->getVal("ctrl.count") < index + 1) settings->setVal("ctrl.count", index + 1);

    // Fighters may hold the other controllers, so those stay where they are.
    // Every entry made here is a keyboard.
    if (index >= count()) controllers.resize(index + 1, nullptr);
    if (!controllers[index]) controllers[index] = new ControllerKeyboard();
    auto* keyboard = static_cast<ControllerKeyboard*>(controllers[index]);
    keyboard->init(settingsPath, prefix);
    return settings->save(settingsPath);
}

void update(float dt) {
    for (Controller* controller : controllers)
        if (controller) controller->update(dt);
}

void clear() {
    for (Controller* controller : controllers) delete controller;
    controllers.clear();
}

Controller* get(int index) {
    if (index < 0 || index >= count()) return nullptr;
    return controllers[index];
}

int count() { return static_cast<int>(controllers.size()); }

bool isPressed(int action) {
    for (Controller* controller : controllers)
        if (controller && controller->isPressed(action)) return true;
    return false;
}

bool anyPressed() {
    for (int action = 0; action < ACTION_COUNT; ++action)
        if (isPressed(action)) return true;
    return false;
}

}  // namespace ControllerManager
