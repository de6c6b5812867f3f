#include "frontend/MenuScreen.h"

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
