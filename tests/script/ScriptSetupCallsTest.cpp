#include <vector>

#include "ScriptCallFixture.h"

namespace {

TEST_F(ScriptCallTest, SetCharacterSkipsAbsentKeysAndStoresTheRest) {
    fighters[0].moveSpeed = 3.0f;
    fighters[0].name = "kept";
    asFighterScript(LOCAL, &fighters[0]);
    EXPECT_EQ("", run("setCharacter({})"));
    EXPECT_FLOAT_EQ(3.0f, fighters[0].moveSpeed);
    EXPECT_EQ("kept", fighters[0].name);

    run("setCharacter({name = 'Zed', moveSpeed = -4, voiceVolume = 5, speakSpeed = 0.5,"
        " lungCapacity = 60, airUsage = 0, hp = 120})");
    const Character& f = fighters[0];
    EXPECT_EQ("Zed", f.name);
    // Stored unrepaired; loading repairs them afterwards.
    EXPECT_FLOAT_EQ(-4.0f, f.moveSpeed);
    EXPECT_FLOAT_EQ(0.0f, f.airUsage);
    EXPECT_FLOAT_EQ(5.0f, f.voiceVolume);
    EXPECT_FLOAT_EQ(0.5f, f.speakSpeed);
    EXPECT_FLOAT_EQ(60.0f, f.lungCapacity);
    EXPECT_FLOAT_EQ(120.0f, f.maxHp);
    EXPECT_FLOAT_EQ(50.0f, f.hp);
}

TEST_F(ScriptCallTest, OnTheServerSetCharacterLoadsNoPictures) {
    asFighterScript(SERVER, &fighters[0]);
    EXPECT_EQ("", run("setCharacter({sprite = 'nowhere.xml', shadow = 'x.xml', speech = 'y.xml', name = 'srv'})"));
    EXPECT_EQ("srv", fighters[0].name);
    EXPECT_EQ(nullptr, fighters[0].sprite.sprite);
    EXPECT_EQ(nullptr, fighters[0].speech.sprite);
}

TEST_F(ScriptCallTest, SetUpCallsWantTheirOwnObjectAndATable) {
    asArenaScript(LOCAL);
    EXPECT_TRUE(contains(run("setCharacter({})"), "LuaFuncs.setCharacter: NULL character"));
    asFighterScript(LOCAL, &fighters[0]);
    EXPECT_TRUE(contains(run("setCharacter()"), "(otrzymano 0, oczekiwano 1)"));
    EXPECT_TRUE(contains(run("setCharacter(5)"), "LuaFuncs.setCharacter"));
    EXPECT_TRUE(contains(run("setArena({})"), "LuaFuncs.setArena: NULL arena"));
}

TEST_F(ScriptCallTest, SetArenaTruncatesTheDimensionAndReadsStartPositions) {
    asArenaScript(SERVER);
    EXPECT_EQ("", run("setArena({dimension = {1.9, 2.9, 3.9, 4.9}, background = 'none.xml',"
                      " back = {{1, 2, 'b.xml'}}, front = {{3, 4, 'f.xml'}},"
                      " start = {{1, 2}, {3, 4, 5}, 'skipped'}})"));
    EXPECT_FLOAT_EQ(1.0f, arena.min.x);
    EXPECT_FLOAT_EQ(2.0f, arena.min.y);
    EXPECT_FLOAT_EQ(4.0f, arena.max.x);
    EXPECT_FLOAT_EQ(6.0f, arena.max.y);
    // The server loads no layers, but it places fighters.
    EXPECT_TRUE(arena.layers.empty());
    EXPECT_EQ(nullptr, arena.background.sprite);
    ASSERT_EQ(2u, arena.startPositions.size());
    EXPECT_FLOAT_EQ(1.0f, arena.startPositions[0].x);
    EXPECT_FLOAT_EQ(2.0f, arena.startPositions[0].y);
    EXPECT_FLOAT_EQ(0.0f, arena.startPositions[0].z);
    EXPECT_FLOAT_EQ(5.0f, arena.startPositions[1].z);
}

TEST_F(ScriptCallTest, AddComboKeepsKnownTokensInOrderAndTheFunction) {
    asFighterScript(LOCAL, &fighters[0]);
    EXPECT_EQ("", run("hits = 0; addCombo(function() hits = hits + 1 end, {'say', 'shout', 'jump', 'Say'})"));
    ASSERT_EQ(1u, fighters[0].comboManager.combos.size());
    const Combo& combo = fighters[0].comboManager.combos[0];
    EXPECT_EQ((std::vector<int32_t>{0x040, 0x400}), combo.sequence);
    EXPECT_TRUE(fighters[0].comboManager.dirty);

    ASSERT_TRUE(lua.callRef(combo.ref));
    lua.update();
    EXPECT_EQ(1, number("hits"));
}

TEST_F(ScriptCallTest, AddComboNamesTheTypeOfAWrongArgument) {
    asFighterScript(LOCAL, &fighters[0]);
    EXPECT_TRUE(contains(run("addCombo(5, {})"),
                         "LuaFuncs.addCombo: Pierwszy argument powinien byc funkcja (otrzymano \"number\")"));
    EXPECT_TRUE(contains(run("addCombo(function() end, 5)"),
                         "LuaFuncs.addCombo: Drugi argument powinien byc tablica (otrzymano \"number\")"));
    EXPECT_TRUE(contains(run("addCombo({})"), "(otrzymano 1, oczekiwano 2)"));
    EXPECT_TRUE(fighters[0].comboManager.combos.empty());
}

TEST_F(ScriptCallTest, EndComboHandsTheFighterBackToItsUpdate) {
    asFighterScript(LOCAL, &fighters[0]);
    fighters[0].state = Character::COMBO | Character::MOVING;
    fighters[0].comboRef = 12;
    run("endCombo()");
    EXPECT_EQ(static_cast<uint32_t>(Character::MOVING), fighters[0].state);
    EXPECT_EQ(0, fighters[0].comboRef);
}

}  // namespace
