#include "script/ScriptTableReaders.h"

#include "script/ScriptCallSupport.h"
#include "shell/Log.h"

namespace {

// Arguments: the table and the key; result: the value.
int indexTable(lua_State* L) {
    lua_gettable(L, 1);
    return 1;
}

// Replaces the key on top of the stack by the table's value for it.
void getProtected(lua_State* L, int table) {
    lua_pushcfunction(L, indexTable);
    lua_pushvalue(L, table);
    lua_pushvalue(L, -3);
    if (lua_pcall(L, 2, 1, 0) != LUA_OK) {
        Log::fail("ScriptTable.get: %s", ScriptCall::text(L, -1));
        lua_pop(L, 1);
        lua_pushnil(L);
    }
    lua_remove(L, -2);
}

}  // namespace

namespace ScriptTable {

void pushField(lua_State* L, int table, const char* key) {
    table = lua_absindex(L, table);
    lua_pushstring(L, key);
    getProtected(L, table);
}

void pushEntry(lua_State* L, int table, int position) {
    table = lua_absindex(L, table);
    lua_pushinteger(L, position);
    getProtected(L, table);
}

float number(lua_State* L, int table, int position) {
    pushEntry(L, table, position);
    float value = ScriptCall::number(L, -1);
    lua_pop(L, 1);
    return value;
}

Vector position(lua_State* L, int index) {
    int table = lua_absindex(L, index);
    return Vector(number(L, table, 1), number(L, table, 2), number(L, table, 3), 0.0f);
}

}  // namespace ScriptTable
