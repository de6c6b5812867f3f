#pragma once
#include <string>

#include "frontend/MenuScreen.h"

// The set-up of a local duel: the arena, two fighters, the rounds and the
// seconds of a round. The choices are kept here; starting the duel isn't
// possible yet, so its item does nothing.
class StateDuelPrepare : public MenuScreen {
public:
    enum ItemId {
        ITEM_START = 0,
        ITEM_ARENA = 1,
        ITEM_FIGHTER_1 = 2,
        ITEM_FIGHTER_2 = 3,
        ITEM_ROUNDS = 4,
        ITEM_TIME = 5,
        ITEM_RETURN = 6,
    };
    // What is being chosen on the screen above.
    enum Selecting {
        SELECTING_NONE = 0,
        SELECTING_FIGHTER_1 = 1,
        SELECTING_FIGHTER_2 = 2,
        SELECTING_ARENA = 3,
    };

    void init() override;
    // Reads the choice back from the selection screen that is leaving.
    void resume() override;
    int getType() override { return STATE_DUEL_PREPARE; }

    int32_t selecting = SELECTING_NONE;
    // Script paths of the choices; empty until chosen.
    std::string fighterPaths[2];
    std::string arenaPath;

protected:
    void choose(int32_t id) override;

private:
    // The selection screen on top, unless it isn't of the type expected or
    // was broken off; both are logged.
    template <typename Selection>
    Selection* finishedSelection(int type, const char* typeName, const char* what);
};
