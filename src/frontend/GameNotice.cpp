#include "frontend/GameNotice.h"

#include "frontend/ScreenText.h"
#include "resources/IniFile.h"
#include "resources/LanguageFile.h"

void GameNotice::init() { ScreenText::init(text, WIDTH, HEIGHT, ScreenText::CENTRED_WRAPPED); }

void GameNotice::show(const char* key, const std::string& detail) {
    IniFile words;
    LanguageFile::load(words, SECTION);
    text.setText(words.get(key) + detail);
    text.update();
}

void GameNotice::hide() {
    text.setText("");
    text.update();
}

void GameNotice::draw() { text.draw(0.0f, 0.0f, 0.0f, 255.0f); }
