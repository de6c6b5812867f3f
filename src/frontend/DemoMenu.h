#pragma once
#include <cstdint>
#include <string>

#include "frontend/ContentChoice.h"
#include "frontend/MenuScreen.h"
#include "graphics/SpriteInstance.h"
#include "resources/Database.h"
#include "network/Packet.h"

// The first screen: host a game for the players at this keyboard and some
// bots, or join one at an address, which is kept in the settings for the
// next time; the players' fighters and the host's arena are chosen here.
// The local menus open from here too. Everything comes back here when a
// game is left.
class DemoMenu : public MenuScreen {
public:
    enum ItemId {
        ITEM_HOST = 1,
        ITEM_JOIN = 2,
        ITEM_EXIT = 4,
        ITEM_HOST_PLAYERS = 5,
        ITEM_HOST_BOTS = 6,
        ITEM_HOST_START = 7,
        ITEM_HOST_EXIT = 8,
        ITEM_JOIN_IP = 9,
        ITEM_JOIN_IP_A = 10,  // the three further parts of the address follow
        ITEM_JOIN_IP_EXIT = 14,
        ITEM_JOIN_PLAYERS = 15,
        ITEM_JOIN_START = 16,
        ITEM_JOIN_EXIT = 17,
        // Beyond the first design, after its items on each level.
        ITEM_LOCAL = 18,
        ITEM_HOST_ARENA = 19,
        ITEM_HOST_FIGHTER_1 = 20,
        ITEM_HOST_FIGHTER_2 = 21,
        ITEM_JOIN_FIGHTER_1 = 22,
        ITEM_JOIN_FIGHTER_2 = 23,
    };
    static constexpr const char* SECTION = "demo_menu";
    static constexpr const char* SETTINGS = Database::SETTINGS_FILE;
    static constexpr const char* BACKGROUND = "bg.jpg";
    // A held key runs quickly through the 256 values of an address part.
    static constexpr float ADDRESS_DELAY = 0.05f;

    void init() override;
    void draw() override;
    // Reads the choice back from a selection screen that is leaving.
    void resume() override;
    int getType() override { return STATE_DEMO_MENU; }

    // The port hosted on and joined.
    int32_t port = Packet::PORT;
    Graphics::SpriteInstance background;
    // The players' fighters count for hosting and joining alike.
    ContentChoice choice;

protected:
    void choose(int32_t id) override;

private:
    void addValue(int32_t parent, int32_t id, const char* key, int min, int max, int first,
                  float delay = MenuItem::DEFAULT_DELAY);
    int valueOf(int32_t id) { return static_cast<int>(menu.find(id)->value); }
    void host();
    void join();
    // The labels that tell what was chosen.
    void showChoices();
};
