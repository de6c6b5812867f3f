#include "frontend/StateMenu.h"

#include <cmath>
#include <string>

#include "audio/Sound.h"
#include "audio/SoundSettings.h"
#include "frontend/StateControls.h"
#include "frontend/StateDuelPrepare.h"
#include "gameplay/ControllerManager.h"
#include "shell/Engine.h"
#include "shell/Log.h"

void StateMenu::init() {
    openMenu("menu_main");
    menu.addItem(ITEM_START, MENU_SUBMENU, word("start"));
    menu.addChild(ITEM_START, ITEM_DUEL, MENU_ACTION, "Duel");
    menu.addChild(ITEM_START, ITEM_RETURN, MENU_BACK, word("return"));
    menu.addItem(ITEM_OPTIONS, MENU_SUBMENU, word("options"));
    menu.addChild(ITEM_OPTIONS, ITEM_CONTROLS, MENU_SUBMENU, word("options_controls"));
    for (int id = ITEM_PLAYER_1; id <= ITEM_PLAYER_4; ++id) {
        const std::string number = std::to_string(id - ITEM_PLAYER_1 + 1);
        menu.addChild(ITEM_CONTROLS, id, MENU_ACTION, word("options_player") + " " + number);
    }
    menu.addChild(ITEM_CONTROLS, ITEM_OPTIONS_RETURN, MENU_BACK, word("return"));
    soundItem = addVolume(ITEM_SOUND, "options_sound", Sound::getSoundVolume());
    musicItem = addVolume(ITEM_MUSIC, "options_music", Sound::getMusicVolume());
    menu.addChild(ITEM_OPTIONS, ITEM_OPTIONS_RETURN, MENU_BACK, word("return"));
    menu.addItem(ITEM_EXIT, MENU_ACTION, word("exit"));
    showMenu();
}

MenuItem* StateMenu::addVolume(int id, const char* key, float share) {
    MenuItem* item = menu.addChild(ITEM_OPTIONS, id, MENU_VALUE, word(key), VOLUME_DELAY);
    wholeValues(item, 0, 100, static_cast<int>(std::lround(share * 100.0f)));
    return item;
}

void StateMenu::choose(int32_t id) {
    if (id == ITEM_EXIT) {
        Engine::pop();
    } else if (id == ITEM_DUEL) {
        Engine::push(new StateDuelPrepare());
    } else if (id >= ITEM_PLAYER_1 && id <= ITEM_PLAYER_4) {
        Engine::push(new StateControls(id - ITEM_PLAYER_1));
    } else {
        Log::info("StateMenu.update: Nieznana akcja (%d)", id);
        menu.resume();
    }
}

// Saved only with the keys let go, not at every step of a held key, and
// only after a slider moved.
void StateMenu::afterInput() {
    const float sound = soundItem->value / 100.0f;
    const float music = musicItem->value / 100.0f;
    if (sound != Sound::getSoundVolume() || music != Sound::getMusicVolume()) volumesMoved = true;
    Sound::setSoundVolume(sound);
    Sound::setMusicVolume(music);
    if (volumesMoved && !ControllerManager::anyPressed()) {
        SoundSettings::save(SETTINGS);
        volumesMoved = false;
    }
}
