// getGlobalVal, getGlobalStr, setGlobalVal, setGlobalStr: values a script
// keeps in the registry of its own state, invisible to any other script.
#include "script/LuaFuncs.h"
#include "shell/Log.h"

namespace {

bool enoughArguments(lua_State* L, int expected, const char* call) {
    if (lua_gettop(L) >= expected) return true;
    Log::info("FAIL: LuaFuncs.%s: Za malo argumentow", call);
    return false;
}

// The name is always used as a string key: a number would reach the
// registry's own integer slots (the main thread, the globals table, the
// references of combos) and a script could overwrite them.
bool pushName(lua_State* L, const char* call) {
    const char* name = lua_tolstring(L, 1, nullptr);
    if (!name) {
        Log::info("FAIL: LuaFuncs.%s: Nazwa nie jest tekstem", call);
        return false;
    }
    lua_pushstring(L, name);
    return true;
}

}  // namespace

namespace LuaFuncs {

int lGetGlobalVal(lua_State* L) {
    if (!enoughArguments(L, 1, "getGlobalVal") || !pushName(L, "getGlobalVal")) return 0;
    lua_rawget(L, LUA_REGISTRYINDEX);
    lua_pushnumber(L, lua_tonumberx(L, -1, nullptr));
    return 1;
}

int lGetGlobalStr(lua_State* L) {
    if (!enoughArguments(L, 1, "getGlobalStr") || !pushName(L, "getGlobalStr")) return 0;
    lua_rawget(L, LUA_REGISTRYINDEX);
    if (!lua_isstring(L, -1)) {
        lua_pushnil(L);
        return 1;
    }
    lua_tolstring(L, -1, nullptr);  // a stored number comes back as its text
    return 1;
}

int lSetGlobalVal(lua_State* L) {
    if (!enoughArguments(L, 2, "setGlobalVal") || !pushName(L, "setGlobalVal")) return 0;
    lua_pushnumber(L, lua_tonumberx(L, 2, nullptr));
    lua_rawset(L, LUA_REGISTRYINDEX);
    return 0;
}

int lSetGlobalStr(lua_State* L) {
    if (!enoughArguments(L, 2, "setGlobalStr") || !pushName(L, "setGlobalStr")) return 0;
    size_t length = 0;
    const char* text = lua_tolstring(L, 2, &length);
    if (text)
        lua_pushlstring(L, text, length);
    else
        lua_pushnil(L);
    lua_rawset(L, LUA_REGISTRYINDEX);
    return 0;
}

}  // namespace LuaFuncs
