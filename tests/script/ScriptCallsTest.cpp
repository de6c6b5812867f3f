#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "TestSupport.h"
#include "gameplay/Arena.h"
#include "gameplay/Character.h"
#include "script/Lua.h"
#include "script/LuaFuncs.h"

namespace {

enum Rank { LOCAL = 0, CLIENT = 1, SERVER = 2 };
const bool FIGHTER = true, ARENA = false;

// Three fighters, F0 to F2, at 50 of 100 hp, with lungs of 80 and words of 25 air of which 5 are charged, in
// an arena; none loaded from a script. The script state is set up as the arena's or as fighter 2's would be,
// and cat(...) joins its arguments with commas.
struct ScriptWorld {
    ScriptWorld(int rank, bool asFighter) {
        for (int i = 0; i < 3; ++i) {
            fighters[i].name = "F" + std::to_string(i);
            fighters[i].maxHp = 100.0f;
            fighters[i].hp = 50.0f;
            fighters[i].lungCapacity = 80.0f;
            fighters[i].airUsage = 25.0f;
            fighters[i].charge = 5.0f;
            fighters[i].arena = &arena;
            arena.characters.push_back(&fighters[i]);
        }
        lua.start();
        lua.setPtr("char", asFighter ? &fighters[2] : nullptr);
        lua.setPtr("arena", asFighter ? nullptr : &arena);
        LuaFuncs::registerAll(lua, rank);
        lua.run("function cat(...) return table.concat({...}, ',') end");
    }
    // Runs a chunk; returns what the log got meanwhile.
    std::string run(const std::string& chunk) {
        TestSupport::CapturedStdout out;
        EXPECT_TRUE(lua.run(chunk));
        lua.update();
        return out.text();
    }
    std::string global(const char* name) {
        lua_getglobal(lua.getState(), name);
        std::string value = luaL_tolstring(lua.getState(), -1, nullptr);
        lua_settop(lua.getState(), 0);
        return value;
    }
    Arena arena;
    Character fighters[3];
    Lua lua;
};

// Each case runs a chunk in a fresh world: what the log got must contain
// `logged`, or stay empty when that is, and the chunk's `r` must read `result`.
TEST(ScriptCallTest, CallsOfTheScriptApi) {
    struct Case { int rank; bool fighter; const char* chunk; const char* logged; const char* result; };
    const Case cases[] = {
        // A fighter by position, from the arena's script; values come from the end of the arguments.
        {LOCAL, ARENA, "setCharacterPosition(2, 10, 20, 30, 40) setCharacterSpeed(0, 4, 5, 6) setCharacterHp(1.9, 'x', 7) "
                       "setCharacterHp(0, 1e9) setCharacterAir(0, -5) setCharacterBlock(1, 3) "
                       "setCharacterSpeakBlock(1, 'x') setCharacterDirection(1, 'left') setCharacterState(1, 528) "
                       "r = cat(getCharacterPosition(2)) .. '|' .. cat(getCharacterSpeed(0)) .. '|' .. "
                       "cat(getCharacterHp(1), getCharacterHp(0), getCharacterAir(0), getCharacterBlock(1), "
                       "getCharacterSpeakBlock(1), getCharacterState(1), getCharacterDirection(1), "
                       "getCharacterDirection(0), getCharacterName(2), getCharacterLungCapacity(1), "
                       "getCharacterMaxHp(1), getCharacterAirUsage(1))",
         "", "20,30,40|4,5,6|7,100,-5,3,0,528,left,right,F2,80,100,25,5"},
        {LOCAL, ARENA, "characterSay(1, 2) characterDefend(0) characterJump(2, 9) "
                       "r = cat(getCharacterState(1), getCharacterState(0), select(3, getCharacterSpeed(2)))", "",
         "128,32,9"},
        {LOCAL, ARENA, "r = select('#', setCharacterHp(0))",
         "FAIL: LuaFuncs.setCharacterHp: Za malo argumentow (otrzymano 1, oczekiwano 2)", "0"},
        {LOCAL, ARENA, "r = select('#', getCharacterHp(3)) .. select('#', getCharacterHp(-1))",
         "FAIL: LuaFuncs.getCharacterHp: NULL character", "00"},
        {LOCAL, ARENA, "r = tostring((getHp())) .. tostring((getID()))", "FAIL: LuaFuncs.getHp: NULL character",
         "nilnil"},
        {LOCAL, ARENA, "setArenaSize(10, 20, 300, 400) setArenaNoise(3) "
                       "r = cat(getArenaSize()) .. '|' .. cat(getArenaNoise(), getArenaCharacterCount())", "",
         "10,20,300,400|3,3"},
        {LOCAL, ARENA, "setArena({dimension = {1.9, 2.9, 3.9, 4.9}}) r = cat(getArenaSize())", "", "1,2,3,4"},
        // The own fighter (fighter 2), which has no arena in its registry.
        {LOCAL, FIGHTER, "r = getCharacterHp(0)", "FAIL: LuaFuncs.getCharacterHp: NULL arena", "nil"},
        {LOCAL, FIGHTER, "setCharacterHp()", "LuaFuncs.setCharacterHp: Za malo argumentow (otrzymano 0, oczekiwano 2)",
         "nil"},
        {LOCAL, FIGHTER, "setArenaNoise()", "LuaFuncs.setArenaNoise: NULL arena", "nil"},
        {LOCAL, FIGHTER, "setHp(1e9) setAir(1e9) r = cat(getHp(), getAir()) setHp(-30) setAir(-5) "
                         "r = cat(r, getHp(), getAir())", "", "100,80,-30,-5"},
        {LOCAL, FIGHTER, "setDirection('LEFT') r = getDirection() setDirection('left') r = cat(r, getDirection(), "
                         "getID()) setState(0x110) endCombo() r = cat(r, getState()) say(1) defend() "
                         "r = cat(r, getState())", "", "right,left,2,16,176"},
        {LOCAL, FIGHTER, "setName('Ola') setMoveSpeed(1) setVoiceVolume(2) setSpeakSpeed(3) setLungCapacity(4) "
                         "setAirUsage(5) setBlock(6) setSpeakBlock(7) setPosition(8, 9, 10) setSpeed(11, 12, 13) "
                         "jump(14) r = cat(getName(), getMoveSpeed(), getVoiceVolume(), getSpeakSpeed(), "
                         "getLungCapacity(), getBlock(), getSpeakBlock(), getMaxHp(), getAirUsage()) .. '|' .. "
                         "cat(getPosition()) .. '|' .. cat(getSpeed())", "", "Ola,1,2,3,4,6,7,100,5,5|8,9,10|11,12,14"},
        // Set-up tables store what they get, unrepaired, and skip what is absent.
        {LOCAL, FIGHTER, "setCharacter({name = 'Zed', moveSpeed = -4, voiceVolume = 5, speakSpeed = 0.5, "
                         "lungCapacity = 60, airUsage = 0, hp = 120}) r = cat(getName(), getMoveSpeed(), "
                         "getVoiceVolume(), getSpeakSpeed(), getLungCapacity(), getMaxHp(), getHp(), getAirUsage()) "
                         "setMoveSpeed(3) setCharacter({}) r = cat(r, getMoveSpeed())", "", "Zed,-4,5,0.5,60,120,50,0,5,3"},
        // Keys and entries inherited through a metatable count; a failing metamethod reads as nil.
        {LOCAL, FIGHTER, "local d = {name = 'Mo', moveSpeed = 7, speakSpeed = 0.5, lungCapacity = 60, airUsage = 20, "
                         "hp = 90} setCharacter(setmetatable({voiceVolume = 44}, {__index = d})) "
                         "r = cat(getName(), getMoveSpeed(), getVoiceVolume(), getSpeakSpeed(), getLungCapacity(), "
                         "getAirUsage(), getMaxHp())", "", "Mo,7,44,0.5,60,20,90"},
        {LOCAL, FIGHTER, "setCharacter(setmetatable({}, {__index = function() error('nope') end})) r = getName()",
         "FAIL: ScriptTable.get:", "F2"},
        {SERVER, FIGHTER, "setSprite('a.xml') setCharacter({sprite = 'a.xml', shadow = 'b.xml', name = 's'}) r = getName()",
         "", "s"},
        {LOCAL, FIGHTER, "addCombo(5, {})",
         "LuaFuncs.addCombo: Pierwszy argument powinien byc funkcja (otrzymano \"number\")", "nil"},
        {LOCAL, FIGHTER, "addCombo(function() end, 5)",
         "LuaFuncs.addCombo: Drugi argument powinien byc tablica (otrzymano \"number\")", "nil"},
        // What a client's script may not do passes without a word or a result.
        {CLIENT, FIGHTER, "r = setHp(0) say(1) setState(512) addCombo(5, {}) playSound('a.ogg') playMusic('b.ogg') "
                          "r = cat(tostring(r), getHp(), getState())", "", "nil,50,0"},
        // Values in the script's own registry, shared by numbers and strings.
        {LOCAL, ARENA, "setGlobalVal('a', 5) setGlobalStr('b', '2.5') r = cat(getGlobalStr('a'), getGlobalVal('b'), "
                       "getGlobalVal('unknown'), tostring(getGlobalStr('unknown')), tostring(a))", "", "5,2.5,0,nil,nil"},
        {LOCAL, ARENA, "setGlobalVal('a')", "INFO: FAIL: LuaFuncs.setGlobalVal: Za malo argumentow\n", "nil"},
        {LOCAL, ARENA, "r = getGlobalStr({})", "INFO: FAIL: LuaFuncs.getGlobalStr: Nazwa nie jest tekstem", "nil"},
        {LOCAL, ARENA, "setGlobalVal(2, 0) r = 1", "", "1"},  // slot 2 of the registry holds the globals
        {LOCAL, ARENA, "playSound('a.ogg', 0.3)", "Sound.play: Nie udalo sie wczytac dzwieku \"a.ogg\"", "nil"},
        {LOCAL, ARENA, "playMusic('b.ogg')", "Sound.play: Nie udalo sie wczytac dzwieku \"b.ogg\"", "nil"},
        {SERVER, ARENA, "playMusic('x')",
         "FAIL: LuaFuncs.playMusic: Sry, nie chce mi sie robic muzyki po stronie serwera >:", "nil"},
        {SERVER, ARENA, "playSound()", "FAIL: LuaFuncs.playSound: Za malo argumentow\n", "nil"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.chunk);
        ScriptWorld world(c.rank, c.fighter);
        std::string log = world.run(c.chunk);
        EXPECT_TRUE(*c.logged ? log.find(c.logged) != std::string::npos : log.empty()) << log;
        EXPECT_EQ(world.global("r"), c.result);
    }
}

// An arena's table, its floor and its rows of starting positions may all
// inherit through metatables.
TEST(ScriptCallTest, ArenaSetUpReadsThroughMetatables) {
    ScriptWorld world(LOCAL, ARENA);
    EXPECT_EQ(world.run("local rows = setmetatable({}, {__index = function(t, i) if i <= 2 then "
                        "return setmetatable({}, {__index = {i, 6, 7}}) end end}) "
                        "setArena(setmetatable({}, {__index = {dimension = setmetatable({}, {__index = "
                        "function(t, i) return i * 10 end}), start = rows}})) r = cat(getArenaSize())"), "");
    EXPECT_EQ(world.global("r"), "10,20,30,40");
    ASSERT_EQ(world.arena.startPositions.size(), 2u);
    EXPECT_EQ(world.arena.startPositions[1].x, 2.0f);
    EXPECT_EQ(world.arena.startPositions[1].z, 7.0f);
}

// Per rank, each call real (1), a dummy (0) or absent (-): a client can't change the game, the server loads
// no pictures and can't stop the process, and an unknown rank gets only the common calls.
TEST(ScriptCallTest, EachRankGetsItsOwnCalls) {
    const std::pair<int, const char*> expected[] = {{LOCAL, "11111111111111111111011"},
                                                    {CLIENT, "10000000000011111111011"},
                                                    {SERVER, "01111111111100011111011"},
                                                    {7, "------------------11011"}};
    for (auto [rank, calls] : expected) {
        ScriptWorld world(rank, FIGHTER);
        world.run("r = '' for _, name in ipairs({'kill', 'setArenaNoise', 'addArenaStartingPosition', 'setCharacterHp', "
                  "'characterSay', 'setHp', 'say', 'setPosition', 'addCombo', 'endCombo', 'playSound', 'playMusic', "
                  "'setSprite', 'setShadow', 'setSpeech', 'setArena', 'setCharacter', 'setName', 'getCharacterHp', "
                  "'getHp', 'getControllerKey', 'include', 'getGlobalVal'}) do "
                  "r = r .. (_G[name] == nil and '-' or _G[name] == dummy and '0' or '1') end");
        EXPECT_EQ(world.global("r"), calls) << "rank " << rank;
    }
}

// Stands in for the server: keeps what reaches it.
struct SoundListener : EventListener {
    void onEvent(const Event& event) override {
        heard.push_back(std::string(event.name) + " at " + std::to_string(event.volume));
        EventListener::onEvent(event);
    }
    std::vector<std::string> heard;
};

TEST(ScriptCallTest, OnTheServerASoundGoesToTheListenerOnceThereIsOne) {
    SoundListener server;
    ScriptWorld world(SERVER, ARENA);
    EXPECT_EQ(world.run("playSound('early.ogg')"), "");  // not listening yet, as while the script loads
    world.lua.setPtr("_eventlistener", static_cast<EventListener*>(&server));
    world.run("playSound('boom.ogg') playSound('ignored', 'hiss.ogg', 0.5)");
    EXPECT_EQ(server.heard, (std::vector<std::string>{"boom.ogg at 1.000000", "hiss.ogg at 0.500000"}));
}

TEST(ScriptCallTest, AddComboKeepsKnownTokensInOrder) {
    ScriptWorld world(LOCAL, FIGHTER);
    EXPECT_EQ(world.run("addCombo(function() end, {'say', 'shout', 'jump', 'Say'})"), "");
    const ComboManager& manager = world.fighters[2].comboManager;
    ASSERT_EQ(manager.combos.size(), 1u);
    EXPECT_EQ(manager.combos[0].sequence, (std::vector<int32_t>{INPUT_SAY, INPUT_JUMP}));
    EXPECT_TRUE(manager.dirty);
}

}  // namespace
