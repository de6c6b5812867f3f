#pragma once
#include <SDL/SDL.h>

#include <cstdint>

#include "gameplay/Controller.h"
#include "graphics/Text.h"
#include "resources/IniFile.h"
#include "shell/GameState.h"

// Asks one player for a key for each of the six actions in turn. A key
// another action of this player has just got is refused, Escape leaves with
// the old keys, and after the sixth key the new ones work at once and are
// saved. A player without a controller gets a keyboard.
class StateControls : public GameState {
public:
    // `player` counts from 0, as the controllers do.
    explicit StateControls(int32_t player);

    void init() override;
    void update(float dt) override;
    void draw() override;
    void pause() override {}
    void resume() override {}
    int getType() override { return STATE_CONTROLS; }

    int32_t player;
    // The player's keys: the new ones up to `step`, the old ones after it.
    int32_t keys[ACTION_COUNT] = {};
    int32_t step = 0;  // the action asked for now
    int32_t refusedFor = -1;  // the action the last refused key belongs to
    bool cancelled = false;
    UI::Text text;

private:
    // A key that went down since the last frame, Escape before any other;
    // 0 for none.
    int32_t freshKey();
    void take(int32_t key);
    void finish();
    void buildText();
    std::string keyName(int32_t key);

    IniFile lang;
    uint8_t before[SDLK_LAST] = {};
};
