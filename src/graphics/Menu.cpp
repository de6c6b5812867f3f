#include "graphics/Menu.h"

#include <SDL/SDL.h>

#include <sstream>

#include "gameplay/Controller.h"
#include "gameplay/ControllerManager.h"
#include "shell/Log.h"

MenuItem::MenuItem(int32_t id, int32_t kind, const std::string& label, float delay)
    : id(id), kind(kind), delay(delay), label(label) {}

MenuItem::~MenuItem() { delete sub; }

void MenuItem::setRange(float low, float high, float stepSize) {
    min = low;
    max = high;
    step = stepSize;
    value = (min + max) * 0.5f;
}

void MenuItem::setSub(MenuList* list) { sub = list; }

void MenuItem::increase() {
    if (kind != MENU_VALUE) return;
    value += step;
    if (value > max) value = max;
}

void MenuItem::decrease() {
    if (kind != MENU_VALUE) return;
    value -= step;
    if (value < min) value = min;
}

MenuList::~MenuList() { clear(); }

void MenuList::add(MenuItem* item) { items.push_back(item); }

void MenuList::prev() {
    if (items.empty()) return;
    --current;
    normalize();
}

void MenuList::next() {
    if (items.empty()) return;
    ++current;
    normalize();
}

void MenuList::first() { current = 0; }

void MenuList::normalize() {
    const int32_t size = static_cast<int32_t>(items.size());
    if (size == 0) return;
    while (current < 0) current += size;
    while (current >= size) current -= size;
}

void MenuList::remove(int32_t index) {
    if (index < 0 || index >= static_cast<int32_t>(items.size())) return;
    delete items[index];
    items.erase(items.begin() + index);
    if (index < current) --current;
}

void MenuList::clear() {
    for (MenuItem* item : items) delete item;
    items.clear();
}

MenuItem* MenuList::currentItem() const {
    if (current < 0 || current >= static_cast<int32_t>(items.size())) return nullptr;
    return items[current];
}

std::string MenuList::text() const {
    std::ostringstream out;
    for (std::size_t i = 0; i < items.size(); ++i) {
        const MenuItem* item = items[i];
        const bool selected = static_cast<int32_t>(i) == current;
        if (i > 0) out << '\n';
        if (selected) out << '[';
        out << item->label;
        if (item->kind == MENU_VALUE) out << ": " << item->value;
        if (selected) out << ']';
    }
    return out.str();
}

void Menu::clear() {
    done = false;
    quit = false;
    root.clear();
    path.clear();
}

void Menu::begin() {
    clear();
    root.current = 0;
    path.push_back(&root);
}

MenuItem* Menu::addItem(int32_t id, int32_t kind, const std::string& label, float delay) {
    MenuItem* item = new MenuItem(id, kind, label, delay);
    root.add(item);
    return item;
}

MenuItem* Menu::addChild(int32_t parentId, int32_t id, int32_t kind, const std::string& label, float delay) {
    MenuItem* parent = find(parentId);
    if (!parent) {
        Log::fail("Menu.addChild: Nie ma pozycji %d", parentId);
        return nullptr;
    }
    if (!parent->sub) parent->setSub(new MenuList());
    MenuItem* item = new MenuItem(id, kind, label, delay);
    parent->sub->add(item);
    return item;
}

void Menu::resume() { done = false; }

void Menu::update(float dt) {
    if (done) return;
    const uint8_t* keys = SDL_GetKeyState(nullptr);
    if (delay > 0.0f) delay -= dt;
    const bool held = ControllerManager::anyPressed() || keys[SDLK_RETURN] || keys[SDLK_ESCAPE];
    // Letting everything go makes the next press act at once.
    if (!held)
        delay = 0.0f;
    else if (delay > 0.0f)
        return;
    if (takeInput(keys)) changed = true;
}

bool Menu::poll(float dt) {
    if (!done) update(dt);
    const bool wasChanged = changed;
    changed = false;
    return wasChanged;
}

bool Menu::takeInput(const uint8_t* keys) {
    if (ControllerManager::isPressed(ACTION_UP)) {
        prev();
        delay = MOVE_DELAY;
    } else if (ControllerManager::isPressed(ACTION_DOWN)) {
        next();
        delay = MOVE_DELAY;
    } else if (ControllerManager::isPressed(ACTION_LEFT)) {
        decrease();
        if (MenuItem* item = currentItem()) delay = item->delay;
    } else if (ControllerManager::isPressed(ACTION_RIGHT)) {
        increase();
        if (MenuItem* item = currentItem()) delay = item->delay;
    } else if (ControllerManager::isPressed(ACTION_A) || keys[SDLK_RETURN]) {
        select();
        delay = CONFIRM_DELAY;
    } else if (ControllerManager::isPressed(ACTION_B) || keys[SDLK_ESCAPE]) {
        back();
        delay = CONFIRM_DELAY;
    } else {
        return false;
    }
    return true;
}

void Menu::select() {
    MenuItem* item = currentItem();
    if (done || !item) return;
    switch (item->kind) {
    case MENU_ACTION:
        done = true;
        break;
    case MENU_SUBMENU:
        if (item->sub) {
            path.push_back(item->sub);
            item->sub->current = 0;
        }
        break;
    case MENU_BACK:
        back();
        break;
    default:
        break;
    }
}

void Menu::back() {
    if (done) return;
    if (path.size() >= 2) {
        path.pop_back();
    } else {
        done = true;
        quit = true;
    }
}

void Menu::prev() {
    if (!done) level()->prev();
}

void Menu::next() {
    if (!done) level()->next();
}

void Menu::first() {
    if (!done) level()->first();
}

void Menu::increase() {
    MenuItem* item = currentItem();
    if (!done && item) item->increase();
}

void Menu::decrease() {
    MenuItem* item = currentItem();
    if (!done && item) item->decrease();
}

template <typename Visit>
MenuItem* Menu::walk(Visit visit) {
    std::vector<MenuList*> pending{&root};
    while (!pending.empty()) {
        MenuList* list = pending.back();
        pending.pop_back();
        for (std::size_t i = 0; i < list->items.size(); ++i) {
            MenuItem* item = list->items[i];
            if (visit(*list, static_cast<int32_t>(i))) return item;
            if (item->sub) pending.push_back(item->sub);
        }
    }
    return nullptr;
}

MenuItem* Menu::find(int32_t id) {
    return walk([id](const MenuList& list, int32_t index) { return list.items[index]->id == id; });
}

void Menu::dump() {
    walk([](const MenuList& list, int32_t index) {
        const MenuItem* item = list.items[index];
        Log::info("%d: %s [%s][%s]", index, item->label.c_str(), item->sub ? "sub" : "",
                  index == list.current ? "curr" : "");
        return false;
    });
}

MenuList* Menu::level() { return path.empty() ? &root : path.back(); }

MenuItem* Menu::currentItem() { return level()->currentItem(); }
