#include "frontend/StateArenaSelect.h"

#include <cstdlib>

#include "frontend/ContentList.h"
#include "frontend/ScreenText.h"
#include "gameplay/Arena.h"
#include "graphics/Render.h"
#include "resources/IniFile.h"
#include "resources/LanguageFile.h"
#include "shell/Engine.h"
#include "shell/Log.h"

namespace {

const char* const OPERATION = "StateArenaSelect.init";

}  // namespace

StateArenaSelect::~StateArenaSelect() {
    clear();
    delete chosen;
}

void StateArenaSelect::init() {
    menu.begin();
    menu.delay = Menu::HELD_KEY_DELAY;
    IniFile lang;
    LanguageFile::load(lang, "arena_select");
    entries.push_back({nullptr, 0.0f, lang.get("return")});
    menu.addItem(ENTRY_RETURN, MENU_BACK, lang.get("return"));
    entries.push_back({nullptr, 0.0f, lang.get("random")});
    menu.addItem(ENTRY_RANDOM, MENU_ACTION, lang.get("random"));
    for (const std::string& name : ContentList::names(FOLDER, OPERATION, "Brak aren")) addArena(name);

    const float margin = 2.0f * DESC_MARGIN;
    ScreenText::init(desc, Render::getWidth() - static_cast<int32_t>(margin),
                     Render::getHeight() - static_cast<int32_t>(margin), ScreenText::CENTRED_WRAPPED);
    showCurrent();
}

void StateArenaSelect::addArena(const std::string& name) {
    Arena* arena = ContentList::load<Arena>(FOLDER, name);
    if (!arena) return;
    const int32_t index = static_cast<int32_t>(entries.size());
    entries.push_back({arena, 0.0f, ContentList::description(FOLDER, name, OPERATION)});
    menu.addItem(index, MENU_ACTION, name);
}

void StateArenaSelect::update(float dt) {
    fade(dt);
    if (menu.poll(dt)) showCurrent();
    if (menu.quit || (menu.done && current == ENTRY_RETURN)) {
        cancelled = true;
        Engine::pop();
        return;
    }
    if (!menu.done) return;
    if (current == ENTRY_RANDOM) {
        const int32_t arenas = static_cast<int32_t>(entries.size()) - FIRST_ARENA;
        // With no arena to draw from, "random" picks nothing and the menu goes on.
        if (arenas <= 0) {
            menu.resume();
            return;
        }
        current = FIRST_ARENA + rand() % arenas;
    }
    chosen = entries[current].arena;
    Log::info("arena %d; desc: %s", current, entries[current].text.c_str());
    Engine::pop();
}

// The entry under the cursor fades in twice as fast as the others fade out.
void StateArenaSelect::fade(float dt) {
    for (std::size_t i = 0; i < entries.size(); ++i) {
        float& alpha = entries[i].alpha;
        if (static_cast<int32_t>(i) == current)
            alpha = alpha + FADE_IN * dt > 255.0f ? 255.0f : alpha + FADE_IN * dt;
        else
            alpha = alpha - FADE_OUT * dt < 0.0f ? 0.0f : alpha - FADE_OUT * dt;
    }
}

void StateArenaSelect::showCurrent() {
    current = menu.root.current;
    const std::string& text = entries[current].text;
    desc.alpha = text.empty() ? 0.0f : 255.0f;
    desc.setText(text);
    desc.update();
}

void StateArenaSelect::draw() {
    for (const Entry& entry : entries) drawBackdrop(entry);
    // A dark band keeps the description readable over a busy picture.
    if (desc.alpha > 0.0f && entries[current].arena) {
        const float top = DESC_MARGIN + static_cast<float>((desc.height - desc.textHeight) / 2) - BAND_PADDING;
        Render::setMode(Render::MODE_SCREEN_SHAPES);
        Render::setColor(0, 0, 0, BAND_ALPHA);
        Render::drawRect(0.0f, top, static_cast<float>(Render::getWidth()),
                         static_cast<float>(desc.textHeight) + 2.0f * BAND_PADDING);
    }
    Render::setMode(Render::MODE_WORLD_IMAGES);
    Render::setAlpha(255);
    desc.draw(DESC_MARGIN, DESC_MARGIN, 0.0f, 255.0f);
}

// "Return" and "random" are black; an arena shows its own picture, as
// strongly as it has faded in.
void StateArenaSelect::drawBackdrop(const Entry& entry) {
    if (!entry.arena) {
        Render::setMode(Render::MODE_SCREEN_SHAPES);
        Render::setColor(0, 0, 0, 255);
        Render::drawRect(0.0f, 0.0f, static_cast<float>(Render::getWidth()), static_cast<float>(Render::getHeight()));
        return;
    }
    if (entry.alpha < 1.0f) return;
    Render::setMode(Render::MODE_WORLD_IMAGES);
    Render::setColor(255, 255, 255, static_cast<uint8_t>(entry.alpha));
    entry.arena->draw();
}

std::string StateArenaSelect::chosenPath() const { return chosen ? chosen->path : std::string(); }

void StateArenaSelect::clear() {
    for (Entry& entry : entries)
        if (entry.arena != chosen) delete entry.arena;
    entries.clear();
    menu.clear();
}
