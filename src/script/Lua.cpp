#include "script/Lua.h"

#include <cmath>
#include <cstdio>

#include "resources/Resource.h"

namespace {

// Every chunk gets the same name, so all messages read [string "line"]
// whichever file they came from.
const char* const CHUNK_NAME = "line";

}  // namespace

Lua::Lua() : state(nullptr), status(0), ready(false), argCount(0) {}

Lua::~Lua() {
    if (state) lua_close(state);
}

void Lua::start() {
    if (state) lua_close(state);
    status = 0;
    ready = false;
    argCount = 0;
    state = luaL_newstate();
    if (!state) {
        puts("FAIL: Lua.Lua: Nie udalo sie uruchomic lua");
        return;
    }
    luaL_openlibs(state);
}

void Lua::update() {
    if (!state) return;
    if (status != 0) {
        // Arguments pushed after the failure lie above the message.
        int at = lua_gettop(state) - argCount;
        const char* message = at > 0 ? lua_tolstring(state, at, nullptr) : nullptr;
        if (message) printf("FAIL: Lua.update: Error: %s\n", message);
    }
    clearStack();
    status = 0;
}

void Lua::clearStack() {
    lua_settop(state, 0);
    argCount = 0;
}

bool Lua::openFile(const std::string& path) {
    if (path.empty()) {
        puts("FAIL: Lua.openFile: Brak nazwy pliku");
        return false;
    }
    if (!state) return false;
    char* buffer = Resource::read(path);
    if (!buffer) {
        puts("FAIL: Lua.openFile: Nie udalo sie wczytac pliku");
        return false;
    }
    status = luaL_loadbufferx(state, buffer, Resource::lastSize(), CHUNK_NAME, nullptr);
    delete[] buffer;
    setStr("__PATH__", path);
    if (status == 0) {
        status = lua_pcallk(state, 0, 0, 0, 0, nullptr);
        if (status == 0) {
            ready = true;
            return true;
        }
    }
    update();
    return false;
}

bool Lua::regFunc(lua_CFunction function, const std::string& name) {
    if (!function || name.empty()) {
        puts("FAIL: Lua.regFunc: NULL");
        return false;
    }
    if (!state || !lua_checkstack(state, 3)) return false;
    // Raw access: a script's metatable on _G must not be able to raise an
    // error here, outside any protected call.
    lua_rawgeti(state, LUA_REGISTRYINDEX, LUA_RIDX_GLOBALS);
    lua_pushstring(state, name.c_str());
    lua_pushcclosure(state, function, 0);
    lua_rawset(state, -3);
    lua_pop(state, 1);
    update();
    return true;
}

bool Lua::pushGlobal(const std::string& name) {
    if (!lua_checkstack(state, 2)) return false;
    lua_rawgeti(state, LUA_REGISTRYINDEX, LUA_RIDX_GLOBALS);
    lua_pushstring(state, name.c_str());
    lua_rawget(state, -2);
    lua_remove(state, -2);
    return true;
}

bool Lua::hasFunction(const std::string& name) {
    if (!state) return false;
    bool found = false;
    if (pushGlobal(name)) {
        found = lua_type(state, -1) == LUA_TFUNCTION;
        lua_pop(state, 1);
    }
    // Empties the stack; a pending error is reported rather than lost.
    update();
    return found;
}

bool Lua::loadAndRun(const std::string& text) {
    // A pending error is reported now, or the new status would hide it.
    if (status != 0) update();
    if (!lua_checkstack(state, 1)) return false;
    status = luaL_loadbufferx(state, text.data(), text.size(), CHUNK_NAME, nullptr);
    if (status != 0) {
        update();
        return false;
    }
    // The chunk goes below the pushed arguments, which it takes as "...".
    lua_insert(state, -(argCount + 1));
    status = lua_pcallk(state, argCount, 0, 0, 0, nullptr);
    argCount = 0;
    ready = true;
    return true;
}

void Lua::declare(const std::string& name) {
    if (!state) return;
    loadAndRun("function " + name + "() end");
}

