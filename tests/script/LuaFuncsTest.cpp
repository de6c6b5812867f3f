#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "TestSupport.h"
#include "gameplay/ObjectType.h"
#include "script/Lua.h"
#include "script/LuaFuncs.h"

using TestSupport::CapturedStdout;
using TestSupport::ScopedTempDir;
using TestSupport::writeFile;

namespace {

// A script state registered at some rank, in a scratch directory.
class LuaFuncsTest : public ::testing::Test {
protected:
    void TearDown() override {
        if (HasFailure()) fprintf(stderr, "%s", out.text().c_str());
    }
    void startAt(int rank) {
        lua.start();
        LuaFuncs::registerAll(lua, rank);
    }
    bool load(const std::string& path, const std::string& source) {
        writeFile(path, source);
        return lua.openFile(path);
    }
    // The global's native function, or null when it is none.
    lua_CFunction native(const char* name) {
        lua_getglobal(lua.getState(), name);
        lua_CFunction function = lua_tocfunction(lua.getState(), -1);
        lua_pop(lua.getState(), 1);
        return function;
    }
    std::string globalText(const char* name) {
        lua_getglobal(lua.getState(), name);
        const char* text = lua_tostring(lua.getState(), -1);
        std::string result = text ? text : "<nil>";
        lua_pop(lua.getState(), 1);
        return result;
    }

