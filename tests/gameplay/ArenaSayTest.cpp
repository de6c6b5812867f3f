#include <cmath>

#include "WorldFixture.h"

namespace {

// The default floor is 800 wide: a word over the noise reaches 800 pixels.
const float WIDTH = 800.0f;
// Health is compared after a subtraction from 100.
const float TOLERANCE = 1e-4f;

float expectedDamage(float distance, float range, float power) {
    float share = distance / range;
    return (1.0f - share * share) * power * 10.0f;
}

class ArenaSayTest : public WorldTest {};

TEST_F(ArenaSayTest, RangeShrinksWithNoiseAndDamageFallsQuadratically) {
    Character* near = addFighter(100.0f, 450.0f);
    Character* far = addFighter(500.0f, 450.0f);
    Character* outside = addFighter(100.0f + WIDTH * 0.5f + 1.0f, 450.0f);

    // Quiet arena: the whole width.
    arena.say(Vector(0.0f, 450.0f, 0.0f, 0.0f), 2.0f, nullptr);
    EXPECT_NEAR(100.0f - near->hp, expectedDamage(100.0f, WIDTH, 2.0f), TOLERANCE);
    EXPECT_NEAR(100.0f - far->hp, expectedDamage(500.0f, WIDTH, 2.0f), TOLERANCE);

    // Power at half the noise: half the width, the damage still by power.
    for (auto& f : fighters) f->restart();
    arena.setNoise(4.0f);
    arena.say(Vector(0.0f, 450.0f, 0.0f, 0.0f), 2.0f, nullptr);
    EXPECT_NEAR(100.0f - near->hp, expectedDamage(100.0f, WIDTH * 0.5f, 2.0f), TOLERANCE);
    EXPECT_FLOAT_EQ(far->hp, 100.0f);
    EXPECT_FLOAT_EQ(outside->hp, 100.0f);
    EXPECT_EQ(recorded(far, "hits").size(), 1u);  // only the first word reached it

    // Power equal to the noise takes the lower branch, which gives the width.
    for (auto& f : fighters) f->restart();
    arena.say(Vector(0.0f, 450.0f, 0.0f, 0.0f), 4.0f, nullptr);
    EXPECT_NEAR(100.0f - far->hp, expectedDamage(500.0f, WIDTH, 4.0f), TOLERANCE);
}

TEST_F(ArenaSayTest, SilenceAndNonsenseReachNobody) {
    Character* hearer = addFighter(400.0f, 450.0f);
    // 0 over 0 noise: no range, no hit, no callback.
    arena.say(hearer->position, 0.0f, nullptr);
    arena.say(hearer->position, NAN, nullptr);
    arena.say(hearer->position, -5.0f, nullptr);
    EXPECT_FLOAT_EQ(hearer->hp, 100.0f);
    EXPECT_TRUE(recorded(hearer, "hits").empty());

    // A hearer right at the edge of a zero range is reached with nothing.
    arena.setNoise(1.0f);
    arena.say(hearer->position, 0.0f, nullptr);
    EXPECT_FLOAT_EQ(hearer->hp, 100.0f);
    EXPECT_EQ(recorded(hearer, "hits"), std::vector<double>{0.0});
}

TEST_F(ArenaSayTest, HearerExactlyAtTheRangeIsHitWithZero) {
    Character* hearer = addFighter(WIDTH, 300.0f);
    arena.say(Vector(0.0f, 300.0f, 0.0f, 0.0f), 3.0f, nullptr);
    EXPECT_FLOAT_EQ(hearer->hp, 100.0f);
    EXPECT_EQ(recorded(hearer, "hits"), std::vector<double>{0.0});
    EXPECT_EQ(hearer->lastEvent.input, INPUT_HIT);
}

TEST_F(ArenaSayTest, HeightCountsInTheDistance) {
    Character* flying = addFighter(300.0f, 450.0f);
    flying->position.z = 400.0f;
    arena.say(Vector(0.0f, 450.0f, 0.0f, 0.0f), 1.0f, nullptr);
    EXPECT_NEAR(100.0f - flying->hp, expectedDamage(500.0f, WIDTH, 1.0f), TOLERANCE);
}

TEST_F(ArenaSayTest, HearersBehindTheBackTakeAQuarterPastEightPixels) {
    Character* speaker = addFighter(400.0f, 450.0f, 0);  // faces right
    Character* atMargin = addFighter(392.0f, 450.0f);
    Character* behind = addFighter(391.0f, 450.0f);
    Character* onTop = addFighter(400.0f, 460.0f);
    Character* ahead = addFighter(410.0f, 450.0f);

    arena.say(speaker->position, 1.0f, speaker);
    EXPECT_NEAR(100.0f - atMargin->hp, expectedDamage(8.0f, WIDTH, 1.0f), TOLERANCE);
    EXPECT_NEAR(100.0f - behind->hp, 0.25f * expectedDamage(9.0f, WIDTH, 1.0f), TOLERANCE);
    EXPECT_NEAR(100.0f - onTop->hp, expectedDamage(10.0f, WIDTH, 1.0f), TOLERANCE);
    EXPECT_NEAR(100.0f - ahead->hp, expectedDamage(10.0f, WIDTH, 1.0f), TOLERANCE);
    EXPECT_FLOAT_EQ(speaker->hp, 100.0f);

    // Facing left, the sides swap.
    for (auto& f : fighters) f->restart();
    speaker->direction = 4;
    atMargin->position.x = 408.0f;
    behind->position.x = 409.0f;
    ahead->position.x = 390.0f;
    arena.say(speaker->position, 1.0f, speaker);
    EXPECT_NEAR(100.0f - atMargin->hp, expectedDamage(8.0f, WIDTH, 1.0f), TOLERANCE);
    EXPECT_NEAR(100.0f - behind->hp, 0.25f * expectedDamage(9.0f, WIDTH, 1.0f), TOLERANCE);
    EXPECT_NEAR(100.0f - onTop->hp, expectedDamage(10.0f, WIDTH, 1.0f), TOLERANCE);
    EXPECT_NEAR(100.0f - ahead->hp, expectedDamage(10.0f, WIDTH, 1.0f), TOLERANCE);
}

TEST_F(ArenaSayTest, SpeakingHearerStrikesBackAtDoubleTheUnreducedDamage) {
    Character* speaker = addFighter(400.0f, 450.0f, 4);  // faces left, away from the hearer
    Character* hearer = addFighter(600.0f, 450.0f);
    hearer->state |= Character::SPEAKING;

    arena.say(speaker->position, 2.0f, speaker);
    float full = expectedDamage(200.0f, WIDTH, 2.0f);
    EXPECT_NEAR(100.0f - speaker->hp, 2.0f * full, TOLERANCE);
    EXPECT_NEAR(100.0f - hearer->hp, 0.25f * full, TOLERANCE);  // still hit, from behind
    EXPECT_EQ(speaker->lastEvent.input, INPUT_HIT | INPUT_HIT_SELF);
    EXPECT_EQ(recorded(speaker, "hitSelf"), std::vector<double>{0.0});
    EXPECT_EQ(recorded(hearer, "hitSelf"), std::vector<double>{-1.0});
}

TEST_F(ArenaSayTest, WordWithoutSpeakerHitsEveryoneInFullAndNeverStrikesBack) {
    Character* a = addFighter(300.0f, 450.0f, 0);
    Character* b = addFighter(500.0f, 450.0f, 4);
    b->state |= Character::SPEAKING;
    arena.say(Vector(400.0f, 450.0f, 0.0f, 0.0f), 1.0f, nullptr);
    EXPECT_NEAR(100.0f - a->hp, expectedDamage(100.0f, WIDTH, 1.0f), TOLERANCE);
    EXPECT_NEAR(100.0f - b->hp, expectedDamage(100.0f, WIDTH, 1.0f), TOLERANCE);
}

TEST_F(ArenaSayTest, DeadFightersAreHitAgainAndTheWordIsAnnounced) {
    Character* speaker = addFighter(400.0f, 450.0f);
    Character* victim = addFighter(450.0f, 450.0f);
    victim->hp = 1.0f;
    EventListener listener;
    arena.addListener(&listener);

    arena.say(speaker->position, 1.0f, speaker);
    EXPECT_EQ(victim->state, static_cast<uint32_t>(Character::DEAD));
    float afterFirst = victim->hp;
    arena.say(speaker->position, 1.0f, speaker);
    EXPECT_LT(victim->hp, afterFirst);
    EXPECT_EQ(recorded(victim, "hits").size(), 2u);

    ASSERT_FALSE(listener.queue.empty());
    const Event& speech = listener.queue.back();
    EXPECT_EQ(speech.type, EVENT_SPEECH);
    EXPECT_EQ(speech.input, 2);
}

}  // namespace
