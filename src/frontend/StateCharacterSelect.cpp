#include "frontend/StateCharacterSelect.h"

#include <cstdlib>

#include "frontend/ContentList.h"
#include "frontend/ScreenText.h"
#include "gameplay/Character.h"
#include "gameplay/ControllerManager.h"
#include "graphics/Render.h"
#include "resources/LanguageFile.h"
#include "shell/Engine.h"

namespace {

const char* const OPERATION = "StateCharacterSelect.loadRes";

}  // namespace

StateCharacterSelect::~StateCharacterSelect() { clear(); }

void StateCharacterSelect::setPlayers(int count) { selected.assign(count > 0 ? count : 0, nullptr); }

void StateCharacterSelect::init() {
    menu.begin();
    menu.delay = Menu::HELD_KEY_DELAY;
    LanguageFile::load(lang, "character_select");
    menu.addItem(ITEM_RETURN, MENU_BACK, lang.get("return"));
    menu.addItem(ITEM_RANDOM, MENU_ACTION, lang.get("random"));
    loadRes();

    const int32_t width = Render::getWidth();
    const int32_t below = Render::getHeight() - TITLE_HEIGHT;
    ScreenText::init(title, width, TITLE_HEIGHT, ScreenText::CENTRED);
    ScreenText::init(list, width / 2, below, ScreenText::CENTRED);
    ScreenText::init(desc, width / 2 - 2 * DESC_MARGIN, Render::getHeight() - DESC_TOP, ScreenText::CENTRED_WRAPPED);
    if (!selected.empty() && ControllerManager::get(0)) {
        current = 0;
        selected[0] = nullptr;
        menu.resume();
    }
    buildTexts();
}

void StateCharacterSelect::loadRes() {
    for (const std::string& name : ContentList::names(FOLDER, OPERATION, "Brak postaci")) addFighter(name);
}

void StateCharacterSelect::addFighter(const std::string& name) {
    Character* character = ContentList::load<Character>(FOLDER, name);
    if (!character) return;
    const int32_t index = static_cast<int32_t>(fighters.size());
    fighters.push_back({character, ContentList::description(FOLDER, name, OPERATION)});
    menu.addItem(index, MENU_ACTION, character->name);
}

void StateCharacterSelect::update(float dt) {
    if (Fighter* fighter = fighterUnderCursor()) fighter->character->sprite.update(dt);
    if (menu.poll(dt)) buildTexts();
    if (menu.quit) {
        cancelled = true;
        Engine::pop();
        return;
    }
    if (!menu.done) return;
    int32_t index = menu.currentItem()->id;
    // With no fighter to draw from, "random" picks nothing and the menu goes on.
    if (index == ITEM_RANDOM) index = fighters.empty() ? -1 : rand() % static_cast<int32_t>(fighters.size());
    if (index < 0 || index >= static_cast<int32_t>(fighters.size())) {
        menu.resume();
        return;
    }
    if (current >= 0 && current < static_cast<int32_t>(selected.size()))
        selected[current] = fighters[index].character;
    if (!nextPlayer()) Engine::pop();
}

bool StateCharacterSelect::nextPlayer() {
    const int32_t next = current + 1;
    if (next >= static_cast<int32_t>(selected.size()) || !ControllerManager::get(next)) return false;
    current = next;
    selected[current] = nullptr;
    menu.resume();
    menu.delay = Menu::HELD_KEY_DELAY;
    menu.first();
    buildTexts();
    return true;
}

void StateCharacterSelect::buildTexts() {
    if (selected.size() == 1)
        title.setText(lang.get("title_single"));
    else
        title.setText(lang.get("title") + " " + std::to_string(current + 1));
    list.setText(wheelText());
    const Fighter* fighter = fighterUnderCursor();
    desc.alpha = fighter ? 255.0f : 0.0f;
    desc.setText(fighter ? fighter->description : std::string());
    title.update();
    list.update();
    desc.update();
}

// The selected item stands in the middle line, and the list wraps around.
std::string StateCharacterSelect::wheelText() const {
    const std::vector<MenuItem*>& items = menu.root.items;
    const int32_t count = static_cast<int32_t>(items.size());
    std::string text;
    for (int32_t line = 0; line < count; ++line) {
        const int32_t index = ((menu.root.current - count / 2 + line) % count + count) % count;
        if (line > 0) text += '\n';
        if (index == menu.root.current)
            text += "[" + items[index]->label + "]";
        else
            text += items[index]->label;
    }
    return text;
}

StateCharacterSelect::Fighter* StateCharacterSelect::fighterUnderCursor() {
    const MenuItem* item = menu.currentItem();
    if (!item || item->id < 0 || item->id >= static_cast<int32_t>(fighters.size())) return nullptr;
    return &fighters[item->id];
}

void StateCharacterSelect::draw() {
    const float half = static_cast<float>(Render::getWidth() / 2);
    title.draw(0.0f, 0.0f, 0.0f, 255.0f);
    list.draw(0.0f, static_cast<float>(TITLE_HEIGHT), 0.0f, 255.0f);
    if (Fighter* fighter = fighterUnderCursor()) {
        fighter->character->position = Vector(half * 1.5f, PREVIEW_FEET, 0.0f, 0.0f);
        fighter->character->draw();
    }
    desc.draw(half + DESC_MARGIN, static_cast<float>(DESC_TOP), 0.0f, 255.0f);
}

void StateCharacterSelect::clear() {
    for (Fighter& fighter : fighters) delete fighter.character;
    fighters.clear();
    selected.clear();
    lang = IniFile();
    menu.clear();
}
