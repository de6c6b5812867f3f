#include "script/LuaFuncs.h"

#include <cstdint>
#include <cstring>

#include "gameplay/ObjectType.h"
#include "script/Lua.h"
#include "script/ScriptCalls.h"

namespace {

struct NamedFunction {
    const char* name;
    lua_CFunction function;
};

// The native function behind each script call. A name of the lists below
// that has no entry here is registered as dummy until its function exists.
const NamedFunction IMPLEMENTED[] = {
    {"test", LuaFuncs::lTest},
    {"dummy", LuaFuncs::lDummy},
    {"getPath", LuaFuncs::lGetPath},
    {"include", LuaFuncs::lInclude},
    {"kill", LuaFuncs::lKill},
    {"getGlobalVal", LuaFuncs::lGetGlobalVal},
    {"getGlobalStr", LuaFuncs::lGetGlobalStr},
    {"setGlobalVal", LuaFuncs::lSetGlobalVal},
    {"setGlobalStr", LuaFuncs::lSetGlobalStr},
    {"getCharacterName", LuaFuncs::lGetCharacterName},
    {"getCharacterPosition", LuaFuncs::lGetCharacterPosition},
    {"getCharacterSpeed", LuaFuncs::lGetCharacterSpeed},
    {"getCharacterDirection", LuaFuncs::lGetCharacterDirection},
    {"getCharacterState", LuaFuncs::lGetCharacterState},
    {"getCharacterHp", LuaFuncs::lGetCharacterHp},
    {"getCharacterMaxHp", LuaFuncs::lGetCharacterMaxHp},
    {"getCharacterAir", LuaFuncs::lGetCharacterAir},
    {"getCharacterBlock", LuaFuncs::lGetCharacterBlock},
    {"getCharacterSpeakBlock", LuaFuncs::lGetCharacterSpeakBlock},
    {"getCharacterMoveSpeed", LuaFuncs::lGetCharacterMoveSpeed},
    {"getCharacterVoiceVolume", LuaFuncs::lGetCharacterVoiceVolume},
    {"getCharacterSpeakSpeed", LuaFuncs::lGetCharacterSpeakSpeed},
    {"getCharacterLungCapacity", LuaFuncs::lGetCharacterLungCapacity},
    {"getCharacterAirUsage", LuaFuncs::lGetCharacterAirUsage},
    {"getName", LuaFuncs::lGetName},
    {"getPosition", LuaFuncs::lGetPosition},
    {"getSpeed", LuaFuncs::lGetSpeed},
    {"getDirection", LuaFuncs::lGetDirection},
    {"getState", LuaFuncs::lGetState},
    {"getHp", LuaFuncs::lGetHp},
    {"getMaxHp", LuaFuncs::lGetMaxHp},
    {"getAir", LuaFuncs::lGetAir},
    {"getBlock", LuaFuncs::lGetBlock},
    {"getSpeakBlock", LuaFuncs::lGetSpeakBlock},
    {"getMoveSpeed", LuaFuncs::lGetMoveSpeed},
    {"getVoiceVolume", LuaFuncs::lGetVoiceVolume},
    {"getSpeakSpeed", LuaFuncs::lGetSpeakSpeed},
    {"getLungCapacity", LuaFuncs::lGetLungCapacity},
    {"getAirUsage", LuaFuncs::lGetAirUsage},
    {"getID", LuaFuncs::lGetID},
    {"setCharacterPosition", LuaFuncs::lSetCharacterPosition},
    {"setCharacterSpeed", LuaFuncs::lSetCharacterSpeed},
    {"setCharacterDirection", LuaFuncs::lSetCharacterDirection},
    {"setCharacterState", LuaFuncs::lSetCharacterState},
    {"setCharacterHp", LuaFuncs::lSetCharacterHp},
    {"setCharacterAir", LuaFuncs::lSetCharacterAir},
    {"setCharacterBlock", LuaFuncs::lSetCharacterBlock},
    {"setCharacterSpeakBlock", LuaFuncs::lSetCharacterSpeakBlock},
    {"setPosition", LuaFuncs::lSetPosition},
    {"setSpeed", LuaFuncs::lSetSpeed},
    {"setDirection", LuaFuncs::lSetDirection},
    {"setState", LuaFuncs::lSetState},
    {"setHp", LuaFuncs::lSetHp},
    {"setAir", LuaFuncs::lSetAir},
    {"setBlock", LuaFuncs::lSetBlock},
    {"setSpeakBlock", LuaFuncs::lSetSpeakBlock},
    {"setName", LuaFuncs::lSetName},
    {"setMoveSpeed", LuaFuncs::lSetMoveSpeed},
    {"setVoiceVolume", LuaFuncs::lSetVoiceVolume},
    {"setSpeakSpeed", LuaFuncs::lSetSpeakSpeed},
    {"setLungCapacity", LuaFuncs::lSetLungCapacity},
    {"setAirUsage", LuaFuncs::lSetAirUsage},
    {"characterSay", LuaFuncs::lCharacterSay},
    {"characterDefend", LuaFuncs::lCharacterDefend},
    {"characterJump", LuaFuncs::lCharacterJump},
    {"say", LuaFuncs::lSay},
    {"defend", LuaFuncs::lDefend},
    {"jump", LuaFuncs::lJump},
    {"setArenaSize", LuaFuncs::lSetArenaSize},
    {"getArenaSize", LuaFuncs::lGetArenaSize},
    {"setArenaNoise", LuaFuncs::lSetArenaNoise},
    {"getArenaNoise", LuaFuncs::lGetArenaNoise},
    {"getArenaCharacterCount", LuaFuncs::lGetArenaCharacterCount},
    {"addArenaStartingPosition", LuaFuncs::lAddArenaStartingPosition},
    {"setCharacter", LuaFuncs::lSetCharacter},
    {"setArena", LuaFuncs::lSetArena},
    {"setSprite", LuaFuncs::lSetSprite},
    {"setShadow", LuaFuncs::lSetShadow},
    {"setSpeech", LuaFuncs::lSetSpeech},
    {"setArenaBg", LuaFuncs::lSetArenaBg},
    {"addCombo", LuaFuncs::lAddCombo},
    {"endCombo", LuaFuncs::lEndCombo},
    {"playSound", LuaFuncs::lPlaySound},
    {"playMusic", LuaFuncs::lPlayMusic},
    // Nothing in the game gives these two a meaning; scripts get nil.
    {"setControllerKey", LuaFuncs::lDummy},
    {"getControllerKey", LuaFuncs::lDummy},
};

lua_CFunction implementationOf(const char* name) {
    for (const NamedFunction& entry : IMPLEMENTED)
        if (strcmp(entry.name, name) == 0) return entry.function;
    return LuaFuncs::lDummy;
}

// Calls that every rank gets, before and after the ranked ones.
const char* const LEADING_CALLS[] = {
    "test", "getGlobalVal", "getGlobalStr", "setGlobalVal", "setGlobalStr", "include", "getPath", "dummy",
};

const char* const TRAILING_CALLS[] = {
    "getCharacterName", "getCharacterMoveSpeed", "getCharacterVoiceVolume", "getCharacterSpeakSpeed",
    "getCharacterLungCapacity", "getCharacterAirUsage", "getCharacterMaxHp", "getCharacterPosition",
    "getCharacterSpeed", "getCharacterDirection", "getCharacterState", "getCharacterHp", "getCharacterAir",
    "getCharacterBlock", "getCharacterSpeakBlock", "getName", "getMoveSpeed", "getVoiceVolume",
    "getSpeakSpeed", "getLungCapacity", "getAirUsage", "getMaxHp", "getPosition", "getSpeed", "getDirection",
    "getState", "getHp", "getAir", "getBlock", "getSpeakBlock", "getID", "setControllerKey",
    "getControllerKey",
};

// The ranks at which a call does its work; at the others it is dummy.
enum RankMask : uint8_t {
    LOCAL = 1 << OBJECT_LOCAL,
    CLIENT = 1 << OBJECT_CLIENT,
    SERVER = 1 << OBJECT_SERVER,
    EVERY_RANK = LOCAL | CLIENT | SERVER,
    // A client only describes its objects; the course of the game is the
    // server's.
    NOT_CLIENT = LOCAL | SERVER,
    // The server loads no pictures and can't stop the process.
    NOT_SERVER = LOCAL | CLIENT,
};

struct RankedCall {
    const char* name;
    uint8_t realAt;
};

const RankedCall RANKED_CALLS[] = {
    {"kill", NOT_SERVER},
    {"setArena", EVERY_RANK},
    {"setArenaSize", EVERY_RANK},
    {"setArenaBg", EVERY_RANK},
    {"setArenaNoise", NOT_CLIENT},
    {"getArenaSize", EVERY_RANK},
    {"getArenaNoise", EVERY_RANK},
    {"getArenaCharacterCount", EVERY_RANK},
    {"addArenaStartingPosition", NOT_CLIENT},
    {"setCharacterPosition", NOT_CLIENT},
    {"setCharacterSpeed", NOT_CLIENT},
    {"setCharacterDirection", NOT_CLIENT},
    {"setCharacterState", NOT_CLIENT},
    {"setCharacterHp", NOT_CLIENT},
    {"setCharacterAir", NOT_CLIENT},
    {"setCharacterBlock", NOT_CLIENT},
    {"setCharacterSpeakBlock", NOT_CLIENT},
    {"characterSay", NOT_CLIENT},
    {"characterDefend", NOT_CLIENT},
    {"characterJump", NOT_CLIENT},
    {"setCharacter", EVERY_RANK},
    {"setSprite", NOT_SERVER},
    {"setShadow", NOT_SERVER},
    {"setSpeech", NOT_SERVER},
    {"setName", EVERY_RANK},
    {"setMoveSpeed", EVERY_RANK},
    {"setVoiceVolume", EVERY_RANK},
    {"setSpeakSpeed", EVERY_RANK},
    {"setLungCapacity", EVERY_RANK},
    {"setAirUsage", EVERY_RANK},
    {"setPosition", NOT_CLIENT},
    {"setSpeed", NOT_CLIENT},
    {"setDirection", NOT_CLIENT},
    {"setState", NOT_CLIENT},
    {"setHp", NOT_CLIENT},
    {"setAir", NOT_CLIENT},
    {"setBlock", NOT_CLIENT},
    {"setSpeakBlock", NOT_CLIENT},
    {"say", NOT_CLIENT},
    {"defend", NOT_CLIENT},
    {"jump", NOT_CLIENT},
    {"addCombo", NOT_CLIENT},
    {"endCombo", NOT_CLIENT},
    {"playSound", NOT_CLIENT},
    {"playMusic", NOT_CLIENT},
};

template <size_t N>
void registerEach(Lua& lua, const char* const (&names)[N]) {
    for (const char* name : names) lua.regFunc(implementationOf(name), name);
}

}  // namespace

namespace LuaFuncs {

void registerAll(Lua& lua, int rank) {
    lua.setVal("_rank", rank);
    registerEach(lua, LEADING_CALLS);
    // An unknown rank gets none of the ranked calls: its scripts see nil.
    if (rank >= OBJECT_LOCAL && rank <= OBJECT_SERVER) {
        const uint8_t bit = static_cast<uint8_t>(1u << rank);
        for (const RankedCall& call : RANKED_CALLS)
            lua.regFunc((call.realAt & bit) ? implementationOf(call.name) : lDummy, call.name);
    }
    registerEach(lua, TRAILING_CALLS);
}

int lDummy(lua_State*) { return 0; }

}  // namespace LuaFuncs
