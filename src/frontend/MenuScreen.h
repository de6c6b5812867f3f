#pragma once
#include <string>

#include "graphics/Menu.h"
#include "graphics/Text.h"
#include "resources/IniFile.h"
#include "shell/GameState.h"

// What the menu screens share: a Menu shown as one text centred in the
// window, labels from one section of the language file, leaving when the
// menu is left from its root, and the re-arming of the menu when a screen
// above has gone.
class MenuScreen : public GameState {
public:
    // The menu's frame; a chosen action goes to choose.
    void update(float dt) override;
    void draw() override;
    void pause() override {}
    void resume() override { rearm(); }
    void clear() override { menu.clear(); }

    Menu menu;
    UI::Text text;

protected:
    // Acts on the id of the chosen action item; the menu stays done until
    // someone resumes it.
    virtual void choose(int32_t id) = 0;
    // Each frame after the menu's input, before the screen may leave.
    virtual void afterInput() {}
    // Reads the section the labels come from and opens an empty root level.
    void openMenu(const char* section);
    // Once the items stand: a key still held from before does nothing, and
    // the text is shown.
    void showMenu();
    // Back on top after a screen above has gone.
    void rearm();
    void buildText();
    std::string word(const char* key) { return lang.get(key); }
    // A value item of whole numbers from `min` to `max`; a first value from
    // outside (a damaged settings file) is brought into the range.
    static void wholeValues(MenuItem* item, int min, int max, int first);
    // The label of `key` with the chosen name behind it, or alone while none was chosen.
    void relabel(int32_t id, const char* key, const std::string& name);

    IniFile lang;
};
