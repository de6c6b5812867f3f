#include <cstdint>

#include "gameplay/Character.h"
#include "script/ScriptCallSupport.h"
#include "script/ScriptCalls.h"
#include "script/ScriptTargets.h"

using ScriptCall::fighterById;
using ScriptCall::number;
using ScriptCall::ownFighter;

namespace {

const int32_t FACING_LEFT = 4;
const int32_t FACING_RIGHT = 0;

// Each storer takes the fighter the call resolved, or null after a failure
// already reported. Values come from the end of the argument list, so extra
// arguments in front of them are ignored. None returns a result.

int storeFloat(lua_State* L, Character* fighter, float Character::*field) {
    if (fighter) fighter->*field = number(L, -1);
    return 0;
}

// No lower limit: a script may drive the value below zero.
int storeCapped(lua_State* L, Character* fighter, float Character::*field, float Character::*cap) {
    if (!fighter) return 0;
    float value = number(L, -1);
    fighter->*field = value > fighter->*cap ? fighter->*cap : value;
    return 0;
}

int storeVector(lua_State* L, Character* fighter, Vector Character::*field) {
    if (fighter) fighter->*field = Vector(number(L, -3), number(L, -2), number(L, -1), 0.0f);
    return 0;
}

int storeDirection(lua_State* L, Character* fighter) {
    if (!fighter) return 0;
    const char* word = lua_tolstring(L, -1, nullptr);
    fighter->direction = word && std::string(word) == "left" ? FACING_LEFT : FACING_RIGHT;
    return 0;
}

// All flags are replaced at once, DEAD included.
int storeState(lua_State* L, Character* fighter) {
    if (fighter) fighter->state = static_cast<uint32_t>(lua_tointegerx(L, -1, nullptr));
    return 0;
}

int storeName(lua_State* L, Character* fighter) {
    if (fighter) fighter->name = ScriptCall::text(L, -1);
    return 0;
}

int speak(lua_State* L, Character* fighter) {
    if (fighter) fighter->say(number(L, -1));
    return 0;
}

int raiseDefence(Character* fighter) {
    if (fighter) fighter->defend();
    return 0;
}

int leap(lua_State* L, Character* fighter) {
    if (fighter) fighter->jump(number(L, -1));
    return 0;
}

}  // namespace

namespace LuaFuncs {

int lSetCharacterPosition(lua_State* L) {
    return storeVector(L, fighterById(L, "setCharacterPosition", 4), &Character::position);
}
int lSetCharacterSpeed(lua_State* L) {
    return storeVector(L, fighterById(L, "setCharacterSpeed", 4), &Character::speed);
}
int lSetCharacterDirection(lua_State* L) { return storeDirection(L, fighterById(L, "setCharacterDirection", 2)); }
int lSetCharacterState(lua_State* L) { return storeState(L, fighterById(L, "setCharacterState", 2)); }
int lSetCharacterHp(lua_State* L) {
    return storeCapped(L, fighterById(L, "setCharacterHp", 2), &Character::hp, &Character::maxHp);
}
int lSetCharacterAir(lua_State* L) {
    return storeCapped(L, fighterById(L, "setCharacterAir", 2), &Character::air, &Character::lungCapacity);
}
int lSetCharacterBlock(lua_State* L) {
    return storeFloat(L, fighterById(L, "setCharacterBlock", 2), &Character::block);
}
int lSetCharacterSpeakBlock(lua_State* L) {
    return storeFloat(L, fighterById(L, "setCharacterSpeakBlock", 2), &Character::speakBlock);
}

int lSetPosition(lua_State* L) { return storeVector(L, ownFighter(L, "setPosition", 3), &Character::position); }
int lSetSpeed(lua_State* L) { return storeVector(L, ownFighter(L, "setSpeed", 3), &Character::speed); }
int lSetDirection(lua_State* L) { return storeDirection(L, ownFighter(L, "setDirection", 1)); }
int lSetState(lua_State* L) { return storeState(L, ownFighter(L, "setState", 1)); }
int lSetHp(lua_State* L) { return storeCapped(L, ownFighter(L, "setHp", 1), &Character::hp, &Character::maxHp); }
int lSetAir(lua_State* L) {
    return storeCapped(L, ownFighter(L, "setAir", 1), &Character::air, &Character::lungCapacity);
}
int lSetBlock(lua_State* L) { return storeFloat(L, ownFighter(L, "setBlock", 1), &Character::block); }
int lSetSpeakBlock(lua_State* L) {
    return storeFloat(L, ownFighter(L, "setSpeakBlock", 1), &Character::speakBlock);
}
int lSetName(lua_State* L) { return storeName(L, ownFighter(L, "setName", 1)); }
int lSetMoveSpeed(lua_State* L) { return storeFloat(L, ownFighter(L, "setMoveSpeed", 1), &Character::moveSpeed); }
int lSetVoiceVolume(lua_State* L) {
    return storeFloat(L, ownFighter(L, "setVoiceVolume", 1), &Character::voiceVolume);
}
int lSetSpeakSpeed(lua_State* L) {
    return storeFloat(L, ownFighter(L, "setSpeakSpeed", 1), &Character::speakSpeed);
}
int lSetLungCapacity(lua_State* L) {
    return storeFloat(L, ownFighter(L, "setLungCapacity", 1), &Character::lungCapacity);
}
int lSetAirUsage(lua_State* L) { return storeFloat(L, ownFighter(L, "setAirUsage", 1), &Character::airUsage); }

int lCharacterSay(lua_State* L) { return speak(L, fighterById(L, "characterSay", 2)); }
int lCharacterDefend(lua_State* L) { return raiseDefence(fighterById(L, "characterDefend", 1)); }
int lCharacterJump(lua_State* L) { return leap(L, fighterById(L, "characterJump", 2)); }
int lSay(lua_State* L) { return speak(L, ownFighter(L, "say", 1)); }
int lDefend(lua_State* L) { return raiseDefence(ownFighter(L, "defend", 0)); }
int lJump(lua_State* L) { return leap(L, ownFighter(L, "jump", 1)); }

}  // namespace LuaFuncs
