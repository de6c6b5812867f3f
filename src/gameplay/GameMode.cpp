#include "gameplay/GameMode.h"

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
