// The fighter and arena scripts under data/, run against a recording
// stand-in of the script API: they must keep the script contract, name only
// files that exist, and leave every combo they start.
#include <gtest/gtest.h>

#include <lua.hpp>

#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "ContentList.h"
#include "TestSupport.h"

namespace fs = std::filesystem;

namespace {

const fs::path DATA = fs::path(KORVANE_SOURCE_DIR) / "data";

// Every call of the script API. The setters and actions record their
// arguments; the getters answer from one plausible fighter and arena.
const char* const API_STANDIN = R"LUA(
calls = {}
local function record(name, ...)
    table.insert(calls, {name = name, args = {...}})
end
local recorded = {
    "test", "dummy", "kill", "playMusic", "setControllerKey", "getControllerKey",
    "setSprite", "setShadow", "setSpeech", "setArenaBg", "setArenaSize", "addArenaStartingPosition",
    "setPosition", "setSpeed", "setDirection", "setState", "setAir", "setBlock", "setSpeakBlock",
    "setName", "setMoveSpeed", "setVoiceVolume", "setSpeakSpeed", "setLungCapacity", "setAirUsage",
    "say", "defend", "jump", "endCombo", "playSound",
    "setCharacterPosition", "setCharacterSpeed", "setCharacterDirection", "setCharacterState",
    "setCharacterHp", "setCharacterAir", "setCharacterBlock", "setCharacterSpeakBlock",
    "characterSay", "characterDefend", "characterJump",
}
for _, name in ipairs(recorded) do
    _G[name] = function(...) record(name, ...) end
end

fighter = {name = "", hp = 1, maxHp = 1, air = 0, moveSpeed = 0, voiceVolume = 0, speakSpeed = 0,
           lungCapacity = 0, airUsage = 25, state = 0, block = 0, speakBlock = 0}
arena = {noise = 0}
combos = {}
globals = {}

function setCharacter(t)
    record("setCharacter", t)
    for k, v in pairs(t) do fighter[k] = v end
    if t.hp then fighter.maxHp = t.hp; fighter.hp = t.hp end
end
function setHp(v) record("setHp", v); fighter.hp = math.min(v, fighter.maxHp) end
function addCombo(fn, tokens) record("addCombo", fn, tokens); table.insert(combos, {fn = fn, tokens = tokens}) end
function setArena(t) record("setArena", t); arena.setup = t end
function setArenaNoise(v) record("setArenaNoise", v); arena.noise = v end

function getName() return fighter.name end
function getHp() return fighter.hp end
function getMaxHp() return fighter.maxHp end
function getAir() return fighter.air end
function getMoveSpeed() return fighter.moveSpeed end
function getVoiceVolume() return fighter.voiceVolume end
function getSpeakSpeed() return fighter.speakSpeed end
function getLungCapacity() return fighter.lungCapacity end
function getAirUsage() return fighter.airUsage, 0 end
function getState() return fighter.state end
function getBlock() return fighter.block end
function getSpeakBlock() return fighter.speakBlock end
function getPosition() return 400, 450, 0 end
function getSpeed() return 0, 0, 0 end
function getDirection() return "right" end
function getID() return nil end
function getPath() return "" end
function getArenaNoise() return arena.noise end
function getArenaSize() return 0, 0, 0, 0 end
function getArenaCharacterCount() return 2 end
for _, what in ipairs({"Name", "Hp", "MaxHp", "Air", "MoveSpeed", "VoiceVolume", "SpeakSpeed", "LungCapacity",
                       "AirUsage", "State", "Block", "SpeakBlock", "Position", "Speed", "Direction"}) do
    local own = _G["get" .. what]
    _G["getCharacter" .. what] = function(id) return own() end
end
-- Scripts share code through include, which reads a resource into this state.
function include(path) record("include", path); dofile(DATA_DIR .. "/" .. path) end
function getGlobalVal(k) return tonumber(globals[k]) or 0 end
function getGlobalStr(k) return globals[k] and tostring(globals[k]) end
function setGlobalVal(k, v) globals[k] = v end
function setGlobalStr(k, v) globals[k] = v end

-- helpers for the test
function countCalls(name)
    local n = 0
    for _, c in ipairs(calls) do if c.name == name then n = n + 1 end end
    return n
end
function firstArgs(name)
    local out = {}
    for _, c in ipairs(calls) do if c.name == name then table.insert(out, tostring(c.args[1])) end end
    return table.concat(out, "\n")
end
local TOKENS = {}
for _, t in ipairs({"move", "move-left", "move-right", "move-up", "move-down", "charge", "say",
                    "defend", "hit", "hit-self", "jump", "combo"}) do TOKENS[t] = true end
function comboProblems()
    local out = {}
    for i, c in ipairs(combos) do
        if type(c.fn) ~= "function" then table.insert(out, i .. ": no function") end
        if type(c.tokens) ~= "table" or #c.tokens == 0 then table.insert(out, i .. ": no steps") end
        for _, t in ipairs(type(c.tokens) == "table" and c.tokens or {}) do
            if not TOKENS[t] then table.insert(out, i .. ": unknown step " .. tostring(t)) end
        end
    end
    return table.concat(out, "; ")
end

-- A name that is neither in the API nor defined by the script is a typo.
setmetatable(_G, {__index = function(_, k) error("unknown global '" .. tostring(k) .. "'", 2) end})
)LUA";

