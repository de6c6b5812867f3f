#include <gtest/gtest.h>

#include <string>

#include "TestSupport.h"
#include "script/Lua.h"

namespace {

// The test program is linked like the game, so a C module that takes the Lua
// API from its host loads with require.
TEST(LuaModuleTest, ACModuleWithoutItsOwnLibluaLoadsThroughRequire) {
    TestSupport::CapturedStdout out;
    Lua lua;
    lua.start();
    ASSERT_TRUE(lua.run(std::string("package.cpath = '") + KORVANE_LUA_MODULE_DIR + "/?.so'\n"
                        "local probe = require('luaprobe')\n"
                        "function sum(a, b) return probe.add(a, b) end"));
    lua.pushNumber(2.0f);
    lua.pushNumber(3.5f);
    ASSERT_TRUE(lua.call("sum"));
    EXPECT_EQ(out.text(), "");
    ASSERT_EQ(lua_gettop(lua.getState()), 1);
    EXPECT_EQ(lua_tonumber(lua.getState(), 1), 5.5);
}

}  // namespace
