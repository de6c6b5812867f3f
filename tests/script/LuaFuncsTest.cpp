#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "TestSupport.h"
#include "gameplay/ObjectType.h"
#include "script/Lua.h"
#include "script/LuaFuncs.h"

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
    lua_CFunction native(const char* name) {
        lua_getglobal(lua.getState(), name);
        lua_CFunction function = lua_tocfunction(lua.getState(), -1);
        lua_pop(lua.getState(), 1);
        return function;
    }
    std::string text(const char* global) {
        lua_getglobal(lua.getState(), global);
        const char* value = lua_tostring(lua.getState(), -1);
        std::string result = value ? value : "<nil>";
        lua_pop(lua.getState(), 1);
        return result;
    }
    bool logged(const std::string& line) { return out.text().find(line + "\n") != std::string::npos; }

    TestSupport::ScopedTempDir dir;
    TestSupport::CapturedStdout out;
    Lua lua;
};

const char* const RANKED_SAMPLE[] = {"kill", "setArenaNoise", "setHp", "say", "setSprite", "addCombo", "playMusic",
                                     "setCharacter"};

TEST_F(LuaFuncsTest, EveryRankGetsItsCallsAndAnUnknownRankOnlyTheCommonOnes) {
    const int ranks[] = {OBJECT_LOCAL, OBJECT_CLIENT, OBJECT_SERVER, 7};
    for (int rank : ranks) {
        startAt(rank);
        EXPECT_EQ(lua.getVal("_rank"), rank);
        for (const char* name : RANKED_SAMPLE)
            EXPECT_EQ(native(name) != nullptr, rank != 7) << name << " at rank " << rank;
        EXPECT_EQ(native("include"), LuaFuncs::lInclude);
        EXPECT_NE(native("getCharacterHp"), nullptr);
        EXPECT_NE(native("getControllerKey"), nullptr);
    }
}

TEST_F(LuaFuncsTest, AClientCannotChangeTheCourseOfTheGameAndTheServerLoadsNoPictures) {
    startAt(OBJECT_CLIENT);
    for (const char* name : {"setHp", "say", "setCharacterHp", "addCombo", "endCombo", "playSound", "setArenaNoise"})
        EXPECT_EQ(native(name), LuaFuncs::lDummy) << name;
    EXPECT_EQ(native("kill"), LuaFuncs::lKill);
    ASSERT_TRUE(lua.run("setHp(0)\nsay(1)\nresult = setHp(5)"));
    EXPECT_EQ(out.text(), "");
    EXPECT_EQ(text("result"), "<nil>");

    startAt(OBJECT_SERVER);
    for (const char* name : {"kill", "setSprite", "setShadow", "setSpeech"})
        EXPECT_EQ(native(name), LuaFuncs::lDummy) << name;
    ASSERT_TRUE(lua.run("kill()\nalive = 'yes'"));
    EXPECT_EQ(text("alive"), "yes");
}

TEST_F(LuaFuncsTest, KillEndsTheProcessAtOnce) {
    startAt(OBJECT_CLIENT);
    EXPECT_EXIT(
        {
            if (!freopen("kill.log", "w", stdout)) std::_Exit(2);
            lua.run("kill()");
            std::_Exit(3);
        },
        ::testing::ExitedWithCode(0), "");
    EXPECT_NE(TestSupport::readFile("kill.log").find("INFO: INFO: LuaFuncs.kill: Zamykanie\n"), std::string::npos);
}

TEST_F(LuaFuncsTest, IncludeRunsAnotherFileInTheSameStateAndKeepsThePath) {
    startAt(OBJECT_LOCAL);
    writeFile("helper.lua", "function helper() return 'helped' end\nseenPath = getPath()");
    writeFile("main.lua", "test()\ninclude('helper.lua')\nresult = helper()");
    ASSERT_TRUE(lua.openFile("main.lua"));
    EXPECT_EQ(text("result"), "helped");
    EXPECT_EQ(text("seenPath"), "main.lua");
    EXPECT_TRUE(logged("INFO: LuaFuncs.lTest"));
}

