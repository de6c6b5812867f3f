#pragma once
#include <lua.hpp>

#include "graphics/Vector.h"

// Readers of the small tables that set-up calls take. Entries are read raw,
// so a script's metatable can't raise an error inside a native call, and an
// entry that isn't a number counts as 0.
namespace ScriptTable {

// {x, y[, z]} at positions 1, 2, 3; w is 0.
Vector position(lua_State* L, int index);

// Calls visit(L, entryIndex) for positions 1, 2, ... of the array at index,
// up to the first nil. The entry lies on top of the stack during the visit
// and is popped after it.
template <typename Visit>
void forEachEntry(lua_State* L, int index, Visit visit) {
    int array = lua_absindex(L, index);
    for (int i = 1;; ++i) {
        lua_rawgeti(L, array, i);
        if (lua_isnil(L, -1)) {
            lua_pop(L, 1);
            return;
        }
        visit(L, lua_gettop(L));
        lua_pop(L, 1);
    }
}

}  // namespace ScriptTable
