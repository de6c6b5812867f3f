#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "graphics/SpriteInstance.h"

class MenuList;

enum MenuKind : int32_t {
    MENU_ACTION = 0,
    MENU_SUBMENU = 1,
    MENU_BACK = 2,
    MENU_VALUE = 3,
};

// One entry of a menu, owned by the list it is added to.
class MenuItem {
public:
    static constexpr float DEFAULT_DELAY = 0.125f;

    MenuItem(int32_t id, int32_t kind, const std::string& label, float delay = DEFAULT_DELAY);
    ~MenuItem();
    MenuItem(const MenuItem&) = delete;
    MenuItem& operator=(const MenuItem&) = delete;

    // The value starts in the middle of the range; an owner that wants
    // another first value writes it afterwards.
    void setRange(float low, float high, float stepSize);
    // Takes ownership of the level this item opens; only the first call may
    // happen, a second would leak the first level.
    void setSub(MenuList* list);
    // Values stop at their limits, they don't wrap.
    void increase();
    void decrease();

    int32_t id;
    int32_t kind;
    float value = 0.0f;
    float min = 0.0f, max = 0.0f;
    float step = 0.0f;
    // Seconds before a held left or right key acts again.
    float delay;
    Graphics::SpriteInstance sprite;  // for the owner; the menu doesn't use it
    std::string label;
    MenuList* sub = nullptr;  // owned
};

// One level of a menu: the items and the selected one.
class MenuList {
public:
    MenuList() = default;
    ~MenuList();
    MenuList(const MenuList&) = delete;
    MenuList& operator=(const MenuList&) = delete;

    // Takes ownership.
    void add(MenuItem* item);
    // Both wrap around the ends; an empty list keeps its current.
    void prev();
    void next();
    void first();
    // Brings current back among the indices by adding or taking the size.
    void normalize();
    // Deletes one item, keeping the same item selected.
    void remove(int32_t index);
    // Deletes every item with every level below it.
    void clear();
    // The selected item, or null when the list is empty.
    MenuItem* currentItem() const;
    // The usual text of a level: one line per item, a value behind ": ", the
    // selected line in "[" and "]", lines joined by newlines.
    std::string text() const;

    std::vector<MenuItem*> items;  // owned
    int32_t current = 0;
};

// The machinery of a text menu: a tree of items, the path of open levels,
// keyboard input with repeat delays, and the flags through which the choice
// comes back to the owner. It draws nothing and knows no labels.
class Menu {
public:
    static constexpr float MOVE_DELAY = 0.25f;
    static constexpr float CONFIRM_DELAY = 1.0f;
    // Set by an owner so that a key still held from the screen before does
    // nothing until it is let go.
    static constexpr float HELD_KEY_DELAY = 10.0f;

    Menu() = default;
    virtual ~Menu() = default;
    Menu(const Menu&) = delete;
    Menu& operator=(const Menu&) = delete;

    void clear();
    // clear(), then the root becomes the one open level.
    void begin();
    // Adds an item to the root level.
    MenuItem* addItem(int32_t id, int32_t kind, const std::string& label, float delay = MenuItem::DEFAULT_DELAY);
    // Adds an item to the level of the item `parentId`, made at its first
    // child; null (and nothing added) when there is no such item.
    MenuItem* addChild(int32_t parentId, int32_t id, int32_t kind, const std::string& label,
                       float delay = MenuItem::DEFAULT_DELAY);
    void resume();
    // One frame of input from the controllers, Return and Escape.
    void update(float dt);
    // An owner's usual start of a frame: update while not done; true, and
    // changed cleared, when the owner's text must be built again.
    bool poll(float dt);

    // The single steps of update; none of them acts while done.
    void select();
    void back();
    void prev();
    void next();
    void first();
    void increase();
    void decrease();

    // Anywhere in the tree, or null.
    MenuItem* find(int32_t id);
    void dump();
    // The open level; the root when none is open.
    MenuList* level();
    // The selected item of the open level, or null.
    MenuItem* currentItem();

    bool done = false;
    bool quit = false;
    float delay = 0.0f;  // seconds until input counts again
    bool changed = false;  // the owner clears it
    MenuList root;
    std::vector<MenuList*> path;  // open levels, the last one current

private:
    // Takes the first input that is held; false when there is none.
    bool takeInput(const uint8_t* keys);
    // Calls visit(list, index) for every item, depth first; stops when it
    // returns true and gives that item.
    template <typename Visit>
    MenuItem* walk(Visit visit);
};