bool Lua::run(const std::string& text) {
    if (text.empty() || !state) return false;
    return loadAndRun(text);
}

bool Lua::pushNumber(float value) {
    // Two slots stay free for the function that the call will push.
    if (!ready || !lua_checkstack(state, 3)) return false;
    lua_pushnumber(state, static_cast<lua_Number>(value));
    ++argCount;
    return true;
}

bool Lua::pushString(const std::string& value) {
    if (!ready || !lua_checkstack(state, 3)) return false;
    lua_pushlstring(state, value.data(), value.size());
    ++argCount;
    return true;
}

void Lua::dropUnreadValues() {
    int unread = lua_gettop(state) - argCount;
    if (unread <= 0) return;
    for (int i = 1; i <= argCount; ++i) {
        lua_pushvalue(state, unread + i);
        lua_replace(state, i);
    }
    lua_settop(state, argCount);
}

void Lua::callPushedFunction() {
    lua_insert(state, -(argCount + 1));
    status = lua_pcallk(state, argCount, LUA_MULTRET, 0, 0, nullptr);
    argCount = 0;
}

bool Lua::call(const std::string& name) {
    if (name.empty() || !state) return false;
    if (status == 0) {
        dropUnreadValues();
        if (!pushGlobal(name)) {
            clearStack();
            return true;
        }
        callPushedFunction();
        fflush(stdout);
        if (status == 0) return true;
    }
    update();
    return true;
}

int Lua::ref(const std::string& name) {
    if (!state || !pushGlobal(name)) return LUA_NOREF;
    if (lua_type(state, -1) != LUA_TFUNCTION) {
        lua_pop(state, 1);
        update();
        return LUA_NOREF;
    }
    return luaL_ref(state, LUA_REGISTRYINDEX);
}

bool Lua::callRef(int reference) {
    if (!state) return false;
    if (status == 0) dropUnreadValues();
    if (!lua_checkstack(state, 1)) {
        clearStack();
        return false;
    }
    lua_rawgeti(state, LUA_REGISTRYINDEX, reference);
    bool isFunction = lua_type(state, -1) == LUA_TFUNCTION;
    if (isFunction && status == 0) {
        callPushedFunction();
        if (status == 0) return true;
    } else {
        lua_pop(state, 1);
    }
    update();
    return isFunction;
}

void Lua::storeInRegistry(const std::string& key) {
    lua_pushstring(state, key.c_str());
    lua_insert(state, -2);
    lua_rawset(state, LUA_REGISTRYINDEX);
}

void Lua::setVal(const std::string& key, int32_t value) {
    if (!state || !lua_checkstack(state, 2)) return;
    lua_pushinteger(state, value);
    storeInRegistry(key);
}

void Lua::setStr(const std::string& key, const std::string& value) {
    if (!state || !lua_checkstack(state, 2)) return;
    lua_pushlstring(state, value.data(), value.size());
    storeInRegistry(key);
}

void Lua::setPtr(const std::string& key, void* value) {
    if (!state || !lua_checkstack(state, 2)) return;
    lua_pushlightuserdata(state, value);
    storeInRegistry(key);
}

bool Lua::pushRegistryValue(const std::string& key) {
    if (!state || !lua_checkstack(state, 1)) return false;
    lua_pushstring(state, key.c_str());
    lua_rawget(state, LUA_REGISTRYINDEX);
    return true;
}

int32_t Lua::getVal(const std::string& key) {
    if (!pushRegistryValue(key)) return 0;
    // lrint rounds in the current rounding mode of the processor.
    return static_cast<int32_t>(lrint(lua_tonumberx(state, -1, nullptr)));
}

const char* Lua::getStr(const std::string& key) {
    if (!pushRegistryValue(key)) return nullptr;
    return lua_tolstring(state, -1, nullptr);
}

void* Lua::getPtr(const std::string& key) {
    if (!pushRegistryValue(key)) return nullptr;
    return lua_touserdata(state, -1);
}
