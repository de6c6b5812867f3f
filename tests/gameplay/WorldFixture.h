#pragma once
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "gameplay/Arena.h"
#include "gameplay/Character.h"
#include "gameplay/ControllerDummy.h"

// A server world (no drawing) with an arena on the default floor, (0, 300)
// to (800, 600), and fighters made on demand, each on its own dummy pad.
class WorldTest : public ::testing::Test {
protected:
    static std::string dataPath(const std::string& name) {
        return std::string(KORVANE_SOURCE_DIR) + "/tests/data/gameplay/" + name;
    }

    void SetUp() override {
        arena.objectType = OBJECT_SERVER;
        ASSERT_TRUE(arena.init(dataPath("arena.lua")));
    }

    // A loaded fighter with round numbers, placed at (x, y) facing `direction`.
    Character* addFighter(float x, float y, int32_t direction = 0) {
        auto fighter = std::make_unique<Character>();
        auto pad = std::make_unique<ControllerDummy>();
        fighter->objectType = OBJECT_SERVER;
        EXPECT_TRUE(fighter->init(dataPath("fighter.lua")));
        fighter->id = static_cast<int32_t>(fighters.size());
        fighter->controller = pad.get();
        fighter->maxHp = 100.0f;
        fighter->moveSpeed = 100.0f;
        fighter->voiceVolume = 10.0f;
        fighter->speakSpeed = 0.5f;
        fighter->lungCapacity = 100.0f;
        fighter->airUsage = 25.0f;
        fighter->restart();
        arena.addCharacter(fighter.get());
        fighter->position = Vector(x, y, 0.0f, 0.0f);
        fighter->direction = direction;
        fighters.push_back(std::move(fighter));
        pads.push_back(std::move(pad));
        return fighters.back().get();
    }

    ControllerDummy& padOf(const Character* fighter) {
        for (std::size_t i = 0; i < fighters.size(); ++i)
            if (fighters[i].get() == fighter) return *pads[i];
        throw std::logic_error("not a fighter of this world");
    }

    void hold(const Character* fighter, int action, bool pressed = true) {
        padOf(fighter).pressed[action] = pressed;
    }

    // The numbers a fighter's script recorded in a global list.
    static std::vector<double> recorded(Character* fighter, const char* list) {
        std::vector<double> values;
        lua_State* state = fighter->lua.getState();
        lua_getglobal(state, list);
        int count = static_cast<int>(lua_rawlen(state, -1));
        for (int i = 1; i <= count; ++i) {
            lua_rawgeti(state, -1, i);
            values.push_back(lua_isnumber(state, -1) ? lua_tonumber(state, -1) : -1.0);
            lua_pop(state, 1);
        }
        lua_pop(state, 1);
        return values;
    }

    static double global(Character* fighter, const char* name) {
        lua_State* state = fighter->lua.getState();
        lua_getglobal(state, name);
        double value = lua_tonumber(state, -1);
        lua_pop(state, 1);
        return value;
    }

    Arena arena;
    std::vector<std::unique_ptr<Character>> fighters;
    std::vector<std::unique_ptr<ControllerDummy>> pads;
};