class ScriptProbe {
public:
    explicit ScriptProbe(const std::string& resourcePath) : state(luaL_newstate()) {
        luaL_openlibs(state);
        lua_pushstring(state, DATA.string().c_str());
        lua_setglobal(state, "DATA_DIR");
        loaded = run(API_STANDIN, "standin");
        if (!loaded) return;
        const std::string source = TestSupport::readFile((DATA / resourcePath).string());
        loaded = !source.empty() && run(source, resourcePath);
    }
    ~ScriptProbe() { lua_close(state); }
    ScriptProbe(const ScriptProbe&) = delete;
    ScriptProbe& operator=(const ScriptProbe&) = delete;

    bool ok() const { return loaded; }
    const std::string& error() const { return lastError; }

    // Runs a chunk of Lua in the script's state.
    bool run(const std::string& code, const std::string& chunk = "probe") {
        if (luaL_loadbuffer(state, code.data(), code.size(), chunk.c_str()) != LUA_OK ||
            lua_pcall(state, 0, 0, 0) != LUA_OK) {
            lastError = lua_tostring(state, -1) ? lua_tostring(state, -1) : "?";
            lua_pop(state, 1);
            return false;
        }
        return true;
    }

    // The value of a Lua expression as text ("nil" when absent).
    std::string eval(const std::string& expression) {
        const std::string code = "return tostring(" + expression + ")";
        if (luaL_loadbuffer(state, code.data(), code.size(), "eval") != LUA_OK ||
            lua_pcall(state, 0, 1, 0) != LUA_OK) {
            lastError = lua_tostring(state, -1) ? lua_tostring(state, -1) : "?";
            lua_pop(state, 1);
            return "<error: " + lastError + ">";
        }
        std::string result = lua_tostring(state, -1);
        lua_pop(state, 1);
        return result;
    }

    double number(const std::string& expression) { return std::atof(eval(expression).c_str()); }

    std::vector<std::string> lines(const std::string& expression) {
        std::vector<std::string> out;
        std::istringstream in(eval(expression));
        for (std::string line; std::getline(in, line);)
            if (!line.empty()) out.push_back(line);
        return out;
    }

private:
    lua_State* state;
    bool loaded = false;
    std::string lastError;
};

void expectResources(const std::vector<std::string>& names, const std::string& what) {
    for (const std::string& name : names) EXPECT_TRUE(fs::is_regular_file(DATA / name)) << what << " names a missing file: " << name;
}

class FighterScript : public ::testing::TestWithParam<std::string> {};
class ArenaScript : public ::testing::TestWithParam<std::string> {};

}  // namespace

TEST(ContentLists, NameTheFrontEndDefaultsFirst) {
    const std::vector<std::string> fighters = ContentList::names("character/list.txt");
    const std::vector<std::string> arenas = ContentList::names("arena/list.txt");
    ASSERT_GE(fighters.size(), 3u);
    ASSERT_GE(arenas.size(), 2u);
    EXPECT_EQ(fighters[0], "default");
    EXPECT_EQ(arenas[0], "osmiornica");
    for (const std::string& name : fighters) EXPECT_FALSE(TestSupport::readFile((DATA / "character" / name / "desc.txt").string()).empty()) << name;
    for (const std::string& name : arenas) EXPECT_FALSE(TestSupport::readFile((DATA / "arena" / name / "desc.txt").string()).empty()) << name;
}

TEST_P(FighterScript, KeepsTheFighterContract) {
    ScriptProbe probe("character/" + GetParam() + "/init.lua");
    ASSERT_TRUE(probe.ok()) << probe.error();
    for (const char* callback : {"init", "update", "onSay", "onDefend", "onHit"})
        EXPECT_EQ(probe.eval(std::string("type(rawget(_G, '") + callback + "'))"), "function") << callback;

    ASSERT_TRUE(probe.run("init()")) << probe.error();
    EXPECT_EQ(probe.number("countCalls('setCharacter')"), 1);
    EXPECT_NE(probe.eval("fighter.name"), "");
    for (const char* key : {"moveSpeed", "voiceVolume", "speakSpeed", "hp"})
        EXPECT_GT(probe.number(std::string("fighter.") + key), 0) << key;
    // Air starts at one word's worth, and a word needs more than that.
    EXPECT_GT(probe.number("fighter.lungCapacity"), probe.number("fighter.airUsage"));
    EXPECT_GT(probe.number("fighter.airUsage"), 0);
    expectResources({probe.eval("fighter.sprite"), probe.eval("fighter.shadow"), probe.eval("fighter.speech")}, "setCharacter");
}

