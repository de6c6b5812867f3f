#include "script/ScriptTargets.h"

#include <cstddef>

#include "gameplay/Arena.h"
#include "gameplay/Character.h"
#include "script/ScriptCallSupport.h"
#include "shell/Log.h"

namespace ScriptCall {

Arena* arena(lua_State* L, const char* call) {
    Arena* found = static_cast<Arena*>(registryPointer(L, "arena"));
    if (!found) Log::fail("LuaFuncs.%s: NULL arena", call);
    return found;
}

void failNullCharacter(const char* call) { Log::fail("LuaFuncs.%s: NULL character", call); }

Character* character(lua_State* L, const char* call) {
    Character* found = static_cast<Character*>(registryPointer(L, "char"));
    if (!found) failNullCharacter(call);
    return found;
}

Character* fighterById(lua_State* L, const char* call, int expected) {
    if (!hasArguments(L, call, expected)) return nullptr;
    Arena* owner = arena(L, call);
    if (!owner) return nullptr;
    int32_t position = truncated(L, 1);
    if (position < 0 || static_cast<size_t>(position) >= owner->characters.size()) {
        failNullCharacter(call);
        return nullptr;
    }
    Character* found = owner->getCharacter(position);
    if (!found) failNullCharacter(call);
    return found;
}

Character* ownFighter(lua_State* L, const char* call, int expected) {
    if (expected > 0 && !hasArguments(L, call, expected)) return nullptr;
    return character(L, call);
}

Arena* arenaWithArguments(lua_State* L, const char* call, int expected) {
    Arena* found = arena(L, call);
    if (!found || !hasArguments(L, call, expected)) return nullptr;
    return found;
}

}  // namespace ScriptCall
