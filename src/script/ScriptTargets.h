#pragma once
#include <lua.hpp>

class Arena;
class Character;

// The objects a script call acts on, looked up anew at every call in the
// calling state's registry. Each lookup writes the call's failure message
// and returns null when its object is missing.
namespace ScriptCall {

Arena* arena(lua_State* L, const char* call);
Character* character(lua_State* L, const char* call);
// Checks in the order argument count, "arena", then the fighter at the
// position given by the first argument.
Character* fighterById(lua_State* L, const char* call, int expected);
// Checks the argument count (when any are expected), then "char".
Character* ownFighter(lua_State* L, const char* call, int expected);
// "arena" first, then the argument count.
Arena* arenaWithArguments(lua_State* L, const char* call, int expected);

void failNullCharacter(const char* call);

}  // namespace ScriptCall
