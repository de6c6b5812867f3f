#pragma once
#include <cstdint>

#include "frontend/ContentChoice.h"
#include "frontend/MenuScreen.h"
#include "network/Packet.h"

// The set-up of a local duel: the arena, two fighters, who plays the second
// one, the rounds and the seconds of a round; the start item runs the duel,
// and the set-up comes back when it is over.
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
        ITEM_OPPONENT = 7,
    };

    void init() override;
    // Reads the choice back from the selection screen that is leaving.
    void resume() override;
    int getType() override { return STATE_DUEL_PREPARE; }

    // The port the duel is hosted on.
    int32_t port = Packet::PORT;
    ContentChoice choice;
    // The second fighter is the computer's rather than player 2's.
    bool secondIsBot = false;

protected:
    void choose(int32_t id) override;

private:
    void startDuel();
    // The labels that tell what was chosen.
    void showChoices();
};
