#include <cstdio>
#include <string>

#include "ScriptCallFixture.h"

using TestSupport::writeFile;

namespace {

const char* const RANKED_SAMPLE[] = {"kill", "setArenaNoise", "setHp", "say", "setSprite", "addCombo", "playMusic",
                                     "setCharacter"};
// A client cannot change the course of the game; the server loads no pictures.
const char* const CLIENT_DUMMIES[] = {"setHp", "say", "setCharacterHp", "addCombo", "endCombo", "playSound",
                                      "setArenaNoise"};
const char* const SERVER_DUMMIES[] = {"kill", "setSprite", "setShadow", "setSpeech"};

TEST_F(ScriptCallTest, EveryRankGetsItsCallsAndAnUnknownRankOnlyTheCommonOnes) {
    for (int rank : {int(LOCAL), int(CLIENT), int(SERVER), 7}) {
        SCOPED_TRACE(rank);
        asArenaScript(rank);
        EXPECT_EQ(lua.getVal("_rank"), rank);
        for (const char* name : RANKED_SAMPLE) EXPECT_EQ(native(name) != nullptr, rank != 7) << name;
        EXPECT_EQ(native("include"), LuaFuncs::lInclude);
        EXPECT_NE(native("getCharacterHp"), nullptr);
        EXPECT_NE(native("getControllerKey"), nullptr);
        for (const char* name : CLIENT_DUMMIES)
            EXPECT_EQ(native(name) == LuaFuncs::lDummy, rank == CLIENT) << name;
        for (const char* name : SERVER_DUMMIES)
            EXPECT_EQ(native(name) == LuaFuncs::lDummy, rank == SERVER) << name;
    }
    asArenaScript(CLIENT);
    EXPECT_EQ(native("kill"), LuaFuncs::lKill);
    EXPECT_EQ("", run("result = setHp(5)"));
    EXPECT_EQ("nil", global("result"));
}

TEST_F(ScriptCallTest, KillEndsTheProcessAtOnce) {
    TestSupport::ScopedTempDir dir;
    asArenaScript(CLIENT);
    EXPECT_EXIT(
        {
            if (!freopen("kill.log", "w", stdout)) std::_Exit(2);
            lua.run("kill()");
            std::_Exit(3);
        },
        ::testing::ExitedWithCode(0), "");
    EXPECT_TRUE(contains(TestSupport::readFile("kill.log"), "INFO: INFO: LuaFuncs.kill: Zamykanie\n"));
}

TEST_F(ScriptCallTest, IncludeRunsAnotherFileInTheSameStateAndItsFailuresLetTheScriptGoOn) {
    TestSupport::ScopedTempDir dir;
    asArenaScript(LOCAL);
    writeFile("helper.lua", "function helper() return 'helped' end\nseenPath = getPath()");
    writeFile("main.lua", "test()\ninclude('helper.lua')\nresult = helper()");
    writeFile("broken.lua", "x = = 1");
    writeFile("throws.lua", "error('inside')");
    writeFile("self.lua", "include('self.lua')");
    {
        TestSupport::CapturedStdout out;
        ASSERT_TRUE(lua.openFile("main.lua"));
        EXPECT_TRUE(contains(out.text(), "INFO: LuaFuncs.lTest\n"));
    }
    EXPECT_EQ("helped", global("result"));
    EXPECT_EQ("main.lua", global("seenPath"));

    std::string log = run("include()\ninclude('absent.lua')\ninclude('broken.lua')\n"
                          "include('throws.lua')\ninclude('self.lua')\nreached = 'end'");
    EXPECT_EQ("end", global("reached"));
    EXPECT_TRUE(contains(log, "INFO: FAIL: LuaFuncs.include: Za malo argumentow\n"));
    EXPECT_TRUE(contains(log, "INFO: FAIL: LuaFuncs.lInclude: Nie znaleziono pliku\n"));
    EXPECT_TRUE(contains(log, "INFO: FAIL: LuaFuncs.lInclude: Blad przy parsowaniu skryptu\n"));
    EXPECT_FALSE(contains(log, "inside"));  // the Lua message is not shown
}

TEST_F(ScriptCallTest, GlobalValuesShareTheRegistryOfTheirOwnStateOnly) {
    asArenaScript(LOCAL);
    EXPECT_EQ("", run("unknownVal = getGlobalVal('unknown')\n"
                      "unknownStr = tostring(getGlobalStr('unknown'))\n"
                      "setGlobalVal('a', 5)\n"
                      "aAsText = getGlobalStr('a')\n"
                      "setGlobalStr('b', '2.5')\n"
                      "bAsNumber = getGlobalVal('b')\n"
                      "notGlobal = tostring(a)"));
    EXPECT_EQ("0", global("unknownVal"));
    EXPECT_EQ("nil", global("unknownStr"));
    EXPECT_EQ("5", global("aAsText"));
    EXPECT_EQ("2.5", global("bAsNumber"));
    EXPECT_EQ("nil", global("notGlobal"));
    EXPECT_EQ(lua.getVal("a"), 5);

    Lua other;
    other.start();
    LuaFuncs::registerAll(other, LOCAL);
    ASSERT_TRUE(other.run("seen = tostring(getGlobalStr('a'))"));
    lua_getglobal(other.getState(), "seen");
    EXPECT_STREQ(lua_tostring(other.getState(), -1), "nil");
}

TEST_F(ScriptCallTest, GlobalValueCallsCheckTheirArgumentsAndCannotOverwriteRegistrySlots) {
    asArenaScript(LOCAL);
    std::string log = run("setGlobalVal('a')\nsetGlobalStr()\nr1 = tostring((getGlobalVal()))\n"
                          "r2 = tostring((getGlobalStr({})))\nfunction combo() hits = (hits or 0) + 1 end");
    EXPECT_TRUE(contains(log, "INFO: FAIL: LuaFuncs.setGlobalVal: Za malo argumentow\n"));
    EXPECT_TRUE(contains(log, "INFO: FAIL: LuaFuncs.setGlobalStr: Za malo argumentow\n"));
    EXPECT_TRUE(contains(log, "INFO: FAIL: LuaFuncs.getGlobalVal: Za malo argumentow\n"));
    EXPECT_TRUE(contains(log, "INFO: FAIL: LuaFuncs.getGlobalStr: Nazwa nie jest tekstem\n"));
    EXPECT_EQ("nil", global("r1"));
    EXPECT_EQ("nil", global("r2"));

    int reference = lua.ref("combo");
    ASSERT_GT(reference, 0);
    // Slot 2 holds the globals table, the reference's slot the combo.
    run("setGlobalVal(2, 0)\nsetGlobalStr(" + std::to_string(reference) + ", 'x')");
    EXPECT_TRUE(lua.callRef(reference));
    EXPECT_TRUE(lua.hasFunction("combo"));
    EXPECT_EQ(1, number("hits"));
}

}  // namespace
