#include <gtest/gtest.h>

#include <string>

#include "TestSupport.h"
#include "script/Lua.h"

namespace {

const char* const LINE = "FAIL: Lua.update: Error: [string \"line\"]:";

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

    TestSupport::ScopedTempDir dir;
    TestSupport::CapturedStdout out;
    Lua lua;
};

const char* const COUNTER = "function count(...) calls = select('#', ...) end\n";

TEST_F(LuaTest, NothingHappensWithoutAScriptOrAState) {
    EXPECT_FALSE(lua.pushNumber(1.0f));
    EXPECT_FALSE(lua.pushString("x"));
    EXPECT_EQ(top(), 0);
    Lua idle;
    EXPECT_FALSE(idle.openFile("script.lua"));
    EXPECT_FALSE(idle.call("f"));
    EXPECT_EQ(idle.ref("f"), -2);
    idle.setVal("k", 1);
    EXPECT_EQ(idle.getVal("k"), 0);
    idle.declare("f");
    EXPECT_EQ(out.text(), "");
}

TEST_F(LuaTest, AFileThatCannotBeLoadedIsReportedAndLeavesTheScriptUnready) {
    EXPECT_FALSE(lua.openFile(""));
    EXPECT_FALSE(lua.openFile("absent.lua"));
    EXPECT_FALSE(load("x = = 1"));
    EXPECT_STREQ(lua.getStr("__PATH__"), "script.lua");
    EXPECT_FALSE(load("x = 1\nerror('broken at load')"));
    EXPECT_FALSE(lua.isReady());
    EXPECT_FALSE(lua.pushNumber(1.0f));
    std::string log = out.text();
    EXPECT_NE(log.find("FAIL: Lua.openFile: Brak nazwy pliku\n"), std::string::npos) << log;
    EXPECT_NE(log.find("FAIL: Lua.openFile: Nie udalo sie wczytac pliku\n"), std::string::npos) << log;
    EXPECT_NE(log.find(std::string(LINE) + "1: unexpected symbol near '='\n"), std::string::npos) << log;
    EXPECT_NE(log.find(std::string(LINE) + "2: broken at load\n"), std::string::npos) << log;
}

int recordArguments(lua_State* L) {
    lua_pushinteger(L, lua_gettop(L));
    lua_setglobal(L, "nativeArgCount");
    return 0;
}

TEST_F(LuaTest, TopLevelCodeCanCallARegisteredFunction) {
    EXPECT_FALSE(lua.regFunc(nullptr, "f"));
    EXPECT_FALSE(lua.regFunc(recordArguments, ""));
    EXPECT_EQ(out.text(), "FAIL: Lua.regFunc: NULL\nFAIL: Lua.regFunc: NULL\n");
    EXPECT_TRUE(lua.regFunc(recordArguments, "record"));
    EXPECT_TRUE(load("record(1, 2, 3)"));
    EXPECT_TRUE(lua.isReady());
    EXPECT_EQ(global("nativeArgCount"), 3);
}

TEST_F(LuaTest, PushedArgumentsArriveInOrderAndUnreadResultsDoNotPileUp) {
    ASSERT_TRUE(load(std::string(COUNTER) + "function join(a, b, c) return a .. ':' .. b, c * 2 end\n"
                     "function update(dt) return dt, dt, dt end"));
    EXPECT_TRUE(lua.pushString("left"));
    EXPECT_TRUE(lua.pushNumber(0.5f));
    EXPECT_TRUE(lua.pushNumber(21.0f));
    EXPECT_TRUE(lua.call("join"));
    ASSERT_EQ(top(), 2);
    EXPECT_STREQ(lua_tostring(lua.getState(), 1), "left:0.5");
    EXPECT_EQ(lua_tonumber(lua.getState(), 2), 42.0);

    // Results of earlier calls are neither kept nor passed on.
    for (int frame = 0; frame < 1000; ++frame) {
        lua.pushNumber(0.016f);
        lua.call("update");
    }
    EXPECT_EQ(top(), 3);
    for (int i = 0; i < 5000; ++i) ASSERT_TRUE(lua.pushNumber(static_cast<float>(i)));
    EXPECT_TRUE(lua.call("count"));
    EXPECT_EQ(global("calls"), 5000);
}

TEST_F(LuaTest, ArgumentsGoWithAFailedCallButNotWithAnEmptyName) {
    ASSERT_TRUE(load(COUNTER));
    lua.pushNumber(1.0f);
    lua.pushNumber(2.0f);
    EXPECT_TRUE(lua.call("nosuch"));
    EXPECT_EQ(out.text(), "FAIL: Lua.update: Error: attempt to call a nil value\n");
    EXPECT_EQ(top(), 0);
    lua.pushNumber(7.0f);
    EXPECT_FALSE(lua.call(""));
    EXPECT_TRUE(lua.call("count"));
    EXPECT_EQ(global("calls"), 1);
}

