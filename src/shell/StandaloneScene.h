#pragma once
#include <string>
#include <utility>

#include "gameplay/Arena.h"
#include "gameplay/Bot.h"
#include "gameplay/Character.h"
#include "gameplay/ControllerDummy.h"
#include "gameplay/DefaultContent.h"
#include "gameplay/Deathmatch.h"
#include "shell/GameState.h"

// A fight in one process without network: the arena and two fighters of one
// script under the deathmatch rules, the first on the second local
// controller, the second driven by a bot. Escape ends the program. A sandbox
// for content: a changed script shows at the next start, with no server in
// between.
class StandaloneScene : public GameState {
public:
    // Not one of the front end's screens, so outside their numbering.
    static constexpr int STATE_STANDALONE = 100;
    static constexpr const char* FIGHTER_SCRIPT = DefaultContent::FIGHTER;
    static constexpr const char* ARENA_SCRIPT = DefaultContent::ARENA;
    static constexpr int FIRST_CONTROLLER = 1;
    static constexpr int KEY_ESCAPE = 27;

    explicit StandaloneScene(std::string fighter = FIGHTER_SCRIPT, std::string arenaPath = ARENA_SCRIPT)
        : fighterScript(std::move(fighter)), arenaScript(std::move(arenaPath)) {}

    void init() override;
    void update(float dt) override;
    void draw() override;
    void clear() override;
    void pause() override {}
    void resume() override {}
    int getType() override { return STATE_STANDALONE; }

    std::string fighterScript;
    std::string arenaScript;
    Arena arena;
    Character first;
    Character second;
    ControllerDummy secondPad;
    Bot bot;
    GameModes::Deathmatch mode;
};
