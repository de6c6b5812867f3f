#include "WorldFixture.h"

namespace {

// A power of two, so that timers count down to exactly 0.
const float DT = 0.125f;

class CharacterInputTest : public WorldTest {
protected:
    void SetUp() override {
        WorldTest::SetUp();
        speaker = addFighter(200.0f, 450.0f, 0);
        hearer = addFighter(400.0f, 450.0f, 4);
    }
    Character* speaker = nullptr;
    Character* hearer = nullptr;
};

TEST_F(CharacterInputTest, AWordNeedsMoreAirThanItHolds) {
    speaker->air = speaker->airUsage;
    hold(speaker, ACTION_A);
    speaker->update(DT);
    EXPECT_FALSE(speaker->state & Character::CHARGING);
    EXPECT_FLOAT_EQ(speaker->charge, 0.0f);

    speaker->air = speaker->airUsage + 1.0f;
    speaker->update(DT);
    EXPECT_TRUE(speaker->state & Character::CHARGING);
    EXPECT_FLOAT_EQ(speaker->charge, 0.33f * 25.0f);
    EXPECT_EQ(speaker->lastEvent.input, INPUT_CHARGE);
}

TEST_F(CharacterInputTest, ReleasingTheKeySendsTheChargedWord) {
    hold(speaker, ACTION_A);
    speaker->update(DT);  // a third at once
    speaker->update(DT);  // plus twice airUsage a second
    hold(speaker, ACTION_A, false);
    speaker->update(DT);

    float power = 10.0f * (0.33f * 25.0f + 2.0f * 25.0f * DT) / 25.0f;
    ASSERT_EQ(recorded(speaker, "said").size(), 1u);
    EXPECT_NEAR(recorded(speaker, "said")[0], power, 1e-4);
    EXPECT_FLOAT_EQ(speaker->charge, 0.0f);
    EXPECT_TRUE(speaker->state & Character::SPEAKING);
    EXPECT_FALSE(speaker->state & Character::CHARGING);
    EXPECT_FLOAT_EQ(speaker->speakBlock, 0.5f);
    EXPECT_NEAR(100.0f - hearer->hp, (1.0f - 0.25f * 0.25f) * power * 10.0f, 1e-3);
}

TEST_F(CharacterInputTest, HeldKeyGivesFullWordsSpacedBySpeakingTime) {
    speaker->air = 1000.0f;
    speaker->lungCapacity = 1000.0f;
    hold(speaker, ACTION_A);
    int frames = 0;
    while (recorded(speaker, "said").empty() && frames < 100) {
        speaker->update(DT);
        ++frames;
    }
    ASSERT_EQ(recorded(speaker, "said").size(), 1u);
    EXPECT_FLOAT_EQ(recorded(speaker, "said")[0], 10.0f);  // voiceVolume

    // The key stays down: no new charge until the word has been spoken.
    for (int i = 0; i < 3; ++i) {
        speaker->update(DT);
        EXPECT_FALSE(speaker->state & Character::CHARGING) << "frame " << i;
    }
    speaker->update(DT);  // 0.5 s gone: the word ends, the next charge starts
    EXPECT_FALSE(speaker->state & Character::SPEAKING);
    EXPECT_TRUE(speaker->state & Character::CHARGING);
}

TEST_F(CharacterInputTest, WordGoesOutWhenTheLungsCannotGiveAnotherStep) {
    hold(speaker, ACTION_A);
    speaker->update(DT);
    speaker->air = 1.0f;  // a script took the breath away
    speaker->update(DT);
    ASSERT_EQ(recorded(speaker, "said").size(), 1u);
    EXPECT_NEAR(recorded(speaker, "said")[0], 10.0f * 0.33f, 1e-5);
    EXPECT_FLOAT_EQ(speaker->air, 1.0f);
}

TEST_F(CharacterInputTest, DefenceBeatsSpeechAndChargingBlocksDefence) {
    hold(speaker, ACTION_A);
    hold(speaker, ACTION_B);
    speaker->update(DT);
    EXPECT_TRUE(speaker->state & Character::DEFENDING);
    EXPECT_FALSE(speaker->state & Character::CHARGING);
    EXPECT_FALSE(speaker->state & Character::CONTROLLABLE);
    EXPECT_EQ(global(speaker, "defends"), 1.0);
    speaker->update(DT);
    EXPECT_EQ(global(speaker, "defends"), 1.0);  // once per defence, not per frame

    // Releasing defence with the speak key held starts a word next frame.
    hold(speaker, ACTION_B, false);
    speaker->update(DT);
    EXPECT_FALSE(speaker->state & Character::DEFENDING);
    EXPECT_TRUE(speaker->state & Character::CHARGING);
    hold(speaker, ACTION_B);
    speaker->update(DT);
    EXPECT_FALSE(speaker->state & Character::DEFENDING);
    EXPECT_TRUE(speaker->state & Character::CHARGING);
}

TEST_F(CharacterInputTest, DefenceNeedsAirOverTheLineButLastsUntilEmpty) {
    speaker->air = 15.0f;  // exactly 0.15 of 100
    hold(speaker, ACTION_B);
    speaker->update(DT);
    EXPECT_FALSE(speaker->state & Character::DEFENDING);
    EXPECT_EQ(speaker->lastEvent.input, 0);

    speaker->air = 20.0f;
    speaker->update(DT);
    ASSERT_TRUE(speaker->state & Character::DEFENDING);
    EXPECT_FLOAT_EQ(speaker->air, 7.5f);  // a full lung a second
    speaker->update(DT);  // under the line, still up
    EXPECT_TRUE(speaker->state & Character::DEFENDING);
    EXPECT_FLOAT_EQ(speaker->air, 0.0f);
    speaker->update(DT);  // out of air
    EXPECT_FALSE(speaker->state & Character::DEFENDING);
    EXPECT_EQ(speaker->lastEvent.input, 0);
}

TEST_F(CharacterInputTest, ChargingAndSpeakingHalveTheWalk) {
    hold(speaker, ACTION_RIGHT);
    speaker->update(DT);
    EXPECT_FLOAT_EQ(speaker->position.x, 212.5f);
    EXPECT_EQ(speaker->lastEvent.input, INPUT_MOVE | INPUT_RIGHT);

    hold(speaker, ACTION_A);
    speaker->update(DT);
    EXPECT_FLOAT_EQ(speaker->position.x, 218.75f);
    hold(speaker, ACTION_A, false);
    hold(speaker, ACTION_RIGHT, false);
    hold(speaker, ACTION_UP);
    speaker->update(DT);  // the word goes out: speaking
    EXPECT_FLOAT_EQ(speaker->position.y, 443.75f);
    EXPECT_EQ(speaker->lastEvent.input, INPUT_MOVE | INPUT_UP);

    hold(speaker, ACTION_UP, false);
    speaker->update(DT);
    EXPECT_EQ(speaker->lastEvent.input, 0);  // came to rest
}

TEST_F(CharacterInputTest, DefendedHitTakesAQuarterAndTheScriptSeesIt) {
    hold(hearer, ACTION_B);
    hearer->update(DT);
    ASSERT_TRUE(hearer->state & Character::DEFENDING);
    hearer->hit(8.0f, speaker);
    EXPECT_FLOAT_EQ(hearer->hp, 98.0f);
    EXPECT_EQ(recorded(hearer, "hits"), std::vector<double>{2.0});
}

TEST_F(CharacterInputTest, HitsDoNotInterruptChargingOrSpeaking) {
    hold(speaker, ACTION_A);
    speaker->update(DT);
    speaker->hit(5.0f, hearer);
    EXPECT_TRUE(speaker->state & Character::CHARGING);
    speaker->say(1.0f);
    speaker->hit(5.0f, hearer);
    EXPECT_TRUE(speaker->state & Character::SPEAKING);
}

TEST_F(CharacterInputTest, DeathTakesEveryFlagAndAllInputUntilRevived) {
    hold(speaker, ACTION_A);
    speaker->update(DT);
    speaker->hit(150.0f, hearer);
    EXPECT_EQ(speaker->state, static_cast<uint32_t>(Character::DEAD));
    EXPECT_FLOAT_EQ(speaker->hp, -50.0f);

    double updates = global(speaker, "updates");
    hold(speaker, ACTION_RIGHT);
    speaker->update(DT);
    EXPECT_FLOAT_EQ(speaker->position.x, 200.0f);
    EXPECT_EQ(global(speaker, "updates"), updates);

    // Health from outside revives it; that frame still takes no input.
    speaker->hp = 10.0f;
    speaker->update(DT);
    EXPECT_FALSE(speaker->state & Character::DEAD);
    EXPECT_FLOAT_EQ(speaker->position.x, 200.0f);
    speaker->update(DT);
    EXPECT_FLOAT_EQ(speaker->position.x, 212.5f);
}

TEST_F(CharacterInputTest, BlockedOrDisabledFightersTakeNoInput) {
    hold(speaker, ACTION_RIGHT);
    speaker->block = 0.15f;
    speaker->update(DT);
    EXPECT_FLOAT_EQ(speaker->position.x, 200.0f);
    speaker->update(DT);  // block runs out within this frame
    EXPECT_FLOAT_EQ(speaker->position.x, 212.5f);

    speaker->state |= Character::DISABLED;
    hold(speaker, ACTION_A);
    speaker->update(DT);
    EXPECT_FLOAT_EQ(speaker->position.x, 212.5f);
    // Leaving DISABLED with the key held charges in the same frame.
    speaker->state &= ~Character::DISABLED;
    speaker->update(DT);
    EXPECT_TRUE(speaker->state & Character::CHARGING);
}

TEST_F(CharacterInputTest, WordOfNoLengthEndsInTheNextFrame) {
    speaker->speakSpeed = 0.0f;
    speaker->say(1.0f);
    EXPECT_TRUE(speaker->state & Character::SPEAKING);
    speaker->update(DT);
    EXPECT_FALSE(speaker->state & Character::SPEAKING);
}

}  // namespace
