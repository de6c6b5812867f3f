#include <gtest/gtest.h>

#include <string>

#include "TestSupport.h"
#include "script/Lua.h"

namespace {

const std::string LINE = "FAIL: Lua.update: Error: [string \"line\"]:";

// A fresh interpreter in a scratch directory, with standard output captured.
class LuaTest : public ::testing::Test {
protected:
    void SetUp() override { lua.start(); }
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
    bool logged(const std::string& line) { return out.text().find(line) != std::string::npos; }

    TestSupport::ScopedTempDir dir;
    TestSupport::CapturedStdout out;
    Lua lua;
};

int countArguments(lua_State* L) {
    lua_pushinteger(L, lua_gettop(L));
    lua_setglobal(L, "calls");
    return 0;
}

TEST_F(LuaTest, ScriptsThatCannotLoadAreReportedAndLeaveTheStateUnready) {
    EXPECT_FALSE(lua.pushNumber(1.0f));  // nothing ran yet
    EXPECT_FALSE(lua.openFile(""));
    EXPECT_FALSE(lua.openFile("absent.lua"));
    EXPECT_FALSE(load("x = = 1"));
    EXPECT_STREQ(lua.getStr("__PATH__"), "script.lua");
    EXPECT_FALSE(load("x = 1\nerror('broken at load')"));
    EXPECT_FALSE(lua.pushString("x"));
    EXPECT_EQ(top(), 0);
    for (const std::string& line : {std::string("FAIL: Lua.openFile: Brak nazwy pliku\n"),
                                    std::string("FAIL: Lua.openFile: Nie udalo sie wczytac pliku\n"),
                                    LINE + "1: unexpected symbol near '='\n", LINE + "2: broken at load\n"})
        EXPECT_TRUE(logged(line)) << line;
}

// Top-level code can already call what was registered; arguments arrive in
// order and results that nobody reads are neither kept nor passed on.
TEST_F(LuaTest, CallsTakeThePushedArgumentsAndLeaveTheirResults) {
    EXPECT_FALSE(lua.regFunc(nullptr, "f"));
    EXPECT_FALSE(lua.regFunc(countArguments, ""));
    EXPECT_TRUE(lua.regFunc(countArguments, "count"));
    ASSERT_TRUE(load("count(1, 2, 3)\nfunction join(a, b, c) return a .. ':' .. b, c * 2 end"));
    EXPECT_EQ(global("calls"), 3);
    EXPECT_TRUE(lua.pushString("left"));
    EXPECT_TRUE(lua.pushNumber(0.5f));
    EXPECT_TRUE(lua.pushNumber(21.0f));
    EXPECT_TRUE(lua.call("join"));
    ASSERT_EQ(top(), 2);
    EXPECT_STREQ(lua_tostring(lua.getState(), 1), "left:0.5");
    EXPECT_EQ(lua_tonumber(lua.getState(), 2), 42.0);
    for (int i = 0; i < 5000; ++i) ASSERT_TRUE(lua.pushNumber(static_cast<float>(i)));
    EXPECT_TRUE(lua.call("count"));
    EXPECT_EQ(global("calls"), 5000);
    EXPECT_EQ(top(), 0);
    EXPECT_EQ(out.text(), "FAIL: Lua.regFunc: NULL\nFAIL: Lua.regFunc: NULL\n");
}

// A failed call still returns true and takes its arguments along; an empty
// name calls nothing and leaves them for the next call. A pending error is
// one line, written by whatever comes next, which then calls nothing.
TEST_F(LuaTest, AnErrorIsOneLineReportedOnceByWhateverComesNext) {
    lua.regFunc(countArguments, "count");
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

TEST_F(LuaTest, RunAndDeclareMakeTheStateReadyAndADeclaredFunctionDoesNothing) {
    EXPECT_FALSE(lua.run(""));
    EXPECT_FALSE(lua.run("if then"));
    lua.declare("onSay");
    EXPECT_TRUE(lua.pushNumber(1.0f));
    lua.declare("onHit");  // takes the pushed number along
    EXPECT_EQ(top(), 0);
    lua.regFunc(countArguments, "count");
    lua.pushNumber(2.0f);
    EXPECT_TRUE(lua.call("onHit"));
    EXPECT_EQ(top(), 0);
    lua.call("count");
    EXPECT_EQ(global("calls"), 0);
    EXPECT_EQ(out.text().find(LINE), 0u);
    EXPECT_EQ(out.text().find(LINE, 1), std::string::npos);
}

TEST_F(LuaTest, AReferenceKeepsItsFunctionWhateverTheNameHoldsLater) {
    ASSERT_TRUE(load("function combo(a, b) got = a + b end\nvalue = 1"));
    EXPECT_FALSE(lua.hasFunction("value"));
    EXPECT_EQ(lua.ref("value"), -2);
    int reference = lua.ref("combo");
    lua.run("combo = function() error('combo broke') end");
    lua.pushNumber(2.0f);
    lua.pushNumber(3.0f);
    EXPECT_TRUE(lua.callRef(reference));
    EXPECT_EQ(global("got"), 5);
    EXPECT_TRUE(lua.callRef(lua.ref("combo")));
    EXPECT_EQ(out.text(), LINE + "1: combo broke\n");
    EXPECT_FALSE(lua.callRef(reference + 100));
}

TEST_F(LuaTest, RegistryValuesAreInvisibleToTheScriptAndDieWithTheState) {
    int owner = 0;
    lua.setVal("_rank", 2);
    lua.setStr("half", "2.6");
    lua.setPtr("char", &owner);
    EXPECT_EQ(lua.getVal("_rank"), 2);
    EXPECT_EQ(lua.getVal("half"), 3);
    EXPECT_STREQ(lua.getStr("half"), "2.6");
    EXPECT_EQ(lua.getPtr("char"), &owner);
    EXPECT_EQ(lua.getStr("missing"), nullptr);
    EXPECT_TRUE(lua.run("seen = (char == nil and _rank == nil) and 1 or 0"));
    EXPECT_EQ(global("seen"), 1);
    lua.start();
    EXPECT_FALSE(lua.pushNumber(1.0f));
    EXPECT_EQ(lua.getPtr("char"), nullptr);
}

TEST_F(LuaTest, AHostileGlobalsMetatableCannotBreakTheHost) {
    ASSERT_TRUE(load("function f() end\nsetmetatable(_G, {__index = function() error('no') end,\n"
                     "                                   __newindex = function() error('no') end})"));
    EXPECT_FALSE(lua.hasFunction("missing"));
    EXPECT_EQ(lua.ref("missing"), -2);
    EXPECT_TRUE(lua.regFunc(countArguments, "count"));
    EXPECT_TRUE(lua.call("f"));
    EXPECT_TRUE(lua.call("missing"));
    lua.declare("onHit");
    lua.update();
    EXPECT_EQ(top(), 0);
    EXPECT_TRUE(logged(LINE + "3: no\n"));
}

// The test program is linked like the game, so a C module that takes the Lua
// API from its host loads with require.
TEST_F(LuaTest, ACModuleWithoutItsOwnLibluaLoadsThroughRequire) {
    ASSERT_TRUE(lua.run(std::string("package.cpath = '") + KORVANE_LUA_MODULE_DIR + "/?.so'\n"
                        "sum = require('luaprobe').add(2, 3.5)"));
    EXPECT_EQ(global("sum"), 5.5);
    EXPECT_EQ(out.text(), "");
}

}  // namespace
