#include "gameplay/Character.h"
#include "gameplay/ComboManager.h"
#include "script/ScriptCallSupport.h"
#include "script/ScriptCalls.h"
#include "script/ScriptTargets.h"
#include "shell/Log.h"

namespace {

// The steps of a combo as input masks, in the order the table's walk gives
// them; a word that names no input adds no step.
std::vector<int32_t> readSequence(lua_State* L, int table) {
    std::vector<int32_t> sequence;
    lua_pushnil(L);
    while (lua_next(L, table)) {
        // Only strings are tokens; converting a number in place would also
        // confuse the walk if it were a key.
        if (lua_type(L, -1) == LUA_TSTRING) {
            int32_t mask = ComboManager::tokenMask(lua_tostring(L, -1));
            if (mask) sequence.push_back(mask);
        }
        lua_pop(L, 1);
    }
    return sequence;
}

}  // namespace

namespace LuaFuncs {

int lAddCombo(lua_State* L) {
    if (!ScriptCall::hasArguments(L, "addCombo", 2)) return 0;
    Character* fighter = ScriptCall::character(L, "addCombo");
    if (!fighter) return 0;
    if (!lua_isfunction(L, -2)) {
        Log::fail("LuaFuncs.%s: Pierwszy argument powinien byc funkcja (otrzymano \"%s\")", "addCombo",
                  lua_typename(L, lua_type(L, -2)));
        return 0;
    }
    if (!lua_istable(L, -1)) {
        Log::fail("LuaFuncs.%s: Drugi argument powinien byc tablica (otrzymano \"%s\")", "addCombo",
                  lua_typename(L, lua_type(L, -1)));
        return 0;
    }
    int table = lua_gettop(L);
    lua_pushvalue(L, -2);
    Combo combo;
    combo.ref = luaL_ref(L, LUA_REGISTRYINDEX);
    combo.sequence = readSequence(L, table);
    fighter->comboManager.combos.push_back(combo);
    fighter->comboManager.dirty = true;
    lua_settop(L, 0);
    return 0;
}

int lEndCombo(lua_State* L) {
    Character* fighter = ScriptCall::character(L, "endCombo");
    if (!fighter) return 0;
    fighter->state &= ~static_cast<uint32_t>(Character::COMBO);
    fighter->comboRef = 0;
    return 0;
}

}  // namespace LuaFuncs
