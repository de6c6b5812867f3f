#pragma once
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "TestSupport.h"
#include "gameplay/Arena.h"
#include "gameplay/Character.h"
#include "script/Lua.h"
#include "script/LuaFuncs.h"

// A script state set up as a fighter's or an arena's would be, with the
// script API registered at a chosen rank, and an arena of three fighters
// that were never loaded from a script.
class ScriptCallTest : public ::testing::Test {
protected:
    enum Rank { LOCAL = 0, CLIENT = 1, SERVER = 2 };

    static bool contains(const std::string& text, const std::string& part) {
        return text.find(part) != std::string::npos;
    }

    void SetUp() override {
        for (Character& fighter : fighters) {
            fighter.maxHp = 100.0f;
            fighter.hp = 50.0f;
            fighter.lungCapacity = 80.0f;
            arena.characters.push_back(&fighter);
            fighter.arena = &arena;
        }
    }

    // The owner's pointers in the registry, as Character and Arena set them.
    void asFighterScript(int rank, Character* self) {
        lua.start();
        lua.setPtr("char", self);
        lua.setPtr("arena", nullptr);
        LuaFuncs::registerAll(lua, rank);
    }
    void asArenaScript(int rank) {
        lua.start();
        lua.setPtr("char", nullptr);
        lua.setPtr("arena", &arena);
        LuaFuncs::registerAll(lua, rank);
    }

    // Runs a chunk and returns what the log got meanwhile.
    std::string run(const std::string& chunk) {
        TestSupport::CapturedStdout out;
        EXPECT_TRUE(lua.run(chunk));
        lua.update();
        return out.text();
    }

    // A global the chunk left behind, as text ("nil" when absent).
    std::string global(const char* name) {
        lua_State* L = lua.getState();
        lua_getglobal(L, name);
        std::string value = lua_isnil(L, -1) ? "nil" : luaL_tolstring(L, -1, nullptr);
        lua_settop(L, 0);
        return value;
    }

    // A numeric global; NaN when it is no number.
    double number(const char* name) {
        lua_State* L = lua.getState();
        lua_getglobal(L, name);
        double value = lua_isnumber(L, -1) ? lua_tonumber(L, -1) : std::nan("");
        lua_settop(L, 0);
        return value;
    }

    // The C function a global names, or null.
    lua_CFunction native(const char* name) {
        lua_getglobal(lua.getState(), name);
        lua_CFunction function = lua_tocfunction(lua.getState(), -1);
        lua_settop(lua.getState(), 0);
        return function;
    }

    Arena arena;
    Character fighters[3];
    Lua lua;
};
