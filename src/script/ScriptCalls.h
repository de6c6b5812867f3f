#pragma once
#include <lua.hpp>

// The native calls that fighter and arena scripts make, under their Lua
// names. Each returns the number of results it pushed; none raises a Lua
// error: a failure is one log line and no result.
namespace LuaFuncs {

// Media.
int lPlaySound(lua_State* L);
int lPlayMusic(lua_State* L);

}  // namespace LuaFuncs
