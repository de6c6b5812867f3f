#pragma once
#include <lua.hpp>

#include <cstdint>

// What every native script call needs: its arguments counted and read from
// the end of the list, registry values of its state, and its failures
// reported as one log line naming the call.
namespace ScriptCall {

enum Rank : int32_t {
    RANK_LOCAL = 0,
    RANK_CLIENT = 1,
    RANK_SERVER = 2,
};

// Registry lookups; they leave the stack as it was.
void* registryPointer(lua_State* L, const char* key);
int32_t rank(lua_State* L);

// Writes the count message and returns false with fewer arguments.
bool hasArguments(lua_State* L, const char* call, int expected);

// Readers of one argument; what can't be read counts as 0 or empty.
float number(lua_State* L, int index);
int32_t truncated(lua_State* L, int index);
const char* text(lua_State* L, int index);

}  // namespace ScriptCall
