// Script calls that touch no game object: a log probe, the script's own
// path, including another script and ending the program.
#include <cstdio>
#include <cstdlib>

#include "resources/Resource.h"
#include "script/LuaFuncs.h"
#include "shell/Log.h"

namespace LuaFuncs {

int lTest(lua_State*) {
    Log::info("LuaFuncs.lTest");
    return 0;
}

int lGetPath(lua_State* L) {
    lua_pushstring(L, "__PATH__");
    lua_rawget(L, LUA_REGISTRYINDEX);
    return 1;
}

int lInclude(lua_State* L) {
    if (lua_gettop(L) < 1) {
        Log::info("FAIL: LuaFuncs.%s: Za malo argumentow", "include");
        return 0;
    }
    const char* path = lua_tolstring(L, 1, nullptr);
    char* buffer = path ? Resource::read(path) : nullptr;
    if (!buffer) {
        Log::info("FAIL: LuaFuncs.lInclude: Nie znaleziono pliku");
        return 0;
    }
    // Same chunk name as the main script: a traceback can't tell them apart.
    int status = luaL_loadbufferx(L, buffer, Resource::lastSize(), "line", nullptr);
    delete[] buffer;
    if (status == LUA_OK) status = lua_pcallk(L, 0, 0, 0, 0, nullptr);
    if (status != LUA_OK) {
        lua_pop(L, 1);
        Log::info("FAIL: LuaFuncs.lInclude: Blad przy parsowaniu skryptu");
    }
    return 0;
}

int lKill(lua_State*) {
    Log::info("INFO: LuaFuncs.%s: Zamykanie", "kill");
    // At once: no shutdown sequence runs, but what was printed reaches the log.
    fflush(stdout);
    std::_Exit(0);
}

}  // namespace LuaFuncs
