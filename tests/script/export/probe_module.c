/* A Lua C module as a player would build one: it does not link liblua and
   takes every Lua function it calls from the program that loads it. */
#include <lauxlib.h>
#include <lua.h>

static int add(lua_State* L) {
    lua_pushnumber(L, luaL_checknumber(L, 1) + luaL_checknumber(L, 2));
    return 1;
}

static const luaL_Reg functions[] = {
    {"add", add},
    {NULL, NULL},
};

int luaopen_luaprobe(lua_State* L) {
    luaL_newlib(L, functions);
    return 1;
}
