#include "frontend/DemoMenu.h"

#include "frontend/DemoClient.h"
#include "frontend/DemoServer.h"
#include "frontend/StateMenu.h"
#include "graphics/Render.h"
#include "resources/Database.h"
#include "shell/Engine.h"

namespace {

// The settings of the four parts of the last address joined.
const char* const ADDRESS_KEYS[] = {"demo_join_a", "demo_join_b", "demo_join_c", "demo_join_d"};
const char* const ADDRESS_LABELS[] = {"join_ip_a", "join_ip_b", "join_ip_c", "join_ip_d"};
const int ADDRESS_PARTS = 4;

}  // namespace

void DemoMenu::init() {
    openMenu(SECTION);
    Database* settings = Database::get(SETTINGS);
    menu.addItem(ITEM_HOST, MENU_SUBMENU, word("host"));
    addValue(ITEM_HOST, ITEM_HOST_PLAYERS, "host_players", 1, 2, 1);
    addValue(ITEM_HOST, ITEM_HOST_BOTS, "host_bots", 0, 8, 0);
    menu.addChild(ITEM_HOST, ITEM_HOST_START, MENU_ACTION, word("host_start"));
    menu.addChild(ITEM_HOST, ITEM_HOST_EXIT, MENU_BACK, word("host_exit"));
    menu.addItem(ITEM_JOIN, MENU_SUBMENU, word("join"));
    menu.addChild(ITEM_JOIN, ITEM_JOIN_IP, MENU_SUBMENU, word("join_ip"));
    for (int part = 0; part < ADDRESS_PARTS; ++part)
        addValue(ITEM_JOIN_IP, ITEM_JOIN_IP_A + part, ADDRESS_LABELS[part], 0, 255,
                 settings->getVal(ADDRESS_KEYS[part]), ADDRESS_DELAY);
    menu.addChild(ITEM_JOIN_IP, ITEM_JOIN_IP_EXIT, MENU_BACK, word("join_exit"));
    addValue(ITEM_JOIN, ITEM_JOIN_PLAYERS, "join_players", 1, 2, 1);
    menu.addChild(ITEM_JOIN, ITEM_JOIN_START, MENU_ACTION, word("join_start"));
    menu.addChild(ITEM_JOIN, ITEM_JOIN_EXIT, MENU_BACK, word("join_exit"));
    menu.addItem(ITEM_EXIT, MENU_BACK, word("exit"));
    menu.addItem(ITEM_LOCAL, MENU_ACTION, word("local"));
    for (int32_t id : {ITEM_HOST_ARENA, ITEM_HOST_FIGHTER_1, ITEM_HOST_FIGHTER_2})
        menu.addChild(ITEM_HOST, id, MENU_ACTION, "");
    for (int32_t id : {ITEM_JOIN_FIGHTER_1, ITEM_JOIN_FIGHTER_2}) menu.addChild(ITEM_JOIN, id, MENU_ACTION, "");
    showChoices();
    background.setSprite(BACKGROUND);
    showMenu();
}

// Every value here is a count or an address part, in whole steps.
void DemoMenu::addValue(int32_t parent, int32_t id, const char* key, int min, int max, int first, float delay) {
    wholeValues(menu.addChild(parent, id, MENU_VALUE, word(key), delay), min, max, first);
}

void DemoMenu::choose(int32_t id) {
    if (id == ITEM_HOST_START)
        host();
    else if (id == ITEM_JOIN_START)
        join();
    else if (id == ITEM_LOCAL)
        Engine::push(new StateMenu());
    else if (id == ITEM_HOST_ARENA)
        choice.selectArena();
    else if (id == ITEM_HOST_FIGHTER_1 || id == ITEM_JOIN_FIGHTER_1)
        choice.selectFighter(0);
    else if (id == ITEM_HOST_FIGHTER_2 || id == ITEM_JOIN_FIGHTER_2)
        choice.selectFighter(1);
}

void DemoMenu::resume() {
    choice.takeBack("DemoMenu.resume");
    showChoices();
    rearm();
}

void DemoMenu::showChoices() {
    const struct {
        int32_t id;
        const char* key;
        const std::string& name;
    } labels[] = {
        {ITEM_HOST_ARENA, "arena", choice.arenaName},
        {ITEM_HOST_FIGHTER_1, "fighter_1", choice.fighterNames[0]},
        {ITEM_HOST_FIGHTER_2, "fighter_2", choice.fighterNames[1]},
        {ITEM_JOIN_FIGHTER_1, "fighter_1", choice.fighterNames[0]},
        {ITEM_JOIN_FIGHTER_2, "fighter_2", choice.fighterNames[1]},
    };
    for (const auto& label : labels) relabel(label.id, label.key, label.name);
}

void DemoMenu::host() {
    auto* server = new DemoServer(port);
    server->setup(valueOf(ITEM_HOST_PLAYERS), valueOf(ITEM_HOST_BOTS), choice);
    Engine::push(server);
}

// The address is kept whether or not the server answers.
void DemoMenu::join() {
    Database* settings = Database::get(SETTINGS);
    std::string address;
    for (int part = 0; part < ADDRESS_PARTS; ++part) {
        const int value = valueOf(ITEM_JOIN_IP_A + part);
        settings->setVal(ADDRESS_KEYS[part], value);
        address += (part > 0 ? "." : "") + std::to_string(value);
    }
    settings->save(SETTINGS);
    auto* client = new DemoClient(port);
    client->setup(valueOf(ITEM_JOIN_PLAYERS), address, choice);
    Engine::push(client);
}

void DemoMenu::draw() {
    Render::drawSprite(&background, 0.0f, 0.0f, 0.0f, 0.0f);
    MenuScreen::draw();
}
