#pragma once
#include "gameplay/Arena.h"
#include "gameplay/Deathmatch.h"

// The game the front end hosts, as a server holds it: a deathmatch in the
// octopus's lair. The script's path is relative to the game's data.
struct HostedWorld {
    HostedWorld() {
        arena->objectType = OBJECT_SERVER;
        loaded = arena->init("arena/osmiornica/init.lua");
        rules->objectType = OBJECT_SERVER;
        rules->init();
    }
    // For the server to own.
    GameModes::Deathmatch* rules = new GameModes::Deathmatch();
    Arena* arena = new Arena();
    bool loaded = false;
};
