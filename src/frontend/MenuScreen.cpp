#include "frontend/MenuScreen.h"

#include <algorithm>

#include "frontend/ScreenText.h"
#include "graphics/Render.h"
#include "resources/LanguageFile.h"
#include "shell/Engine.h"

void MenuScreen::openMenu(const char* section) {
    LanguageFile::load(lang, section);
    menu.begin();
}

void MenuScreen::showMenu() {
    menu.delay = Menu::HELD_KEY_DELAY;
    ScreenText::init(text, Render::getWidth(), Render::getHeight(), ScreenText::CENTRED);
    buildText();
}

void MenuScreen::update(float dt) {
    if (menu.poll(dt)) buildText();
    afterInput();
    if (menu.quit)
        Engine::pop();
    else if (menu.done)
        choose(menu.currentItem()->id);
}

void MenuScreen::rearm() {
    menu.resume();
    menu.delay = Menu::HELD_KEY_DELAY;
    buildText();
}

void MenuScreen::buildText() {
    text.setText(menu.level()->text());
    text.update();
}

void MenuScreen::draw() { text.draw(0.0f, 0.0f, 0.0f, 255.0f); }

void MenuScreen::wholeValues(MenuItem* item, int min, int max, int first) {
    item->setRange(static_cast<float>(min), static_cast<float>(max), 1.0f);
    item->value = static_cast<float>(std::clamp(first, min, max));
}

void MenuScreen::relabel(int32_t id, const char* key, const std::string& name) {
    menu.find(id)->label = name.empty() ? word(key) : word(key) + ": " + name;
}