TEST_F(LuaFuncsTest, IncludeFailuresAreLoggedAndTheScriptGoesOn) {
    startAt(OBJECT_LOCAL);
    writeFile("broken.lua", "x = = 1");
    writeFile("throws.lua", "error('inside')");
    writeFile("self.lua", "include('self.lua')");
    ASSERT_TRUE(lua.run("include()\ninclude('absent.lua')\ninclude('broken.lua')\n"
                        "include('throws.lua')\ninclude('self.lua')\nreached = 'end'"));
    EXPECT_EQ(text("reached"), "end");
    EXPECT_TRUE(logged("INFO: FAIL: LuaFuncs.include: Za malo argumentow"));
    EXPECT_TRUE(logged("INFO: FAIL: LuaFuncs.lInclude: Nie znaleziono pliku"));
    EXPECT_TRUE(logged("INFO: FAIL: LuaFuncs.lInclude: Blad przy parsowaniu skryptu"));
    EXPECT_EQ(out.text().find("inside"), std::string::npos);  // the Lua message is not shown
}

TEST_F(LuaFuncsTest, GlobalValuesShareTheRegistryOfTheirOwnStateOnly) {
    startAt(OBJECT_LOCAL);
    ASSERT_TRUE(lua.run("unknownVal = getGlobalVal('unknown')\n"
                        "unknownStr = tostring(getGlobalStr('unknown'))\n"
                        "setGlobalVal('a', 5)\n"
                        "aAsText = getGlobalStr('a')\n"
                        "setGlobalStr('b', '2.5')\n"
                        "bAsNumber = getGlobalVal('b')\n"
                        "notGlobal = tostring(a)"));
    EXPECT_EQ(text("unknownVal"), "0");
    EXPECT_EQ(text("unknownStr"), "nil");
    EXPECT_EQ(text("aAsText"), "5");
    EXPECT_EQ(text("bAsNumber"), "2.5");
    EXPECT_EQ(text("notGlobal"), "nil");
    EXPECT_EQ(lua.getVal("a"), 5);

    Lua other;
    other.start();
    LuaFuncs::registerAll(other, OBJECT_LOCAL);
    ASSERT_TRUE(other.run("seen = tostring(getGlobalStr('a'))"));
    lua_getglobal(other.getState(), "seen");
    EXPECT_STREQ(lua_tostring(other.getState(), -1), "nil");
    EXPECT_EQ(out.text(), "");
}

TEST_F(LuaFuncsTest, GlobalValueCallsCheckTheirArguments) {
    startAt(OBJECT_LOCAL);
    ASSERT_TRUE(lua.run("setGlobalVal('a')\nsetGlobalStr()\nr1 = tostring((getGlobalVal()))\n"
                        "r2 = tostring((getGlobalStr({})))"));
    EXPECT_TRUE(logged("INFO: FAIL: LuaFuncs.setGlobalVal: Za malo argumentow"));
    EXPECT_TRUE(logged("INFO: FAIL: LuaFuncs.setGlobalStr: Za malo argumentow"));
    EXPECT_TRUE(logged("INFO: FAIL: LuaFuncs.getGlobalVal: Za malo argumentow"));
    EXPECT_TRUE(logged("INFO: FAIL: LuaFuncs.getGlobalStr: Nazwa nie jest tekstem"));
    EXPECT_EQ(text("r1"), "nil");
    EXPECT_EQ(text("r2"), "nil");
}

TEST_F(LuaFuncsTest, NumericNamesCannotOverwriteTheRegistrySlots) {
    startAt(OBJECT_LOCAL);
    ASSERT_TRUE(lua.run("function combo() hits = (hits or 0) + 1 end"));
    int reference = lua.ref("combo");
    ASSERT_GT(reference, 0);
    // Slot 2 holds the globals table, the reference's slot the combo.
    ASSERT_TRUE(lua.run("setGlobalVal(2, 0)\nsetGlobalStr(" + std::to_string(reference) + ", 'x')"));
    EXPECT_TRUE(lua.callRef(reference));
    EXPECT_TRUE(lua.hasFunction("combo"));
    EXPECT_EQ(text("hits"), "1");
}

}  // namespace
