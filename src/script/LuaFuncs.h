#pragma once
#include <lua.hpp>

class Lua;

// The native functions that fighter and arena scripts call, and their
// registration by rank: on each side of the network the calls that don't
// belong there are registered as dummy, so one script runs unchanged on a
// machine that plays alone, on a client and on the server.
namespace LuaFuncs {

// Stores the rank under "_rank" and registers the script API of that rank.
// Runs after Lua::start and before Lua::openFile.
void registerAll(Lua& lua, int rank);

// Ignores its arguments and returns nothing: what a rank takes away.
int lDummy(lua_State* L);

int lTest(lua_State* L);
int lGetPath(lua_State* L);
int lInclude(lua_State* L);
int lKill(lua_State* L);

// A script's own values, kept in its registry.
int lGetGlobalVal(lua_State* L);
int lGetGlobalStr(lua_State* L);
int lSetGlobalVal(lua_State* L);
int lSetGlobalStr(lua_State* L);

}  // namespace LuaFuncs