TEST_F(LuaTest, AnErrorIsOneLineReportedOnceByWhateverComesNextAndTheNextCallWorks) {
    ASSERT_TRUE(load("function onHit(amount) error('hit for ' .. amount) end\n"
                     "function onSay() error({}) end\n"
                     "function update() ticks = (ticks or 0) + 1 end"));
    lua.pushNumber(12.0f);
    EXPECT_TRUE(lua.call("onHit"));
    EXPECT_TRUE(lua.call("onSay"));  // an error value that is no text prints nothing
    EXPECT_TRUE(lua.call("update"));
    EXPECT_EQ(global("ticks"), 1);

    EXPECT_TRUE(lua.run("error('first')"));
    lua.pushNumber(3.0f);
    EXPECT_TRUE(lua.call("update"));  // reports, calls nothing
    EXPECT_EQ(global("ticks"), 1);
    lua.run("error('second')");
    EXPECT_TRUE(lua.hasFunction("update"));
    lua.run("error('third')");
    EXPECT_EQ(lua.ref("missing"), -2);
    lua.update();
    // The messages, not the number pushed above the first one.
    EXPECT_EQ(out.text(), std::string(LINE) + "1: hit for 12\n" + LINE + "1: first\n" + LINE + "1: second\n" +
                              LINE + "1: third\n");
    EXPECT_EQ(top(), 0);
}

TEST_F(LuaTest, RunAndDeclare) {
    EXPECT_FALSE(lua.run(""));
    EXPECT_FALSE(lua.run("if then"));
    EXPECT_EQ(out.text().rfind(LINE, 0), 0u);
    lua.declare("onSay");  // makes a fresh state ready
    EXPECT_TRUE(lua.isReady());
    ASSERT_TRUE(lua.run(COUNTER));
    lua.pushNumber(1.0f);
    lua.declare("onHit");  // takes the pushed number along
    lua.pushNumber(2.0f);
    EXPECT_TRUE(lua.call("onHit"));
    EXPECT_EQ(top(), 0);
    lua.call("count");
    EXPECT_EQ(global("calls"), 0);
    EXPECT_EQ(out.text().find(LINE, 1), std::string::npos);
}

TEST_F(LuaTest, FunctionsFoundByNameAndByReference) {
    ASSERT_TRUE(load("function combo(a, b) got = a + b end\nvalue = 1"));
    lua.pushNumber(1.0f);
    EXPECT_TRUE(lua.hasFunction("combo"));
    EXPECT_EQ(top(), 0);
    EXPECT_FALSE(lua.hasFunction("value"));
    EXPECT_EQ(lua.ref("missing"), -2);
    EXPECT_EQ(lua.ref("value"), -2);
    int reference = lua.ref("combo");
    ASSERT_GT(reference, 0);
    lua.run("combo = function() error('combo broke') end");
    lua.pushNumber(2.0f);
    lua.pushNumber(3.0f);
    EXPECT_TRUE(lua.callRef(reference));
    EXPECT_EQ(global("got"), 5);
    EXPECT_TRUE(lua.callRef(lua.ref("combo")));
    EXPECT_EQ(out.text(), std::string(LINE) + "1: combo broke\n");
    EXPECT_FALSE(lua.callRef(reference + 100));
    EXPECT_EQ(top(), 0);
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
    EXPECT_EQ(lua.getPtr("arena"), nullptr);
    EXPECT_EQ(lua.getStr("missing"), nullptr);
    EXPECT_TRUE(lua.run("seen = (char == nil and _rank == nil) and 1 or 0\nfunction f() end"));
    EXPECT_EQ(global("seen"), 1);
    lua.start();
    EXPECT_FALSE(lua.isReady());
    EXPECT_FALSE(lua.hasFunction("f"));
    EXPECT_EQ(lua.getPtr("char"), nullptr);
}

TEST_F(LuaTest, AHostileGlobalsMetatableCannotBreakTheHost) {
    ASSERT_TRUE(load("function f() end\n"
                     "setmetatable(_G, {__index = function() error('no') end,\n"
                     "                  __newindex = function() error('no') end})"));
    EXPECT_FALSE(lua.hasFunction("missing"));
    EXPECT_EQ(lua.ref("missing"), -2);
    EXPECT_TRUE(lua.regFunc(recordArguments, "record"));
    EXPECT_TRUE(lua.call("f"));
    EXPECT_TRUE(lua.call("missing"));
    lua.declare("onHit");
    lua.update();
    EXPECT_EQ(top(), 0);
    EXPECT_NE(out.text().find(std::string(LINE) + "3: no\n"), std::string::npos);
}

}  // namespace
