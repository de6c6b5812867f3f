#include <string>

#include "gameplay/Arena.h"
#include "gameplay/Character.h"
#include "script/ScriptCallSupport.h"
#include "script/ScriptCalls.h"
#include "script/ScriptTargets.h"
#include "script/ScriptTableReaders.h"
#include "shell/Log.h"

using ScriptCall::RANK_SERVER;

namespace {

const float BACK_LAYER_DEPTH = -1.0f;
const float FRONT_LAYER_DEPTH = 1.0f;

// The server draws nothing, so it loads no pictures.
bool loadsPictures(lua_State* L) { return ScriptCall::rank(L) != RANK_SERVER; }

// A set-up call whose last argument isn't a table has nothing to read.
bool isTable(lua_State* L, const char* call) {
    if (lua_istable(L, -1)) return true;
    Log::fail("LuaFuncs.%s: Argument powinien byc tablica (otrzymano \"%s\")", call,
              lua_typename(L, lua_type(L, -1)));
    return false;
}

// Pushes field `key` of the table at `table`; false (and nothing pushed)
// when it is absent or nil.
bool pushField(lua_State* L, int table, const char* key) {
    ScriptTable::pushField(L, table, key);
    if (!lua_isnil(L, -1)) return true;
    lua_pop(L, 1);
    return false;
}

void setNumberFromField(lua_State* L, int table, const char* key, float& field) {
    if (!pushField(L, table, key)) return;
    field = ScriptCall::number(L, -1);
    lua_pop(L, 1);
}

void loadSpriteFromField(lua_State* L, int table, const char* key, Graphics::SpriteInstance& instance) {
    if (!pushField(L, table, key)) return;
    instance.setSprite(std::string(ScriptCall::text(L, -1)));
    lua_pop(L, 1);
}

void addLayers(lua_State* L, int table, const char* key, float depth, Arena* target) {
    if (!pushField(L, table, key)) return;
    if (lua_istable(L, -1)) {
        ScriptTable::forEachEntry(L, -1, [&](lua_State* S, int layer) {
            if (!lua_istable(S, layer)) return;
            float x = ScriptTable::number(S, layer, 1);
            float y = ScriptTable::number(S, layer, 2);
            ScriptTable::pushEntry(S, layer, 3);
            std::string path = ScriptCall::text(S, -1);
            lua_pop(S, 1);
            target->addLayer(Vector(x, y, depth, 0.0f), path);
        });
    }
    lua_pop(L, 1);
}

void addStartingPositions(lua_State* L, int table, Arena* target) {
    if (!pushField(L, table, "start")) return;
    if (lua_istable(L, -1)) {
        ScriptTable::forEachEntry(L, -1, [&](lua_State* S, int entry) {
            if (lua_istable(S, entry)) target->addStartingPosition(ScriptTable::position(S, entry));
        });
    }
    lua_pop(L, 1);
}

void setDimension(lua_State* L, int table, Arena* target) {
    if (!pushField(L, table, "dimension")) return;
    if (lua_istable(L, -1)) {
        float corner[4];
        // Whole pixels: each number is truncated before use.
        for (int i = 0; i < 4; ++i) {
            ScriptTable::pushEntry(L, -1, i + 1);
            corner[i] = static_cast<float>(ScriptCall::truncated(L, -1));
            lua_pop(L, 1);
        }
        target->setSize(corner[0], corner[1], corner[2], corner[3]);
    }
    lua_pop(L, 1);
}

int loadCharacterSprite(lua_State* L, const char* call, Graphics::SpriteInstance Character::*instance) {
    Character* fighter = ScriptCall::ownFighter(L, call, 1);
    if (fighter && loadsPictures(L)) (fighter->*instance).setSprite(std::string(ScriptCall::text(L, -1)));
    return 0;
}

}  // namespace

namespace LuaFuncs {

int lSetCharacter(lua_State* L) {
    Character* fighter = ScriptCall::ownFighter(L, "setCharacter", 1);
    if (!fighter || !isTable(L, "setCharacter")) return 0;
    int table = lua_gettop(L);
    if (loadsPictures(L)) {
        loadSpriteFromField(L, table, "sprite", fighter->sprite);
        loadSpriteFromField(L, table, "shadow", fighter->shadow);
        loadSpriteFromField(L, table, "speech", fighter->speech);
    }
    if (pushField(L, table, "name")) {
        fighter->name = ScriptCall::text(L, -1);
        lua_pop(L, 1);
    }
    // Stored as given; Character::init repairs what makes no sense.
    setNumberFromField(L, table, "moveSpeed", fighter->moveSpeed);
    setNumberFromField(L, table, "voiceVolume", fighter->voiceVolume);
    setNumberFromField(L, table, "speakSpeed", fighter->speakSpeed);
    setNumberFromField(L, table, "lungCapacity", fighter->lungCapacity);
    setNumberFromField(L, table, "airUsage", fighter->airUsage);
    setNumberFromField(L, table, "hp", fighter->maxHp);
    return 0;
}

int lSetArena(lua_State* L) {
    Arena* target = ScriptCall::arenaWithArguments(L, "setArena", 1);
    if (!target || !isTable(L, "setArena")) return 0;
    int table = lua_gettop(L);
    setDimension(L, table, target);
    if (loadsPictures(L)) {
        loadSpriteFromField(L, table, "background", target->background);
        addLayers(L, table, "back", BACK_LAYER_DEPTH, target);
        addLayers(L, table, "front", FRONT_LAYER_DEPTH, target);
    }
    // Every side needs the starting positions: the server places fighters.
    addStartingPositions(L, table, target);
    return 0;
}

int lSetSprite(lua_State* L) { return loadCharacterSprite(L, "setSprite", &Character::sprite); }
int lSetShadow(lua_State* L) { return loadCharacterSprite(L, "setShadow", &Character::shadow); }
int lSetSpeech(lua_State* L) { return loadCharacterSprite(L, "setSpeech", &Character::speech); }

int lSetArenaBg(lua_State* L) {
    Arena* target = ScriptCall::arenaWithArguments(L, "setArenaBg", 1);
    if (target && loadsPictures(L)) target->background.setSprite(std::string(ScriptCall::text(L, -1)));
    return 0;
}

}  // namespace LuaFuncs
