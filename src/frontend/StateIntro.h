#pragma once
#include "shell/GameState.h"

// The bottom of the local front end: it starts the main menu at once, and
// when the menu has gone it fades the window to black and ends the program.
class StateIntro : public GameState {
public:
    static constexpr float FADE_TIME = 0.5f;

    void init() override;
    void update(float dt) override;
    void draw() override;
    void pause() override {}
    void resume() override;
    int getType() override { return STATE_INTRO; }

    float timer = 0.0f;
    bool first = true;
};
