#pragma once
#include <string>
#include <vector>

#include "graphics/Menu.h"
#include "graphics/Text.h"
#include "shell/GameState.h"

class Arena;

// One player picks an arena: the arenas fade into each other as the cursor
// moves, with the description of the entry under the cursor over them.
class StateArenaSelect : public GameState {
public:
    enum EntryIndex {
        ENTRY_RETURN = 0,
        ENTRY_RANDOM = 1,
        FIRST_ARENA = 2,
    };
    static constexpr float FADE_IN = 510.0f;  // alpha per second
    static constexpr float FADE_OUT = 255.0f;
    static constexpr float DESC_MARGIN = 32.0f;
    static constexpr float BAND_PADDING = 12.0f;
    static constexpr uint8_t BAND_ALPHA = 160;
    static constexpr const char* FOLDER = "arena";

    struct Entry {
        Arena* arena;  // owned; null for "return" and "random"
        float alpha;
        std::string text;
    };

    ~StateArenaSelect() override;

    void init() override;
    void update(float dt) override;
    void draw() override;
    // Frees every arena but the chosen one, which stays until the state goes.
    void clear() override;
    void pause() override {}
    void resume() override {}
    int getType() override { return STATE_ARENA_SELECT; }

    // The script of the chosen arena; empty when none was chosen.
    std::string chosenPath() const;

    std::vector<Entry> entries;
    int32_t current = 0;
    Arena* chosen = nullptr;
    Menu menu;
    UI::Text desc;
    bool cancelled = false;

private:
    void addArena(const std::string& name);
    void fade(float dt);
    void showCurrent();
    void drawBackdrop(const Entry& entry);
};
