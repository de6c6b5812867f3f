#include "script/ScriptCallSupport.h"

#include <cmath>

#include "shell/Log.h"

namespace {

// Truncates toward zero, keeping values the integer type can't hold at its
// limits instead of leaving the conversion undefined.
int32_t toInt32(double value) {
    if (std::isnan(value)) return 0;
    if (value >= 2147483647.0) return INT32_MAX;
    if (value <= -2147483648.0) return INT32_MIN;
    return static_cast<int32_t>(value);
}

}  // namespace

namespace ScriptCall {

void* registryPointer(lua_State* L, const char* key) {
    lua_getfield(L, LUA_REGISTRYINDEX, key);
    void* value = lua_touserdata(L, -1);
    lua_pop(L, 1);
    return value;
}

int32_t rank(lua_State* L) {
    lua_getfield(L, LUA_REGISTRYINDEX, "_rank");
    int32_t value = toInt32(lua_tonumberx(L, -1, nullptr));
    lua_pop(L, 1);
    return value;
}

bool hasArguments(lua_State* L, const char* call, int expected) {
    int given = lua_gettop(L);
    if (given >= expected) return true;
    Log::fail("LuaFuncs.%s: Za malo argumentow (otrzymano %d, oczekiwano %d)", call, given, expected);
    return false;
}

float number(lua_State* L, int index) { return static_cast<float>(lua_tonumberx(L, index, nullptr)); }

int32_t truncated(lua_State* L, int index) { return toInt32(lua_tonumberx(L, index, nullptr)); }

const char* text(lua_State* L, int index) {
    const char* value = lua_tolstring(L, index, nullptr);
    return value ? value : "";
}

}  // namespace ScriptCall
