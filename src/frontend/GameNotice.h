#pragma once
#include <string>

#include "graphics/Text.h"

// The one line that a game screen shows over the world, such as a lost
// connection: a word of the section "demo_game" of the language file,
// centred in the window. The words are read anew at each change, as a
// screen reads its section when it starts.
class GameNotice {
public:
    static constexpr const char* SECTION = "demo_game";
    static constexpr int32_t WIDTH = 800;
    static constexpr int32_t HEIGHT = 600;

    void init();
    // The word of `key`, then `detail`; a key missing from the file shows
    // the detail alone.
    void show(const char* key, const std::string& detail = std::string());
    void hide();
    void draw();

    UI::Text text;
};