    ScopedTempDir dir;
    CapturedStdout out;
    Lua lua;
};

const char* const RANKED_SAMPLE[] = {"kill", "setArenaNoise", "setHp", "say", "setSprite", "addCombo",
                                     "playMusic", "setCharacter", "getArenaSize"};

TEST_F(LuaFuncsTest, TheRankIsStoredAndEveryCallIsANativeFunction) {
    for (int rank : {OBJECT_LOCAL, OBJECT_CLIENT, OBJECT_SERVER}) {
        startAt(rank);
        EXPECT_EQ(lua.getVal("_rank"), rank);
        for (const char* name : RANKED_SAMPLE) EXPECT_NE(native(name), nullptr) << name << " at " << rank;
        EXPECT_NE(native("getCharacterHp"), nullptr);
        EXPECT_NE(native("include"), nullptr);
    }
}

TEST_F(LuaFuncsTest, AnUnknownRankGetsOnlyTheCallsOfEveryRank) {
    startAt(7);
    EXPECT_EQ(lua.getVal("_rank"), 7);
    for (const char* name : RANKED_SAMPLE) EXPECT_EQ(native(name), nullptr) << name;
    EXPECT_EQ(native("test"), LuaFuncs::lTest);
    EXPECT_EQ(native("dummy"), LuaFuncs::lDummy);
    EXPECT_NE(native("getControllerKey"), nullptr);
    EXPECT_NE(native("getID"), nullptr);
}

TEST_F(LuaFuncsTest, AClientCannotChangeTheCourseOfTheGame) {
    startAt(OBJECT_CLIENT);
    for (const char* name : {"setHp", "say", "setCharacterHp", "addCombo", "endCombo", "playSound", "setArenaNoise"})
        EXPECT_EQ(native(name), LuaFuncs::lDummy) << name;
    EXPECT_EQ(native("kill"), LuaFuncs::lKill);
    ASSERT_TRUE(load("client.lua", "setHp(0)\nsay(1)\nresult = setHp(5)"));
    EXPECT_EQ(out.text(), "");
    EXPECT_EQ(globalText("result"), "<nil>");
}

TEST_F(LuaFuncsTest, TheServerLoadsNoPicturesAndCannotStopTheProcess) {
    startAt(OBJECT_SERVER);
    for (const char* name : {"kill", "setSprite", "setShadow", "setSpeech"})
        EXPECT_EQ(native(name), LuaFuncs::lDummy) << name;
    ASSERT_TRUE(load("server.lua", "kill()\nalive = 'yes'"));
    EXPECT_EQ(globalText("alive"), "yes");
}

TEST_F(LuaFuncsTest, KillEndsTheProcessAtOnceOnAClient) {
    startAt(OBJECT_CLIENT);
    EXPECT_EXIT(
        {
            freopen("kill.log", "w", stdout);
            lua.run("kill()");
            fputs("still running\n", stdout);
            fflush(stdout);
            std::_Exit(3);
        },
        ::testing::ExitedWithCode(0), "");
    std::string log = TestSupport::readFile("kill.log");
    EXPECT_NE(log.find("INFO: INFO: LuaFuncs.kill: Zamykanie\n"), std::string::npos) << log;
    EXPECT_EQ(log.find("still running"), std::string::npos);
}

TEST_F(LuaFuncsTest, TestWritesItsLogLine) {
    startAt(OBJECT_LOCAL);
    ASSERT_TRUE(lua.run("test()"));
    EXPECT_NE(out.text().find("INFO: LuaFuncs.lTest\n"), std::string::npos);
}

TEST_F(LuaFuncsTest, IncludeRunsAnotherFileInTheSameStateAndKeepsThePath) {
    startAt(OBJECT_LOCAL);
    writeFile("helper.lua", "function helper() return 'helped' end\nseenPath = getPath()");
    ASSERT_TRUE(load("main.lua", "include('helper.lua')\nresult = helper()\nmainPath = getPath()"));
    EXPECT_EQ(globalText("result"), "helped");
    EXPECT_EQ(globalText("seenPath"), "main.lua");
    EXPECT_EQ(globalText("mainPath"), "main.lua");
    EXPECT_EQ(out.text(), "");
}

TEST_F(LuaFuncsTest, IncludeFailuresAreLoggedAndTheScriptGoesOn) {
    startAt(OBJECT_LOCAL);
    writeFile("broken.lua", "x = = 1");
    writeFile("throws.lua", "error('inside')");
    ASSERT_TRUE(load("main.lua",
                     "include()\ninclude('absent.lua')\ninclude({})\n"
                     "include('broken.lua')\ninclude('throws.lua')\nreached = 'end'"));
    EXPECT_EQ(globalText("reached"), "end");
    std::string log = out.text();
    EXPECT_NE(log.find("INFO: FAIL: LuaFuncs.include: Za malo argumentow\n"), std::string::npos) << log;
    size_t missing = log.find("INFO: FAIL: LuaFuncs.lInclude: Nie znaleziono pliku\n");
    ASSERT_NE(missing, std::string::npos) << log;
    EXPECT_NE(log.find("Nie znaleziono pliku", missing + 1), std::string::npos) << log;
    size_t parse = log.find("INFO: FAIL: LuaFuncs.lInclude: Blad przy parsowaniu skryptu\n");
    ASSERT_NE(parse, std::string::npos) << log;
    EXPECT_NE(log.find("Blad przy parsowaniu skryptu", parse + 1), std::string::npos) << log;
    // The Lua message itself is not shown.
    EXPECT_EQ(log.find("inside"), std::string::npos) << log;
}

TEST_F(LuaFuncsTest, AScriptThatIncludesItselfEndsInAnErrorNotACrash) {
    startAt(OBJECT_LOCAL);
    ASSERT_TRUE(load("self.lua", "depth = (depth or 0) + 1\ninclude('self.lua')"));
    EXPECT_NE(out.text().find("Blad przy parsowaniu skryptu"), std::string::npos);
    lua.update();
    EXPECT_EQ(lua_gettop(lua.getState()), 0);
}

TEST_F(LuaFuncsTest, GlobalValuesLiveInTheRegistryAndShareOneTable) {
    startAt(OBJECT_LOCAL);
    ASSERT_TRUE(lua.run("unknownVal = getGlobalVal('unknown')\n"
                        "unknownStr = tostring(getGlobalStr('unknown'))\n"
                        "setGlobalVal('a', 5)\n"
                        "aAsText = getGlobalStr('a')\n"
                        "setGlobalStr('b', '2.5')\n"
                        "bAsNumber = getGlobalVal('b')\n"
                        "notGlobal = tostring(a)"));
    EXPECT_EQ(globalText("unknownVal"), "0");
    EXPECT_EQ(globalText("unknownStr"), "nil");
    EXPECT_EQ(globalText("aAsText"), "5");
    EXPECT_EQ(globalText("bAsNumber"), "2.5");
    EXPECT_EQ(globalText("notGlobal"), "nil");
    EXPECT_EQ(lua.getVal("a"), 5);
    EXPECT_EQ(out.text(), "");
}

TEST_F(LuaFuncsTest, TwoScriptsDoNotSeeEachOthersValues) {
    startAt(OBJECT_LOCAL);
    Lua other;
    other.start();
    LuaFuncs::registerAll(other, OBJECT_LOCAL);
    ASSERT_TRUE(lua.run("setGlobalStr('who', 'first')"));
    ASSERT_TRUE(other.run("seen = tostring(getGlobalStr('who'))"));
    lua_getglobal(other.getState(), "seen");
    EXPECT_STREQ(lua_tostring(other.getState(), -1), "nil");
}

TEST_F(LuaFuncsTest, GlobalValueCallsCheckTheirArguments) {
    startAt(OBJECT_LOCAL);
    ASSERT_TRUE(lua.run("setGlobalVal('a')\nsetGlobalStr()\nr1 = tostring((getGlobalVal()))\n"
                        "r2 = tostring((getGlobalStr({})))"));
    std::string log = out.text();
    EXPECT_NE(log.find("INFO: FAIL: LuaFuncs.setGlobalVal: Za malo argumentow\n"), std::string::npos) << log;
    EXPECT_NE(log.find("INFO: FAIL: LuaFuncs.setGlobalStr: Za malo argumentow\n"), std::string::npos) << log;
    EXPECT_NE(log.find("INFO: FAIL: LuaFuncs.getGlobalVal: Za malo argumentow\n"), std::string::npos) << log;
    EXPECT_NE(log.find("INFO: FAIL: LuaFuncs.getGlobalStr: Nazwa nie jest tekstem\n"), std::string::npos) << log;
    EXPECT_EQ(globalText("r1"), "nil");
    EXPECT_EQ(globalText("r2"), "nil");
}

TEST_F(LuaFuncsTest, NumericNamesCannotOverwriteTheRegistrySlots) {
    startAt(OBJECT_LOCAL);
    ASSERT_TRUE(load("main.lua", "function combo() hits = (hits or 0) + 1 end"));
    int reference = lua.ref("combo");
    ASSERT_GT(reference, 0);
    // Slot 2 holds the globals table, the reference's slot the combo.
    ASSERT_TRUE(lua.run("setGlobalVal(2, 0)\nsetGlobalStr(" + std::to_string(reference) + ", 'x')"));
    EXPECT_TRUE(lua.callRef(reference));
    EXPECT_TRUE(lua.hasFunction("combo"));
    EXPECT_EQ(globalText("hits"), "1");
    EXPECT_EQ(lua.getVal("2"), 0);
}

TEST_F(LuaFuncsTest, WrongArgumentsNeverLeaveTheHostStackBehind) {
    startAt(OBJECT_SERVER);
    ASSERT_TRUE(load("main.lua",
                     "function update(dt)\n"
                     "  include(nil) setGlobalVal() getGlobalStr(true) dummy(1, 2, 3)\n"
                     "  setHp() say('loud') getHp(1, 2) playSound() addCombo(5, {})\n"
                     "end"));
    for (int frame = 0; frame < 50; ++frame) {
        lua.pushNumber(0.02f);
        lua.call("update");
    }
    EXPECT_LE(lua_gettop(lua.getState()), 0);
}

}  // namespace
