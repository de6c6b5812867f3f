#include "gameplay/Arena.h"
#include "gameplay/Character.h"
#include "script/ScriptCallSupport.h"
#include "script/ScriptCalls.h"
#include "script/ScriptTargets.h"
#include "script/ScriptTableReaders.h"
#include "shell/Log.h"

using ScriptCall::arena;
using ScriptCall::arenaWithArguments;
using ScriptCall::number;

namespace LuaFuncs {

int lSetArenaSize(lua_State* L) {
    Arena* target = arenaWithArguments(L, "setArenaSize", 4);
    if (target) target->setSize(number(L, -4), number(L, -3), number(L, -2), number(L, -1));
    return 0;
}

// The playing rectangle in the order setArenaSize takes it.
int lGetArenaSize(lua_State* L) {
    Arena* target = arena(L, "getArenaSize");
    if (!target) return 0;
    lua_pushnumber(L, target->min.x);
    lua_pushnumber(L, target->min.y);
    lua_pushnumber(L, target->max.x - target->min.x);
    lua_pushnumber(L, target->max.y - target->min.y);
    return 4;
}

int lSetArenaNoise(lua_State* L) {
    Arena* target = arenaWithArguments(L, "setArenaNoise", 1);
    if (target) target->setNoise(number(L, -1));
    return 0;
}

int lGetArenaNoise(lua_State* L) {
    Arena* target = arena(L, "getArenaNoise");
    if (!target) return 0;
    lua_pushnumber(L, target->noise);
    return 1;
}

int lGetArenaCharacterCount(lua_State* L) {
    Arena* target = arena(L, "getArenaCharacterCount");
    if (!target) return 0;
    lua_pushnumber(L, static_cast<lua_Number>(target->characters.size()));
    return 1;
}

// Takes one position as a "start" entry of setArena has it: {x, y[, z]}.
int lAddArenaStartingPosition(lua_State* L) {
    Arena* target = arenaWithArguments(L, "addArenaStartingPosition", 1);
    if (!target) return 0;
    if (ScriptCall::registryPointer(L, "char")) {
        Log::fail("LuaFuncs.%s: Wywolanie tej funkcji spod skryptu postaci jest zabronione",
                  "addArenaStartingPosition");
        return 0;
    }
    if (lua_istable(L, -1)) target->addStartingPosition(ScriptTable::position(L, -1));
    return 0;
}

// A fighter's script has no "arena" in its registry, so its own fighter's
// arena stands in; an arena's script has no fighter of its own and fails.
int lGetID(lua_State* L) {
    Character* self = static_cast<Character*>(ScriptCall::registryPointer(L, "char"));
    Arena* owner = static_cast<Arena*>(ScriptCall::registryPointer(L, "arena"));
    if (!owner && self) owner = self->arena;
    if (!owner) {
        Log::fail("LuaFuncs.%s: NULL arena", "getID");
        return 0;
    }
    if (!self) {
        ScriptCall::failNullCharacter("getID");
        return 0;
    }
    for (size_t i = 0; i < owner->characters.size(); ++i) {
        if (owner->characters[i] != self) continue;
        lua_pushnumber(L, static_cast<lua_Number>(i));
        return 1;
    }
    return 0;
}

}  // namespace LuaFuncs
