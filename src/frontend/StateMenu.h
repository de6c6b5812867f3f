#pragma once
#include "frontend/MenuScreen.h"
#include "resources/Database.h"

// The main menu of the local front end: a duel, the controls of four
// players, and the two volumes.
class StateMenu : public MenuScreen {
public:
    enum ItemId {
        ITEM_RETURN = 0,
        ITEM_START = 1,
        ITEM_OPTIONS = 2,
        ITEM_EXIT = 4,
        ITEM_DUEL = 6,
        ITEM_CONTROLS = 7,
        ITEM_SOUND = 8,
        ITEM_MUSIC = 9,
        ITEM_OPTIONS_RETURN = 10,
        ITEM_PLAYER_1 = 11,
        ITEM_PLAYER_4 = 14,
    };
    static constexpr float VOLUME_DELAY = 0.03125f;
    static constexpr const char* SETTINGS = Database::SETTINGS_FILE;

    void init() override;
    int getType() override { return STATE_MENU; }

protected:
    void choose(int32_t id) override;
    // The sliders are heard at once, and kept once the keys are let go.
    void afterInput() override;

private:
    MenuItem* addVolume(int id, const char* key, float share);

    MenuItem* soundItem = nullptr;
    MenuItem* musicItem = nullptr;
    bool volumesMoved = false;
};
