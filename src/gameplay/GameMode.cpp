#include "gameplay/GameMode.h"

#include <algorithm>

#include "gameplay/Character.h"

GameMode::~GameMode() {
    characters.clear();
    arena = nullptr;
    running = false;
}

void GameMode::clear() {
    characters.clear();
    arena = nullptr;
    running = false;
}

void GameMode::addCharacter(Character* character) {
    for (Character* present : characters)
        if (present->id == character->id) return;
    characters.push_back(character);
}

void GameMode::removeCharacter(Character* character) {
    characters.erase(std::remove(characters.begin(), characters.end(), character), characters.end());
}
