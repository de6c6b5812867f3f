#pragma once
#include <string>

#include "graphics/Menu.h"
#include "graphics/Text.h"
#include "resources/IniFile.h"
#include "shell/GameState.h"

// What the menu screens share: a Menu shown as one text centred in the
// window, labels from one section of the language file, and the re-arming
// of the menu when a screen above has gone.
class MenuScreen : public GameState {
public:
    void draw() override;
    void pause() override {}

    Menu menu;
    UI::Text text;

protected:
    // Reads the section the labels come from and opens an empty root level.
    void openMenu(const char* section);
    // Once the items stand: a key still held from before does nothing, and
    // the text is shown.
    void showMenu();
    // One frame of the menu and its text.
    void runMenu(float dt);
    // Back on top after a screen above has gone.
    void rearm();
    void buildText();
    std::string word(const char* key) { return lang.get(key); }

    IniFile lang;
};
