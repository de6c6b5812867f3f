#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "TestSupport.h"
#include "script/Lua.h"

using TestSupport::CapturedStdout;
using TestSupport::ScopedTempDir;
using TestSupport::writeFile;

namespace {

// A fresh interpreter in a scratch directory, with standard output captured.
class LuaTest : public ::testing::Test {
protected:
    void SetUp() override { lua.start(); }
    // gtest writes its failures to the captured stream; show them.
    void TearDown() override {
        if (HasFailure()) fprintf(stderr, "%s", out.text().c_str());
    }

    // Loads a script from a file, the way the game does.
    bool load(const std::string& source) {
        writeFile("script.lua", source);
        return lua.openFile("script.lua");
    }
    int top() { return lua_gettop(lua.getState()); }
    double globalNumber(const char* name) {
        lua_getglobal(lua.getState(), name);
        double value = lua_tonumber(lua.getState(), -1);
        lua_pop(lua.getState(), 1);
        return value;
    }

    ScopedTempDir dir;
    CapturedStdout out;
    Lua lua;
};

TEST_F(LuaTest, NothingCanBePushedBeforeAScriptHasRun) {
    EXPECT_FALSE(lua.pushNumber(1.0f));
    EXPECT_FALSE(lua.pushString("x"));
    EXPECT_EQ(top(), 0);
    EXPECT_FALSE(lua.isReady());
}

TEST_F(LuaTest, OpenFileRefusesAnEmptyPathAndAMissingFile) {
    EXPECT_FALSE(lua.openFile(""));
    EXPECT_FALSE(lua.openFile("absent.lua"));
    std::string log = out.text();
    EXPECT_NE(log.find("FAIL: Lua.openFile: Brak nazwy pliku\n"), std::string::npos) << log;
    EXPECT_NE(log.find("FAIL: Lua.openFile: Nie udalo sie wczytac pliku\n"), std::string::npos) << log;
}

TEST_F(LuaTest, ASyntaxErrorIsReportedAndThePathIsStoredAllTheSame) {
    EXPECT_FALSE(load("x = = 1"));
    EXPECT_NE(out.text().find("FAIL: Lua.update: Error: [string \"line\"]:1:"), std::string::npos)
        << out.text();
    EXPECT_FALSE(lua.isReady());
    EXPECT_STREQ(lua.getStr("__PATH__"), "script.lua");
}

TEST_F(LuaTest, ARunTimeErrorDuringLoadLeavesTheScriptUnready) {
    EXPECT_FALSE(load("x = 1\nerror('broken at load')"));
    EXPECT_NE(out.text().find("FAIL: Lua.update: Error: [string \"line\"]:2: broken at load\n"),
              std::string::npos)
        << out.text();
    EXPECT_FALSE(lua.isReady());
    EXPECT_FALSE(lua.pushNumber(1.0f));
    EXPECT_EQ(top(), 0);
}

int recordArguments(lua_State* L) {
    lua_pushinteger(L, lua_gettop(L));
    lua_setglobal(L, "nativeArgCount");
    return 0;
}

TEST_F(LuaTest, TopLevelCodeCanCallARegisteredFunction) {
    EXPECT_TRUE(lua.regFunc(recordArguments, "record"));
    EXPECT_TRUE(load("record(1, 2, 3)"));
    EXPECT_TRUE(lua.isReady());
    EXPECT_EQ(globalNumber("nativeArgCount"), 3);
}

TEST_F(LuaTest, RegFuncRefusesANullFunctionOrAnEmptyName) {
    EXPECT_FALSE(lua.regFunc(nullptr, "f"));
    EXPECT_FALSE(lua.regFunc(recordArguments, ""));
    EXPECT_EQ(out.text(), "FAIL: Lua.regFunc: NULL\nFAIL: Lua.regFunc: NULL\n");
}

TEST_F(LuaTest, PushedArgumentsArriveInOrderAndResultsCanBeRead) {
    ASSERT_TRUE(load("function join(a, b, c) return a .. ':' .. b, c * 2 end"));
    EXPECT_TRUE(lua.pushString("left"));
    EXPECT_TRUE(lua.pushNumber(0.5f));
    EXPECT_TRUE(lua.pushNumber(21.0f));
    EXPECT_TRUE(lua.call("join"));
    ASSERT_EQ(top(), 2);
    EXPECT_STREQ(lua_tostring(lua.getState(), 1), "left:0.5");
    EXPECT_EQ(lua_tonumber(lua.getState(), 2), 42.0);
}

TEST_F(LuaTest, UnreadResultsDoNotPileUpFromCallToCall) {
    ASSERT_TRUE(load("function update(dt) return dt, dt, dt end\n"
                     "function count(...) return select('#', ...) end"));
    for (int frame = 0; frame < 1000; ++frame) {
        lua.pushNumber(0.016f);
        lua.call("update");
    }
    EXPECT_EQ(top(), 3);
    // The leftovers must not reach the next callback as extra arguments.
    lua.pushNumber(1.0f);
    lua.call("count");
    ASSERT_EQ(top(), 1);
    EXPECT_EQ(lua_tonumber(lua.getState(), 1), 1.0);
}

TEST_F(LuaTest, CallingAMissingFunctionIsLoggedAndStillReturnsTrue) {
    ASSERT_TRUE(load("function count(...) calls = select('#', ...) end"));
    lua.pushNumber(1.0f);
    lua.pushNumber(2.0f);
    EXPECT_TRUE(lua.call("nosuch"));
    EXPECT_NE(out.text().find("FAIL: Lua.update: Error: attempt to call a nil value\n"), std::string::npos)
        << out.text();
    EXPECT_EQ(top(), 0);
    // The two numbers went with the failed call.
    EXPECT_TRUE(lua.call("count"));
    EXPECT_EQ(globalNumber("calls"), 0);
}

TEST_F(LuaTest, AnEmptyNameCallsNothingAndKeepsTheArguments) {
    ASSERT_TRUE(load("function count(...) calls = select('#', ...) end"));
    lua.pushNumber(7.0f);
    EXPECT_FALSE(lua.call(""));
    EXPECT_TRUE(lua.call("count"));
    EXPECT_EQ(globalNumber("calls"), 1);
}

TEST_F(LuaTest, AnErrorInACallbackIsOneLineAndTheNextCallWorks) {
    ASSERT_TRUE(load("function onHit(amount) error('hit for ' .. amount) end\n"
                     "function update() ticks = (ticks or 0) + 1 end"));
    lua.pushNumber(12.0f);
    EXPECT_TRUE(lua.call("onHit"));
    EXPECT_EQ(out.text(), "FAIL: Lua.update: Error: [string \"line\"]:1: hit for 12\n");
    EXPECT_EQ(top(), 0);
    EXPECT_TRUE(lua.call("update"));
    EXPECT_EQ(globalNumber("ticks"), 1);
}

TEST_F(LuaTest, APendingErrorIsReportedByTheNextCallWhichCallsNothing) {
    ASSERT_TRUE(load("function update() ticks = (ticks or 0) + 1 end"));
    EXPECT_TRUE(lua.run("error('late')"));
    EXPECT_EQ(out.text(), "");
    lua.pushNumber(3.0f);
    EXPECT_TRUE(lua.call("update"));
    // The message, not the number pushed above it, is reported.
    EXPECT_EQ(out.text(), "FAIL: Lua.update: Error: [string \"line\"]:1: late\n");
    EXPECT_EQ(globalNumber("ticks"), 0);
    EXPECT_EQ(top(), 0);
    EXPECT_TRUE(lua.call("update"));
    EXPECT_EQ(globalNumber("ticks"), 1);
}

TEST_F(LuaTest, AnErrorValueThatIsNoTextWritesNothingButIsCleared) {
    ASSERT_TRUE(load("function f() error({}) end"));
    EXPECT_TRUE(lua.call("f"));
    EXPECT_EQ(out.text(), "");
    EXPECT_EQ(top(), 0);
}

TEST_F(LuaTest, UpdateReportsAPendingErrorOnce) {
    ASSERT_TRUE(load(""));
    lua.run("error('once')");
    lua.update();
    lua.update();
    EXPECT_EQ(out.text(), "FAIL: Lua.update: Error: [string \"line\"]:1: once\n");
}

TEST_F(LuaTest, EmptyingTheStackReportsAPendingErrorInsteadOfLosingIt) {
    ASSERT_TRUE(load("function f() end"));
    lua.run("error('first')");
    lua.pushNumber(1.0f);
    EXPECT_TRUE(lua.hasFunction("f"));
    lua.run("error('second')");
    EXPECT_EQ(lua.ref("missing"), -2);
    EXPECT_EQ(out.text(),
              "FAIL: Lua.update: Error: [string \"line\"]:1: first\n"
              "FAIL: Lua.update: Error: [string \"line\"]:1: second\n");
    EXPECT_EQ(top(), 0);
}

TEST_F(LuaTest, RunRejectsEmptyTextAndReportsASyntaxError) {
    EXPECT_FALSE(lua.run(""));
    EXPECT_FALSE(lua.run("if then"));
    EXPECT_NE(out.text().find("FAIL: Lua.update: Error: [string \"line\"]:1:"), std::string::npos);
    EXPECT_TRUE(lua.run("x = 5"));
    EXPECT_TRUE(lua.isReady());
    EXPECT_EQ(globalNumber("x"), 5);
}

TEST_F(LuaTest, ADeclaredCallbackIsSilentAndConsumesItsArguments) {
    ASSERT_TRUE(load("function count(...) calls = select('#', ...) end"));
    EXPECT_FALSE(lua.hasFunction("onSay"));
    lua.pushNumber(1.0f);
    lua.declare("onSay");
    EXPECT_TRUE(lua.hasFunction("onSay"));
    lua.pushNumber(2.0f);
    EXPECT_TRUE(lua.call("onSay"));
    EXPECT_EQ(out.text(), "");
    EXPECT_EQ(top(), 0);
    lua.call("count");
    EXPECT_EQ(globalNumber("calls"), 0);
}

TEST_F(LuaTest, DeclareMakesAFreshStateReadyForArguments) {
    lua.declare("init");
    EXPECT_TRUE(lua.isReady());
    EXPECT_TRUE(lua.pushNumber(1.0f));
    EXPECT_TRUE(lua.call("init"));
    EXPECT_EQ(out.text(), "");
}

TEST_F(LuaTest, HasFunctionSeesOnlyFunctionsAndEmptiesTheStack) {
    ASSERT_TRUE(load("function f() end\nnotAFunction = 3"));
    lua.pushNumber(1.0f);
    EXPECT_TRUE(lua.hasFunction("f"));
    EXPECT_EQ(top(), 0);
    EXPECT_FALSE(lua.hasFunction("notAFunction"));
    EXPECT_FALSE(lua.hasFunction("missing"));
    EXPECT_TRUE(lua.hasFunction("print"));
}

TEST_F(LuaTest, AReferenceKeepsAFunctionThatTheScriptDropped) {
    ASSERT_TRUE(load("function combo(a, b) got = a + b end\nvalue = 1"));
    EXPECT_EQ(lua.ref("missing"), -2);
    EXPECT_EQ(lua.ref("value"), -2);
    EXPECT_EQ(top(), 0);
    int reference = lua.ref("combo");
    EXPECT_GT(reference, 0);
    lua.run("combo = nil");
    lua.pushNumber(2.0f);
    lua.pushNumber(3.0f);
    EXPECT_TRUE(lua.callRef(reference));
    EXPECT_EQ(globalNumber("got"), 5);
    EXPECT_FALSE(lua.callRef(reference + 100));
    EXPECT_EQ(top(), 0);
}

TEST_F(LuaTest, AnErrorInAReferencedFunctionIsReportedAndCountsAsCalled) {
    ASSERT_TRUE(load("function combo() error('combo broke') end"));
    int reference = lua.ref("combo");
    EXPECT_TRUE(lua.callRef(reference));
    EXPECT_EQ(out.text(), "FAIL: Lua.update: Error: [string \"line\"]:1: combo broke\n");
    EXPECT_EQ(top(), 0);
}

TEST_F(LuaTest, RegistryValuesAreInvisibleToTheScript) {
    int owner = 0;
    lua.setVal("_rank", 2);
    lua.setStr("name", "osmiornica");
    lua.setPtr("char", &owner);
    EXPECT_EQ(lua.getVal("_rank"), 2);
    EXPECT_STREQ(lua.getStr("name"), "osmiornica");
    EXPECT_EQ(lua.getPtr("char"), &owner);
    EXPECT_EQ(lua.getPtr("arena"), nullptr);
    EXPECT_EQ(lua.getStr("missing"), nullptr);
    EXPECT_EQ(lua.getVal("missing"), 0);
    EXPECT_TRUE(lua.run("seen = (char == nil and _rank == nil) and 1 or 0"));
    EXPECT_EQ(globalNumber("seen"), 1);
}

TEST_F(LuaTest, GetValRoundsToTheNearestInteger) {
    lua.setStr("a", "2.6");
    lua.setStr("b", "-7.4");
    EXPECT_EQ(lua.getVal("a"), 3);
    EXPECT_EQ(lua.getVal("b"), -7);
}

TEST_F(LuaTest, StartDropsTheWholeOldState) {
    ASSERT_TRUE(load("function f() end"));
    lua.setVal("_rank", 1);
    lua.start();
    EXPECT_FALSE(lua.isReady());
    EXPECT_FALSE(lua.hasFunction("f"));
    EXPECT_EQ(lua.getPtr("_rank"), nullptr);
    EXPECT_TRUE(lua.hasFunction("print"));
}

TEST_F(LuaTest, OperationsWithoutAStateDoNothing) {
    Lua idle;
    EXPECT_FALSE(idle.openFile("script.lua"));
    EXPECT_FALSE(idle.pushNumber(1.0f));
    EXPECT_FALSE(idle.call("f"));
    EXPECT_FALSE(idle.hasFunction("f"));
    EXPECT_EQ(idle.ref("f"), -2);
    idle.setVal("k", 1);
    EXPECT_EQ(idle.getVal("k"), 0);
    idle.declare("f");
    idle.update();
}

TEST_F(LuaTest, ManyPushedArgumentsDoNotOverflowTheStack) {
    ASSERT_TRUE(load("function count(...) calls = select('#', ...) end"));
    for (int i = 0; i < 5000; ++i) ASSERT_TRUE(lua.pushNumber(static_cast<float>(i)));
    EXPECT_TRUE(lua.call("count"));
    EXPECT_EQ(globalNumber("calls"), 5000);
}

TEST_F(LuaTest, AHostileGlobalsMetatableCannotBreakTheHost) {
    ASSERT_TRUE(load("function f() hit = 1 end\n"
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
    EXPECT_NE(out.text().find("FAIL: Lua.update: Error: [string \"line\"]:3: no\n"), std::string::npos);
}

}  // namespace
