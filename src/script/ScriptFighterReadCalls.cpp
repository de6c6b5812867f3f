#include <string>

#include "gameplay/Character.h"
#include "script/ScriptCallSupport.h"
#include "script/ScriptCalls.h"
#include "script/ScriptTargets.h"

using ScriptCall::fighterById;
using ScriptCall::ownFighter;

namespace {

// Each pusher takes the fighter the call resolved, or null after a failure
// already reported, and returns the number of results.

int pushFloat(lua_State* L, const Character* fighter, float Character::*field) {
    if (!fighter) return 0;
    lua_pushnumber(L, fighter->*field);
    return 1;
}

int pushVector(lua_State* L, const Character* fighter, Vector Character::*field) {
    if (!fighter) return 0;
    const Vector& value = fighter->*field;
    lua_pushnumber(L, value.x);
    lua_pushnumber(L, value.y);
    lua_pushnumber(L, value.z);
    return 3;
}

int pushName(lua_State* L, const Character* fighter) {
    if (!fighter) return 0;
    lua_pushstring(L, fighter->name.c_str());
    return 1;
}

int pushDirection(lua_State* L, const Character* fighter) {
    if (!fighter) return 0;
    lua_pushstring(L, fighter->direction == 4 ? "left" : "right");
    return 1;
}

int pushState(lua_State* L, const Character* fighter) {
    if (!fighter) return 0;
    lua_pushnumber(L, fighter->state);
    return 1;
}

// The air of a full word, and what is gathered for the word in preparation.
int pushAirUsage(lua_State* L, const Character* fighter) {
    if (!fighter) return 0;
    lua_pushnumber(L, fighter->airUsage);
    lua_pushnumber(L, fighter->charge);
    return 2;
}

}  // namespace

namespace LuaFuncs {

int lGetCharacterName(lua_State* L) { return pushName(L, fighterById(L, "getCharacterName", 1)); }
int lGetCharacterPosition(lua_State* L) {
    return pushVector(L, fighterById(L, "getCharacterPosition", 1), &Character::position);
}
int lGetCharacterSpeed(lua_State* L) {
    return pushVector(L, fighterById(L, "getCharacterSpeed", 1), &Character::speed);
}
int lGetCharacterDirection(lua_State* L) {
    return pushDirection(L, fighterById(L, "getCharacterDirection", 1));
}
int lGetCharacterState(lua_State* L) { return pushState(L, fighterById(L, "getCharacterState", 1)); }
int lGetCharacterHp(lua_State* L) { return pushFloat(L, fighterById(L, "getCharacterHp", 1), &Character::hp); }
int lGetCharacterMaxHp(lua_State* L) {
    return pushFloat(L, fighterById(L, "getCharacterMaxHp", 1), &Character::maxHp);
}
int lGetCharacterAir(lua_State* L) { return pushFloat(L, fighterById(L, "getCharacterAir", 1), &Character::air); }
int lGetCharacterBlock(lua_State* L) {
    return pushFloat(L, fighterById(L, "getCharacterBlock", 1), &Character::block);
}
int lGetCharacterSpeakBlock(lua_State* L) {
    return pushFloat(L, fighterById(L, "getCharacterSpeakBlock", 1), &Character::speakBlock);
}
int lGetCharacterMoveSpeed(lua_State* L) {
    return pushFloat(L, fighterById(L, "getCharacterMoveSpeed", 1), &Character::moveSpeed);
}
int lGetCharacterVoiceVolume(lua_State* L) {
    return pushFloat(L, fighterById(L, "getCharacterVoiceVolume", 1), &Character::voiceVolume);
}
int lGetCharacterSpeakSpeed(lua_State* L) {
    return pushFloat(L, fighterById(L, "getCharacterSpeakSpeed", 1), &Character::speakSpeed);
}
int lGetCharacterLungCapacity(lua_State* L) {
    return pushFloat(L, fighterById(L, "getCharacterLungCapacity", 1), &Character::lungCapacity);
}
int lGetCharacterAirUsage(lua_State* L) { return pushAirUsage(L, fighterById(L, "getCharacterAirUsage", 1)); }

int lGetName(lua_State* L) { return pushName(L, ownFighter(L, "getName", 0)); }
int lGetPosition(lua_State* L) { return pushVector(L, ownFighter(L, "getPosition", 0), &Character::position); }
int lGetSpeed(lua_State* L) { return pushVector(L, ownFighter(L, "getSpeed", 0), &Character::speed); }
int lGetDirection(lua_State* L) { return pushDirection(L, ownFighter(L, "getDirection", 0)); }
int lGetState(lua_State* L) { return pushState(L, ownFighter(L, "getState", 0)); }
int lGetHp(lua_State* L) { return pushFloat(L, ownFighter(L, "getHp", 0), &Character::hp); }
int lGetMaxHp(lua_State* L) { return pushFloat(L, ownFighter(L, "getMaxHp", 0), &Character::maxHp); }
int lGetAir(lua_State* L) { return pushFloat(L, ownFighter(L, "getAir", 0), &Character::air); }
int lGetBlock(lua_State* L) { return pushFloat(L, ownFighter(L, "getBlock", 0), &Character::block); }
int lGetSpeakBlock(lua_State* L) {
    return pushFloat(L, ownFighter(L, "getSpeakBlock", 0), &Character::speakBlock);
}
int lGetMoveSpeed(lua_State* L) { return pushFloat(L, ownFighter(L, "getMoveSpeed", 0), &Character::moveSpeed); }
int lGetVoiceVolume(lua_State* L) {
    return pushFloat(L, ownFighter(L, "getVoiceVolume", 0), &Character::voiceVolume);
}
int lGetSpeakSpeed(lua_State* L) {
    return pushFloat(L, ownFighter(L, "getSpeakSpeed", 0), &Character::speakSpeed);
}
int lGetLungCapacity(lua_State* L) {
    return pushFloat(L, ownFighter(L, "getLungCapacity", 0), &Character::lungCapacity);
}
int lGetAirUsage(lua_State* L) { return pushAirUsage(L, ownFighter(L, "getAirUsage", 0)); }

}  // namespace LuaFuncs
