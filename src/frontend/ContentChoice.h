#pragma once
#include <cstdint>
#include <string>

// The fighters of two players and an arena, chosen on the selection screens
// that a set-up screen pushes, each kept with the name it shows.
class ContentChoice {
public:
    // What is being chosen on the screen above.
    enum Selecting {
        SELECTING_NONE = 0,
        SELECTING_FIGHTER_1 = 1,
        SELECTING_FIGHTER_2 = 2,
        SELECTING_ARENA = 3,
    };
    static constexpr int FIGHTERS = 2;

    // Push the selection screen for one player's fighter (0 or 1), or for the arena.
    void selectFighter(int player);
    void selectArena();
    // With the selection screen still on top as it leaves: takes its choice,
    // unless it was broken off or is not the screen expected, both logged
    // under `operation`. Nothing when nothing was being chosen.
    void takeBack(const char* operation);

    // The scripts to play, the defaults where nothing was chosen.
    std::string fighterScript(int player) const;
    std::string arenaScript() const;

    int32_t selecting = SELECTING_NONE;
    // Script paths and shown names; empty until chosen.
    std::string fighterPaths[FIGHTERS];
    std::string fighterNames[FIGHTERS];
    std::string arenaPath;
    std::string arenaName;
};
