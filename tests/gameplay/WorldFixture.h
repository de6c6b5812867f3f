#pragma once
#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "gameplay/Arena.h"
#include "gameplay/Character.h"
#include "gameplay/ControllerDummy.h"

inline std::string dataPath(const std::string& name) {
    return std::string(KORVANE_SOURCE_DIR) + "/tests/data/gameplay/" + name;
}

// A number in a script state, such as "updates" or "hits[1]".
inline double eval(Lua& lua, const std::string& expression) {
    lua_State* state = lua.getState();
    double value = luaL_dostring(state, ("return " + expression).c_str()) ? NAN : lua_tonumber(state, -1);
    lua_settop(state, 0);
    return value;
}

// A server world on the default floor, (0, 300) to (800, 600). Its fighters
// run fighter.lua, on pads of their own, at the start of a round.
class WorldTest : public ::testing::Test {
protected:
    void SetUp() override {
        arena.objectType = OBJECT_SERVER;
        ASSERT_TRUE(arena.init(dataPath("arena.lua")));
    }

    Character* addFighter(float x, float y, int32_t direction = 0) {
        fighters.push_back(std::make_unique<Character>());
        pads.push_back(std::make_unique<ControllerDummy>());
        Character* fighter = fighters.back().get();
        fighter->objectType = OBJECT_SERVER;
        EXPECT_TRUE(fighter->init(dataPath("fighter.lua")));
        fighter->id = static_cast<int32_t>(fighters.size()) - 1;
        fighter->controller = pads.back().get();
        fighter->restart();
        arena.addCharacter(fighter);
        fighter->position = Vector(x, y, 0.0f, 0.0f);
        fighter->direction = direction;
        return fighter;
    }

    // Holds exactly the actions whose bits (1 << action) are set.
    static void hold(Character* fighter, int actions) {
        for (int action = 0; action < ACTION_COUNT; ++action)
            static_cast<ControllerDummy*>(fighter->controller)->pressed[action] = actions & (1 << action);
    }

    Arena arena;
    std::vector<std::unique_ptr<Character>> fighters;
    std::vector<std::unique_ptr<ControllerDummy>> pads;
};
