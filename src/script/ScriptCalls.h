#pragma once
#include <lua.hpp>

// The native calls that fighter and arena scripts make, under their Lua
// names. Each returns the number of results it pushed; none raises a Lua
// error: a failure is one log line and no result.
namespace LuaFuncs {

// Reading a fighter: by position in the arena's list, and the own one.
int lGetCharacterName(lua_State* L);
int lGetCharacterPosition(lua_State* L);
int lGetCharacterSpeed(lua_State* L);
int lGetCharacterDirection(lua_State* L);
int lGetCharacterState(lua_State* L);
int lGetCharacterHp(lua_State* L);
int lGetCharacterMaxHp(lua_State* L);
int lGetCharacterAir(lua_State* L);
int lGetCharacterBlock(lua_State* L);
int lGetCharacterSpeakBlock(lua_State* L);
int lGetCharacterMoveSpeed(lua_State* L);
int lGetCharacterVoiceVolume(lua_State* L);
int lGetCharacterSpeakSpeed(lua_State* L);
int lGetCharacterLungCapacity(lua_State* L);
int lGetCharacterAirUsage(lua_State* L);
int lGetName(lua_State* L);
int lGetPosition(lua_State* L);
int lGetSpeed(lua_State* L);
int lGetDirection(lua_State* L);
int lGetState(lua_State* L);
int lGetHp(lua_State* L);
int lGetMaxHp(lua_State* L);
int lGetAir(lua_State* L);
int lGetBlock(lua_State* L);
int lGetSpeakBlock(lua_State* L);
int lGetMoveSpeed(lua_State* L);
int lGetVoiceVolume(lua_State* L);
int lGetSpeakSpeed(lua_State* L);
int lGetLungCapacity(lua_State* L);
int lGetAirUsage(lua_State* L);
int lGetID(lua_State* L);

// Changing a fighter.
int lSetCharacterPosition(lua_State* L);
int lSetCharacterSpeed(lua_State* L);
int lSetCharacterDirection(lua_State* L);
int lSetCharacterState(lua_State* L);
int lSetCharacterHp(lua_State* L);
int lSetCharacterAir(lua_State* L);
int lSetCharacterBlock(lua_State* L);
int lSetCharacterSpeakBlock(lua_State* L);
int lSetPosition(lua_State* L);
int lSetSpeed(lua_State* L);
int lSetDirection(lua_State* L);
int lSetState(lua_State* L);
int lSetHp(lua_State* L);
int lSetAir(lua_State* L);
int lSetBlock(lua_State* L);
int lSetSpeakBlock(lua_State* L);
int lSetName(lua_State* L);
int lSetMoveSpeed(lua_State* L);
int lSetVoiceVolume(lua_State* L);
int lSetSpeakSpeed(lua_State* L);
int lSetLungCapacity(lua_State* L);
int lSetAirUsage(lua_State* L);

// Making a fighter act.
int lCharacterSay(lua_State* L);
int lCharacterDefend(lua_State* L);
int lCharacterJump(lua_State* L);
int lSay(lua_State* L);
int lDefend(lua_State* L);
int lJump(lua_State* L);

// The arena.
int lSetArenaSize(lua_State* L);
int lGetArenaSize(lua_State* L);
int lSetArenaNoise(lua_State* L);
int lGetArenaNoise(lua_State* L);
int lGetArenaCharacterCount(lua_State* L);
int lAddArenaStartingPosition(lua_State* L);

// Set-up from tables, and sprites.
int lSetCharacter(lua_State* L);
int lSetArena(lua_State* L);
int lSetSprite(lua_State* L);
int lSetShadow(lua_State* L);
int lSetSpeech(lua_State* L);
int lSetArenaBg(lua_State* L);

// Media.
int lPlaySound(lua_State* L);
int lPlayMusic(lua_State* L);

// Combos.
int lAddCombo(lua_State* L);
int lEndCombo(lua_State* L);

}  // namespace LuaFuncs
