#include "frontend/ContentChoice.h"

#include "frontend/StateArenaSelect.h"
#include "frontend/StateCharacterSelect.h"
#include "gameplay/Character.h"
#include "network/LocalGame.h"
#include "shell/Engine.h"
#include "shell/Log.h"

namespace {

// The selection screen on top, unless it isn't of the type expected or was
// broken off; both are logged.
template <typename Selection>
Selection* finishedSelection(const char* operation, int type, const char* typeName, const char* what) {
    if (Engine::top()->getType() != type) {
        Log::fail("%s: Skopane state, oczekiwano %s, otrzymano cos innego", operation, typeName);
        return nullptr;
    }
    auto* select = static_cast<Selection*>(Engine::top());
    if (select->cancelled) {
        Log::info("%s: Wybor %s przerwany", operation, what);
        return nullptr;
    }
    return select;
}

// An arena has no name of its own: it is known by its folder.
std::string folderOf(const std::string& script) {
    const std::size_t first = script.find('/');
    const std::size_t last = script.rfind('/');
    if (first == std::string::npos || last <= first) return script;
    return script.substr(first + 1, last - first - 1);
}

}  // namespace

void ContentChoice::selectFighter(int player) {
    auto* select = new StateCharacterSelect();
    select->setPlayers(1);
    selecting = player == 0 ? SELECTING_FIGHTER_1 : SELECTING_FIGHTER_2;
    Engine::push(select);
}

void ContentChoice::selectArena() {
    selecting = SELECTING_ARENA;
    Engine::push(new StateArenaSelect());
}

void ContentChoice::takeBack(const char* operation) {
    if (selecting == SELECTING_FIGHTER_1 || selecting == SELECTING_FIGHTER_2) {
        auto* select = finishedSelection<StateCharacterSelect>(operation, GameState::STATE_CHARACTER_SELECT,
                                                               "STATE_CHARACTER_SELECT", "postaci");
        const int player = selecting - SELECTING_FIGHTER_1;
        if (select && !select->selected.empty() && select->selected[0]) {
            fighterPaths[player] = select->selected[0]->path;
            fighterNames[player] = select->selected[0]->name;
        }
    } else if (selecting == SELECTING_ARENA) {
        auto* select =
            finishedSelection<StateArenaSelect>(operation, GameState::STATE_ARENA_SELECT, "STATE_ARENA_SELECT", "areny");
        if (select && select->chosen) {
            arenaPath = select->chosenPath();
            arenaName = folderOf(arenaPath);
        }
    }
    // The next screen to leave is no selection of this one.
    selecting = SELECTING_NONE;
}

std::string ContentChoice::fighterScript(int player) const {
    return fighterPaths[player].empty() ? Network::LocalGame::DEFAULT_FIGHTER : fighterPaths[player];
}

std::string ContentChoice::arenaScript() const {
    return arenaPath.empty() ? Network::LocalGame::DEFAULT_ARENA : arenaPath;
}
