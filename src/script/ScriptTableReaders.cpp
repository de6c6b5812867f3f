#include "script/ScriptTableReaders.h"

#include "script/ScriptCallSupport.h"

namespace ScriptTable {

Vector position(lua_State* L, int index) {
    int table = lua_absindex(L, index);
    return Vector(ScriptCall::tableNumber(L, table, 1), ScriptCall::tableNumber(L, table, 2),
                  ScriptCall::tableNumber(L, table, 3), 0.0f);
}

}  // namespace ScriptTable
