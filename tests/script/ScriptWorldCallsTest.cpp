#include <vector>

#include "ScriptCallFixture.h"

namespace {

TEST_F(ScriptCallTest, ValuesAreReadFromTheEndOfTheArgumentList) {
    asArenaScript(LOCAL);
    EXPECT_EQ("", run("setCharacterPosition(2, 10, 20, 30, 40)"));
    EXPECT_FLOAT_EQ(20.0f, fighters[2].position.x);
    EXPECT_FLOAT_EQ(30.0f, fighters[2].position.y);
    EXPECT_FLOAT_EQ(40.0f, fighters[2].position.z);

    // The position is the first argument, truncated toward zero.
    run("setCharacterHp(1.9, 'not a number', 7)");
    EXPECT_FLOAT_EQ(7.0f, fighters[1].hp);
    run("setCharacterBlock(1, 'x')");
    EXPECT_FLOAT_EQ(0.0f, fighters[1].block);
}

TEST_F(ScriptCallTest, FailedCallsLogOneLineAndReturnNothing) {
    asArenaScript(LOCAL);
    std::string log = run("n = select('#', setCharacterHp(0))");
    EXPECT_TRUE(contains(log, "FAIL: LuaFuncs.setCharacterHp: Za malo argumentow (otrzymano 1, oczekiwano 2)"));
    EXPECT_EQ("0", global("n"));

    log = run("n = select('#', getCharacterHp(3))");
    EXPECT_TRUE(contains(log, "FAIL: LuaFuncs.getCharacterHp: NULL character"));
    EXPECT_EQ("0", global("n"));
    EXPECT_TRUE(contains(run("getCharacterHp(-1)"), "NULL character"));

    // The calls on the own fighter belong to a fighter's script.
    log = run("hp = getHp()");
    EXPECT_TRUE(contains(log, "FAIL: LuaFuncs.getHp: NULL character"));
    EXPECT_EQ("nil", global("hp"));

    asFighterScript(LOCAL, &fighters[0]);
    log = run("hp = getCharacterHp(0)");
    EXPECT_TRUE(contains(log, "FAIL: LuaFuncs.getCharacterHp: NULL arena"));
    EXPECT_EQ("nil", global("hp"));
    // The count is checked before the target.
    EXPECT_TRUE(contains(run("setCharacterHp()"), "(otrzymano 0, oczekiwano 2)"));
    EXPECT_TRUE(contains(run("setArenaNoise()"), "LuaFuncs.setArenaNoise: NULL arena"));
}

TEST_F(ScriptCallTest, ReadingCallsGiveTheFieldsWithTheirExactResultCounts) {
    Character& f = fighters[1];
    f.position = Vector(1, 2, 3, 0);
    f.direction = 4;
    f.airUsage = 25.0f;
    f.charge = 5.0f;
    f.name = "Ala";
    f.state = Character::DEAD | Character::MOVING;
    asArenaScript(LOCAL);
    run("r = table.concat({getCharacterPosition(1)}, ',') .. '|' .. table.concat({getCharacterAirUsage(1)}, ',')"
        " .. '|' .. getCharacterDirection(1) .. getCharacterDirection(0) .. '|' .. getCharacterName(1)"
        " .. '|' .. getCharacterState(1) .. '|' .. getCharacterHp(1)");
    EXPECT_EQ("1,2,3|25,5|leftright|Ala|528|50", global("r"));
}

TEST_F(ScriptCallTest, HealthAndAirAreCappedAboveOnly) {
    asFighterScript(LOCAL, &fighters[0]);
    run("setHp(1e9); setAir(1e9)");
    EXPECT_FLOAT_EQ(100.0f, fighters[0].hp);
    EXPECT_FLOAT_EQ(80.0f, fighters[0].air);
    run("setHp(-30); setAir(-5)");
    EXPECT_FLOAT_EQ(-30.0f, fighters[0].hp);
    EXPECT_FLOAT_EQ(-5.0f, fighters[0].air);
}

TEST_F(ScriptCallTest, DirectionAndStateWordsAreTakenLiterally) {
    asFighterScript(LOCAL, &fighters[0]);
    fighters[0].direction = 4;
    run("setDirection('LEFT')");
    EXPECT_EQ(0, fighters[0].direction);
    run("setDirection('left')");
    EXPECT_EQ(4, fighters[0].direction);

    fighters[0].state = Character::DEAD | Character::COMBO;
    run("setState(0)");
    EXPECT_EQ(0u, fighters[0].state);
    run("setState(0x21)");
    EXPECT_EQ(0x21u, fighters[0].state);
}

TEST_F(ScriptCallTest, OwnFighterSettersReachTheirFields) {
    asFighterScript(LOCAL, &fighters[2]);
    run("setName('Ola'); setMoveSpeed(1); setVoiceVolume(2); setSpeakSpeed(3); setLungCapacity(4)\n"
        "setAirUsage(5); setBlock(6); setSpeakBlock(7); setPosition(8, 9, 10); setSpeed(11, 12, 13); jump(14)");
    const Character& f = fighters[2];
    EXPECT_EQ("Ola", f.name);
    EXPECT_EQ((std::vector<float>{1, 2, 3, 4, 5, 6, 7, 8, 10, 11, 12, 14}),
              (std::vector<float>{f.moveSpeed, f.voiceVolume, f.speakSpeed, f.lungCapacity, f.airUsage, f.block,
                                  f.speakBlock, f.position.x, f.position.z, f.speed.x, f.speed.y, f.speed.z}));
}

TEST_F(ScriptCallTest, TheArenaCallsShapeTheFloor) {
    asArenaScript(LOCAL);
    std::string log = run("setArenaSize(10, 20, 300, 400); setArenaNoise(3)\n"
                          "sx, sy, sw, sh = getArenaSize(); noise = getArenaNoise(); n = getArenaCharacterCount()");
    EXPECT_EQ("", log);
    EXPECT_FLOAT_EQ(310.0f, arena.max.x);
    EXPECT_FLOAT_EQ(420.0f, arena.max.y);
    EXPECT_EQ(10, number("sx"));
    EXPECT_EQ(400, number("sh"));
    EXPECT_EQ(3, number("noise"));
    EXPECT_EQ(3, number("n"));

    // The arena is checked before the count, for its two setters.
    asFighterScript(LOCAL, &fighters[0]);
    EXPECT_TRUE(contains(run("setArenaSize()"), "LuaFuncs.setArenaSize: NULL arena"));
}

TEST_F(ScriptCallTest, StartingPositionsComeFromArenaScriptsOnly) {
    asArenaScript(LOCAL);
    run("addArenaStartingPosition({5, 6})");
    ASSERT_EQ(1u, arena.startPositions.size());
    EXPECT_FLOAT_EQ(6.0f, arena.startPositions[0].y);
    EXPECT_TRUE(contains(run("addArenaStartingPosition()"), "(otrzymano 0, oczekiwano 1)"));

    // A state holding both pointers reaches the third check.
    lua.setPtr("char", &fighters[0]);
    EXPECT_TRUE(contains(run("addArenaStartingPosition({1, 1})"),
                         "LuaFuncs.addArenaStartingPosition: Wywolanie tej funkcji spod skryptu postaci jest "
                         "zabronione"));
    EXPECT_EQ(1u, arena.startPositions.size());
}

TEST_F(ScriptCallTest, GetIdFindsTheOwnFighterThroughItsArena) {
    asFighterScript(LOCAL, &fighters[2]);
    run("id = getID()");
    EXPECT_EQ(2, number("id"));

    Character stranger;
    stranger.arena = &arena;
    asFighterScript(LOCAL, &stranger);
    EXPECT_EQ("", run("id = getID()"));
    EXPECT_EQ("nil", global("id"));

    asArenaScript(LOCAL);
    EXPECT_TRUE(contains(run("id = getID()"), "LuaFuncs.getID: NULL character"));
}

TEST_F(ScriptCallTest, AClientScriptCannotChangeTheCourseOfTheGame) {
    asFighterScript(CLIENT, &fighters[0]);
    EXPECT_EQ("", run("setHp(0); say(1); setState(0x200); r = addCombo(function() end, {'say'})"));
    EXPECT_FLOAT_EQ(50.0f, fighters[0].hp);
    EXPECT_EQ(0u, fighters[0].state);
    EXPECT_TRUE(fighters[0].comboManager.combos.empty());
    // Describing itself is allowed, and so is reading.
    run("setName('c'); hp = getHp()");
    EXPECT_EQ("c", fighters[0].name);
    EXPECT_EQ(50, number("hp"));
}

}  // namespace
