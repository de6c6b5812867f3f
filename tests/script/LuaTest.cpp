#include <gtest/gtest.h>

#include <string>

#include "TestSupport.h"
#include "script/Lua.h"

namespace {

const std::string LINE = "FAIL: Lua.update: Error: [string \"line\"]:";

int countArguments(lua_State* L) {
    lua_pushinteger(L, lua_gettop(L));
    lua_setglobal(L, "calls");
    return 0;
}

// A fresh interpreter with "count", which stores its number of arguments in
// "calls", in a scratch directory, with standard output captured.
class LuaTest : public ::testing::Test {
protected:
    void SetUp() override {
        lua.start();
        lua.regFunc(countArguments, "count");
    }
    bool load(const std::string& source) {
        TestSupport::writeFile("script.lua", source);
        return lua.openFile("script.lua");
    }
    int top() { return lua_gettop(lua.getState()); }
    double global(const char* name) {
        lua_getglobal(lua.getState(), name);
        double value = lua_tonumber(lua.getState(), -1);
        lua_pop(lua.getState(), 1);
        return value;
    }
    TestSupport::ScopedTempDir dir;
    TestSupport::CapturedStdout out;
    Lua lua;
};

TEST_F(LuaTest, ScriptsThatCannotLoadAreReportedAndLeaveTheStateUnready) {
    EXPECT_FALSE(lua.pushNumber(1.0f));  // nothing ran yet
    EXPECT_FALSE(lua.openFile(""));
    EXPECT_FALSE(lua.openFile("absent.lua"));
    EXPECT_FALSE(load("x = = 1"));
    EXPECT_STREQ(lua.getStr("__PATH__"), "script.lua");
    EXPECT_FALSE(load("x = 1\nerror('broken at load')"));
    EXPECT_FALSE(lua.pushString("x"));
    EXPECT_FALSE(lua.regFunc(nullptr, "f") || lua.regFunc(countArguments, ""));
    EXPECT_EQ(top(), 0);
    for (const std::string& line : {std::string("FAIL: Lua.openFile: Brak nazwy pliku\n"),
                                    std::string("FAIL: Lua.openFile: Nie udalo sie wczytac pliku\n"),
                                    LINE + "1: unexpected symbol near '='\n", LINE + "2: broken at load\n",
                                    std::string("FAIL: Lua.regFunc: NULL\nFAIL: Lua.regFunc: NULL\n")})
        EXPECT_NE(out.text().find(line), std::string::npos) << line;
}

// Top-level code can already call what was registered; arguments arrive in
// order and results that nobody reads are neither kept nor passed on.
TEST_F(LuaTest, CallsTakeThePushedArgumentsAndLeaveTheirResults) {
    ASSERT_TRUE(load("count(1, 2, 3)\nfunction join(a, b, c) return a .. ':' .. b, c * 2 end"));
    EXPECT_EQ(global("calls"), 3);
    EXPECT_TRUE(lua.pushString("left") && lua.pushNumber(0.5f) && lua.pushNumber(21.0f));
    EXPECT_TRUE(lua.call("join"));
    ASSERT_EQ(top(), 2);
    EXPECT_STREQ(lua_tostring(lua.getState(), 1), "left:0.5");
    EXPECT_EQ(lua_tonumber(lua.getState(), 2), 42.0);
    for (int i = 0; i < 5000; ++i) ASSERT_TRUE(lua.pushNumber(static_cast<float>(i)));
    EXPECT_TRUE(lua.call("count"));
    EXPECT_EQ(global("calls"), 5000);
    EXPECT_EQ(top(), 0);
}

// A failed call still returns true and takes its arguments along; an empty
// name calls nothing and leaves them for the next call. A pending error is
// one line, written by whatever comes next, which then calls nothing.
TEST_F(LuaTest, AnErrorIsOneLineReportedOnceByWhateverComesNext) {
    ASSERT_TRUE(load("function onHit(amount) error('hit for ' .. amount) end\nfunction onSay() error({}) end"));
    lua.pushNumber(12.0f);
    EXPECT_TRUE(lua.call("onHit"));
    EXPECT_TRUE(lua.call("onSay"));  // an error value that is no text prints nothing
    lua.pushNumber(1.0f);
    EXPECT_TRUE(lua.call("nosuch"));
    lua.pushNumber(2.0f);
    EXPECT_FALSE(lua.call(""));
    EXPECT_TRUE(lua.call("count"));
    EXPECT_EQ(global("calls"), 1);

    EXPECT_TRUE(lua.run("error('first')"));
    lua.pushNumber(3.0f);
    EXPECT_TRUE(lua.call("count"));
    EXPECT_EQ(global("calls"), 1);
    lua.run("error('second')");
    EXPECT_TRUE(lua.hasFunction("count"));
    lua.run("error('third')");
    EXPECT_EQ(lua.ref("missing"), -2);
    lua.update();
    EXPECT_EQ(out.text(), LINE + "1: hit for 12\nFAIL: Lua.update: Error: attempt to call a nil value\n" + LINE +
                              "1: first\n" + LINE + "1: second\n" + LINE + "1: third\n");
    EXPECT_EQ(top(), 0);
}

TEST_F(LuaTest, RunAndDeclareMakeAFreshStateReadyAndTakeThePushedArgumentsAlong) {
    EXPECT_FALSE(lua.run("") || lua.run("if then"));
    lua.declare("onSay");
    EXPECT_TRUE(lua.pushNumber(1.0f));
    lua.declare("onHit");
    EXPECT_EQ(top(), 0);
    lua.pushNumber(2.0f);
    EXPECT_TRUE(lua.call("onHit"));
    lua.call("count");
    EXPECT_EQ(global("calls"), 0);
}

// The test program is linked like the game, so a C module that uses its Lua API loads.
TEST_F(LuaTest, ACModuleWithoutItsOwnLibluaLoadsThroughRequire) {
    ASSERT_TRUE(lua.run(std::string("package.cpath = '") + KORVANE_LUA_MODULE_DIR + "/?.so'\n"
                        "sum = require('luaprobe').add(2, 3.5)"));
    EXPECT_EQ(global("sum"), 5.5);
    EXPECT_EQ(out.text(), "");
}

}  // namespace
