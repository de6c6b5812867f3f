#include "BotMatch.h"

#include <algorithm>

#include "gameplay/Arena.h"
#include "gameplay/Bot.h"
#include "gameplay/Character.h"
#include "gameplay/ControllerDummy.h"
#include "gameplay/Deathmatch.h"

namespace BotMatch {

namespace {

const char* const ACTION_NAMES[5] = {"idle", "defend", "retreat", "approach", "say"};

struct World {
    Arena arena;
    Character fighters[2];
    ControllerDummy controllers[2];
    Bot bots[2];
    GameModes::Deathmatch mode;
};

bool build(const Setup& setup, World& world) {
    world.arena.objectType = OBJECT_SERVER;
    if (!world.arena.init(setup.arena)) return false;
    for (int i = 0; i < 2; ++i) {
        Character& fighter = world.fighters[i];
        fighter.objectType = OBJECT_SERVER;
        if (!fighter.init(setup.fighters[i])) return false;
        fighter.id = i;
        Bot& bot = world.bots[i];
        bot.init();
        bot.setArena(&world.arena);
        bot.setController(&world.controllers[i]);
        bot.setCharacter(&fighter);
        world.arena.addCharacter(&fighter);
    }
    world.mode.objectType = OBJECT_SERVER;
    world.mode.init();
    world.mode.arena = &world.arena;
    for (Character& fighter : world.fighters) world.mode.addCharacter(&fighter);
    world.mode.start();
    return true;
}

// Steps the world until the round ends; true if it did within the limit.
bool playRound(const Setup& setup, World& world, Result& result, double& seconds) {
    seconds = 0.0;
    while (seconds < setup.roundLimit) {
        for (int i = 0; i < 2; ++i) {
            Bot& bot = world.bots[i];
            bool decides = bot.actionTime - setup.step <= 0.0f;
            bot.update(setup.step);
            if (decides) ++result.actions[i][std::clamp(bot.action, 0, 4)];
        }
        world.mode.update(setup.step);
        seconds += setup.step;
        if (world.mode.checkTimer < 0.0f) return true;
    }
    return false;
}

// Runs the pause between rounds until the fighters are free again.
void waitForNextRound(const Setup& setup, World& world) {
    while (world.mode.checkTimer < 0.0f) world.mode.update(setup.step);
}

}  // namespace

bool run(const Setup& setup, Result& result) {
    World* world = new World();
    if (!build(setup, *world)) {
        delete world;
        return false;
    }
    for (int round = 0; round < setup.rounds; ++round) {
        double seconds = 0.0;
        ++result.rounds;
        if (!playRound(setup, *world, result, seconds)) {
            ++result.unfinished;
            for (Character& fighter : world->fighters) fighter.restart();
            continue;
        }
        bool alive[2] = {world->fighters[0].hp > 0.0f, world->fighters[1].hp > 0.0f};
        if (alive[0] != alive[1]) ++result.wins[alive[0] ? 0 : 1];
        result.shortest = result.ended == 0 ? seconds : std::min(result.shortest, seconds);
        result.longest = std::max(result.longest, seconds);
        result.roundSeconds += seconds;
        ++result.ended;
        waitForNextRound(setup, *world);
    }
    delete world;
    return true;
}

void print(const Setup& setup, const Result& result, FILE* out) {
    fprintf(out, "arena %s, %d rounds\n", setup.arena.c_str(), result.rounds);
    for (int i = 0; i < 2; ++i)
        fprintf(out, "fighter %d %s: %d wins (%.0f%%)\n", i, setup.fighters[i].c_str(), result.wins[i],
                result.rounds ? 100.0 * result.wins[i] / result.rounds : 0.0);
    fprintf(out, "rounds with no survivor: %d, given up after %.0f s: %d\n",
            result.ended - result.wins[0] - result.wins[1], setup.roundLimit, result.unfinished);
    if (result.ended > 0)
        fprintf(out, "round length: mean %.1f s, shortest %.1f s, longest %.1f s\n",
                result.roundSeconds / result.ended, result.shortest, result.longest);
    for (int i = 0; i < 2; ++i) {
        long total = 0;
        for (long n : result.actions[i]) total += n;
        fprintf(out, "bot %d actions:", i);
        for (int a = 0; a < 5; ++a)
            fprintf(out, " %s %.0f%%", ACTION_NAMES[a], total ? 100.0 * result.actions[i][a] / total : 0.0);
        fprintf(out, "\n");
    }
}

}  // namespace BotMatch
