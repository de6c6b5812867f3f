#include "frontend/StateDuelPrepare.h"

#include "frontend/StateDuel.h"
#include "shell/Engine.h"
#include "shell/Log.h"

void StateDuelPrepare::init() {
    openMenu("game_classic");
    menu.addItem(ITEM_START, MENU_ACTION, word("menu_start"));
    menu.addItem(ITEM_ARENA, MENU_ACTION, word("menu_select_arena"));
    menu.addItem(ITEM_FIGHTER_1, MENU_ACTION, word("menu_select_char_1"));
    menu.addItem(ITEM_FIGHTER_2, MENU_ACTION, word("menu_select_char_2"));
    wholeValues(menu.addItem(ITEM_ROUNDS, MENU_VALUE, word("menu_rounds"), 0.25f), 1, 50, 3);
    wholeValues(menu.addItem(ITEM_TIME, MENU_VALUE, word("menu_time"), 0.0625f), 0, 90, 45);
    menu.addItem(ITEM_RETURN, MENU_BACK, word("menu_return"));
    menu.addItem(ITEM_OPPONENT, MENU_ACTION, "");
    choice.selecting = ContentChoice::SELECTING_NONE;
    showChoices();
    showMenu();
}

void StateDuelPrepare::choose(int32_t id) {
    if (id == ITEM_START) {
        startDuel();
    } else if (id == ITEM_ARENA) {
        choice.selectArena();
    } else if (id == ITEM_FIGHTER_1 || id == ITEM_FIGHTER_2) {
        choice.selectFighter(id - ITEM_FIGHTER_1);
    } else if (id == ITEM_OPPONENT) {
        secondIsBot = !secondIsBot;
        showChoices();
        rearm();
    } else {
        Log::info("StateDuelPrepare.update: Nieznana akcja (%d)", id);
        menu.resume();
    }
}

void StateDuelPrepare::startDuel() {
    auto* duel = new StateDuel(port);
    duel->setup(choice, secondIsBot, static_cast<int32_t>(menu.find(ITEM_ROUNDS)->value),
                menu.find(ITEM_TIME)->value);
    Engine::push(duel);
}

void StateDuelPrepare::resume() {
    choice.takeBack("StateDuelPrepare.resume");
    showChoices();
    rearm();
}

void StateDuelPrepare::showChoices() {
    relabel(ITEM_ARENA, "menu_select_arena", choice.arenaName);
    relabel(ITEM_FIGHTER_1, "menu_select_char_1", choice.fighterNames[0]);
    relabel(ITEM_FIGHTER_2, "menu_select_char_2", choice.fighterNames[1]);
    menu.find(ITEM_OPPONENT)->label = word(secondIsBot ? "menu_second_bot" : "menu_second_player");
}
