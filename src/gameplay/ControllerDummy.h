#pragma once
#include "gameplay/Controller.h"

// Six flags written directly by whoever steers: the network or a bot.
class ControllerDummy : public Controller {
public:
    bool isPressed(int action) override { return isAction(action) && pressed[action]; }
    int getType() override { return CONTROLLER_DUMMY; }

    bool pressed[ACTION_COUNT] = {};
};
