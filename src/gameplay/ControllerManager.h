#pragma once
#include <cstdint>
#include <string>

#include "gameplay/Controller.h"

// The local controllers, made from the settings at start-up and owned here.
// An entry may be null: an empty type keeps the numbering of the others.
namespace ControllerManager {

void init(const std::string& path);
// Two keyboards into "config.nvo"'s settings, in memory only.
void writeDefaults();
void update(float dt);
void clear();
// Null for a null entry and for an index past the end.
Controller* get(int index);
int count();
// Gives controller `index` these keys at once, making it a keyboard where
// there is none, and keeps them in the settings file given to init, which
// is saved; false when the save failed.
bool setKeyboard(int index, const int32_t keys[ACTION_COUNT]);
// Any action on any controller; menus may be steered by every player.
bool anyPressed();
bool isPressed(int action);

}  // namespace ControllerManager
