#pragma once
#include <lua.hpp>

#include "graphics/Vector.h"

// Readers of the tables that set-up calls take. Entries are read as Lua
// itself indexes, metamethods included, so that values a script inherits
// through a metatable count; a metamethod that fails reads as nil, with one
// log line, instead of unwinding through the native call. An entry that
// isn't a number counts as 0.
namespace ScriptTable {

// Push table[key] or table[position]; the table index may be relative.
void pushField(lua_State* L, int table, const char* key);
void pushEntry(lua_State* L, int table, int position);

// table[position] as a number.
float number(lua_State* L, int table, int position);

// {x, y[, z]} at positions 1, 2, 3; w is 0.
Vector position(lua_State* L, int index);

// Calls visit(L, entryIndex) for positions 1, 2, ... of the array at index,
// up to the first nil. The entry lies on top of the stack during the visit
// and is popped after it.
template <typename Visit>
void forEachEntry(lua_State* L, int index, Visit visit) {
    int array = lua_absindex(L, index);
    for (int i = 1;; ++i) {
        pushEntry(L, array, i);
        if (lua_isnil(L, -1)) {
            lua_pop(L, 1);
            return;
        }
        visit(L, lua_gettop(L));
        lua_pop(L, 1);
    }
}

}  // namespace ScriptTable
