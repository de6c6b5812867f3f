#include "frontend/StateDuel.h"

#include <SDL/SDL.h>

#include "gameplay/Arena.h"
#include "gameplay/Character.h"
#include "gameplay/ControllerManager.h"
#include "gameplay/Deathmatch.h"
#include "resources/IniFile.h"
#include "resources/LanguageFile.h"
#include "shell/Engine.h"

namespace {

// The words of the result in the notices' section.
const char* const WON = "duel_won";
const char* const DRAW = "duel_draw";

}  // namespace

void StateDuel::setup(const ContentChoice& choice, bool secondIsBot, int32_t rounds, float seconds) {
    clear();
    game.addPlayer(ControllerManager::get(0), choice.fighterScript(0));
    if (secondIsBot)
        game.addBot(choice.fighterScript(1));
    else
        game.addPlayer(ControllerManager::get(1), choice.fighterScript(1));
    arenaScript = choice.arenaScript();
    roundLimit = rounds;
    timeLimit = seconds;
}

void StateDuel::init() {
    DemoServer::init();
    resultTime = -1.0f;
    // Set before anybody is ready, so before the rules start.
    if (GameModes::Deathmatch* rules = game.rules()) {
        rules->roundLimit = roundLimit;
        rules->timeLimit = timeLimit;
    }
}

void StateDuel::update(float dt) {
    game.update(dt);
    const uint8_t* keys = SDL_GetKeyState(nullptr);
    if (resultTime < 0.0f) {
        const GameModes::Deathmatch* rules = game.rules();
        if (rules && rules->matchOver)
            showResult();
        else if (keys[SDLK_ESCAPE])
            Engine::pop();
        return;
    }
    resultTime += dt;
    if (resultTime >= RESULT_SECONDS || keys[SDLK_RETURN] || keys[SDLK_ESCAPE]) Engine::pop();
}

// The server's world is the one that counts, and it knows the fighters'
// names; both sides may play the same fighter, so the side is told too.
void StateDuel::showResult() {
    resultTime = 0.0f;
    const int32_t winner = game.rules()->matchWinner;
    for (const Character* fighter : game.server.arena->characters) {
        if (fighter->id != winner) continue;
        notice.show(WON, fighter->name + " (" + sideOf(winner) + ")");
        return;
    }
    notice.show(DRAW);
}

std::string StateDuel::sideOf(int32_t id) {
    IniFile words;
    LanguageFile::load(words, GameNotice::SECTION);
    for (std::size_t i = 0; i < game.players.size(); ++i)
        if (game.players[i]->id == id) return words.get("duel_player") + std::to_string(i + 1);
    return words.get("duel_computer");
}
