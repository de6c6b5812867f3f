#include "frontend/StateDuelPrepare.h"

#include "frontend/StateArenaSelect.h"
#include "frontend/StateCharacterSelect.h"
#include "shell/Engine.h"
#include "shell/Log.h"

void StateDuelPrepare::init() {
    openMenu("game_classic");
    // A duel can't be started yet, and the item says so.
    menu.addItem(ITEM_START, MENU_ACTION, word("menu_no_start"));
    menu.addItem(ITEM_ARENA, MENU_ACTION, word("menu_select_arena"));
    menu.addItem(ITEM_FIGHTER_1, MENU_ACTION, word("menu_select_char_1"));
    menu.addItem(ITEM_FIGHTER_2, MENU_ACTION, word("menu_select_char_2"));
    MenuItem* rounds = menu.addItem(ITEM_ROUNDS, MENU_VALUE, word("menu_rounds"), 0.25f);
    rounds->setRange(1.0f, 50.0f, 1.0f);
    rounds->value = 3.0f;
    MenuItem* time = menu.addItem(ITEM_TIME, MENU_VALUE, word("menu_time"), 0.0625f);
    time->setRange(0.0f, 90.0f, 1.0f);
    time->value = 45.0f;
    menu.addItem(ITEM_RETURN, MENU_BACK, word("menu_return"));
    selecting = SELECTING_NONE;
    showMenu();
}

void StateDuelPrepare::choose(int32_t id) {
    if (id == ITEM_START) {
        menu.resume();
    } else if (id == ITEM_ARENA) {
        selecting = SELECTING_ARENA;
        Engine::push(new StateArenaSelect());
    } else if (id == ITEM_FIGHTER_1 || id == ITEM_FIGHTER_2) {
        auto* select = new StateCharacterSelect();
        select->setPlayers(1);
        selecting = id == ITEM_FIGHTER_1 ? SELECTING_FIGHTER_1 : SELECTING_FIGHTER_2;
        Engine::push(select);
    } else {
        Log::info("StateDuelPrepare.update: Nieznana akcja (%d)", id);
        menu.resume();
    }
}

void StateDuelPrepare::resume() {
    if (selecting == SELECTING_FIGHTER_1 || selecting == SELECTING_FIGHTER_2) {
        auto* select =
            finishedSelection<StateCharacterSelect>(STATE_CHARACTER_SELECT, "STATE_CHARACTER_SELECT", "postaci");
        if (select) fighterPaths[selecting - SELECTING_FIGHTER_1] = select->selectedPath(0);
    } else if (selecting == SELECTING_ARENA) {
        auto* select = finishedSelection<StateArenaSelect>(STATE_ARENA_SELECT, "STATE_ARENA_SELECT", "areny");
        if (select) arenaPath = select->chosenPath();
    }
    rearm();
}

template <typename Selection>
Selection* StateDuelPrepare::finishedSelection(int type, const char* typeName, const char* what) {
    if (Engine::top()->getType() != type) {
        Log::fail("StateDuelPrepare.resume: Skopane state, oczekiwano %s, otrzymano cos innego", typeName);
        return nullptr;
    }
    auto* select = static_cast<Selection*>(Engine::top());
    if (select->cancelled) {
        Log::info("StateDuelPrepare.resume: Wybor %s przerwany", what);
        return nullptr;
    }
    return select;
}
