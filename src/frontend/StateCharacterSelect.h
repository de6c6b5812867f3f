#pragma once
#include <string>
#include <vector>

#include "graphics/Menu.h"
#include "graphics/Text.h"
#include "resources/IniFile.h"
#include "shell/GameState.h"

class Character;

// Each player in turn picks a fighter: a wheel of names on the left half of
// the window, the fighter's description on the right.
class StateCharacterSelect : public GameState {
public:
    enum ItemId {
        ITEM_RETURN = -2,
        ITEM_RANDOM = -3,
    };
    static constexpr int32_t TITLE_HEIGHT = 64;
    // The chosen fighter stands above its description, with its feet here.
    static constexpr float PREVIEW_FEET = 280.0f;
    static constexpr int32_t DESC_TOP = 300;
    static constexpr int32_t DESC_MARGIN = 24;
    static constexpr const char* FOLDER = "character";

    struct Fighter {
        Character* character;  // owned
        std::string description;
    };

    ~StateCharacterSelect() override;

    // Before the push: how many players choose.
    void setPlayers(int count);
    void init() override;
    void update(float dt) override;
    void draw() override;
    void clear() override;
    void pause() override {}
    void resume() override {}
    int getType() override { return STATE_CHARACTER_SELECT; }

    Menu menu;
    UI::Text title;
    UI::Text list;
    UI::Text desc;
    IniFile lang;
    std::vector<Fighter> fighters;
    std::vector<Character*> selected;  // one per player, not owned; null until chosen
    int32_t current = 0;
    bool cancelled = false;

private:
    void loadRes();
    void addFighter(const std::string& name);
    void buildTexts();
    std::string wheelText() const;
    // The fighter under the cursor, or null on "return" and "random".
    Fighter* fighterUnderCursor();
    // The next player's turn; false when every player has chosen.
    bool nextPlayer();
};
