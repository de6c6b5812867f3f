#pragma once
#include <cstdint>
#include <string>

#include "gameplay/Controller.h"

// Reads the actions from SDL's key-state array, with one key code per
// action taken from the settings.
class ControllerKeyboard : public Controller {
public:
    // Key codes from the settings file `path` under `prefix`, as in
    // "ctrl.0.keyboard"; an unset key reads 0.
    void init(const std::string& path, const std::string& prefix);
    void setKeys(const int32_t codes[ACTION_COUNT]);
    bool isPressed(int action) override;
    // The settings key of an action behind the prefix, as ".up".
    static const char* keyName(int action);
    int getType() override { return CONTROLLER_KEYBOARD; }

    int32_t keys[ACTION_COUNT] = {};

private:
    // SDL's table, refreshed by every event pump; not owned.
    const uint8_t* keyState = nullptr;
};