TEST_P(FighterScript, CombosAreWellFormedAndAlwaysEnd) {
    ScriptProbe probe("character/" + GetParam() + "/init.lua");
    ASSERT_TRUE(probe.ok()) << probe.error();
    ASSERT_TRUE(probe.run("init()")) << probe.error();
    const int count = static_cast<int>(probe.number("#combos"));
    ASSERT_GE(count, 1);
    EXPECT_EQ(probe.eval("comboProblems()"), "");
    // A combo function runs in place of update until it calls endCombo.
    for (int i = 1; i <= count; ++i) {
        ASSERT_TRUE(probe.run("calls = {}; combos[" + std::to_string(i) + "].fn()")) << probe.error();
        EXPECT_GE(probe.number("countCalls('endCombo')"), 1) << "combo " << i << " never ends";
        expectResources(probe.lines("firstArgs('playSound')"), "combo");
    }
}

TEST_P(FighterScript, CallbacksPlaySoundsThatExist) {
    ScriptProbe probe("character/" + GetParam() + "/init.lua");
    ASSERT_TRUE(probe.ok()) << probe.error();
    ASSERT_TRUE(probe.run("init(); calls = {}")) << probe.error();
    // Voices are picked at random: speak often enough to hear every one.
    ASSERT_TRUE(probe.run("for i = 1, 50 do update(); onSay(getVoiceVolume() * i / 50) end")) << probe.error();
    EXPECT_GE(probe.number("countCalls('playSound')"), 50);
    ASSERT_TRUE(probe.run("onDefend(); onHit(1); onHit(1000); onHit(5, 0)")) << probe.error();
    expectResources(probe.lines("firstArgs('playSound')"), "callbacks");
}

INSTANTIATE_TEST_SUITE_P(Listed, FighterScript, ::testing::ValuesIn(ContentList::names("character/list.txt")));

TEST_P(ArenaScript, ShapesAPlayableFloor) {
    ScriptProbe probe("arena/" + GetParam() + "/init.lua");
    ASSERT_TRUE(probe.ok()) << probe.error();
    EXPECT_EQ(probe.eval("type(rawget(_G, 'update'))"), "function");
    ASSERT_TRUE(probe.run("init()")) << probe.error();
    ASSERT_EQ(probe.eval("type(arena.setup)"), "table");
    const double x = probe.number("arena.setup.dimension[1]"), y = probe.number("arena.setup.dimension[2]");
    const double w = probe.number("arena.setup.dimension[3]"), h = probe.number("arena.setup.dimension[4]");
    EXPECT_GT(w, 0);
    EXPECT_GT(h, 0);
    EXPECT_GE(x, 0);
    EXPECT_LE(x + w, 800);
    EXPECT_LE(y + h, 600);
    // Fighters stand about 90 pixels tall: the floor's far edge leaves room for heads.
    EXPECT_GE(y, 90);
    expectResources({probe.eval("arena.setup.background")}, "setArena");

    const int starts = static_cast<int>(probe.number("#arena.setup.start"));
    EXPECT_GE(starts, 2);
    for (int i = 1; i <= starts; ++i) {
        const std::string at = "arena.setup.start[" + std::to_string(i) + "]";
        EXPECT_GE(probe.number(at + "[1]"), x) << at;
        EXPECT_LE(probe.number(at + "[1]"), x + w) << at;
        EXPECT_GE(probe.number(at + "[2]"), y) << at;
        EXPECT_LE(probe.number(at + "[2]"), y + h) << at;
    }
    EXPECT_GE(probe.number("arena.noise"), 0);
}

TEST_P(ArenaScript, AmbienceUsesSoundsThatExist) {
    ScriptProbe probe("arena/" + GetParam() + "/init.lua");
    ASSERT_TRUE(probe.ok()) << probe.error();
    ASSERT_TRUE(probe.run("init(); calls = {}; for i = 1, 5000 do update() end")) << probe.error();
    expectResources(probe.lines("firstArgs('playSound')"), "update");
}

INSTANTIATE_TEST_SUITE_P(Listed, ArenaScript, ::testing::ValuesIn(ContentList::names("arena/list.txt")));
