#include <gtest/gtest.h>

#include <cmath>

#include "gameplay/Arena.h"
#include "graphics/EffectFade.h"
#include "graphics/EffectParticle.h"
#include "graphics/EffectSlide.h"
#include "graphics/EffectSpeechBubble.h"
#include "graphics/EffectTextParticle.h"

namespace {

// Alpha of a 400 ms bubble after `elapsed` ms, or -1 where it is left alone.
int bubbleAlphaAt(float elapsedMs) {
    uint8_t alpha = 0;
    if (!Effects::bubbleAlpha((400.0f - elapsedMs) / 1000.0f, 0.4f, alpha)) return -1;
    return alpha;
}

TEST(EffectFade, ABubbleFadesInOverItsFirstQuarterAndOutOverItsLast) {
    EXPECT_EQ(0, bubbleAlphaAt(0));
    EXPECT_EQ(127, bubbleAlphaAt(50));
    // The middle half, ends included, leaves the alpha as it was.
    EXPECT_EQ(-1, bubbleAlphaAt(100));
    EXPECT_EQ(-1, bubbleAlphaAt(200));
    EXPECT_EQ(-1, bubbleAlphaAt(300));
    EXPECT_EQ(127, bubbleAlphaAt(350));
    EXPECT_EQ(0, bubbleAlphaAt(400));
}

TEST(EffectFade, AParticleFadesLinearlyOverItsWholeLife) {
    EXPECT_EQ(255, Effects::fadeOutAlpha(2.0f, 2.0f));
    EXPECT_EQ(127, Effects::fadeOutAlpha(1.0f, 2.0f));
    EXPECT_EQ(0, Effects::fadeOutAlpha(0.0f, 2.0f));
}

TEST(EffectFade, AnEasedSlideIsHalfwayAtHalfTimeAndLingersThere) {
    EXPECT_FLOAT_EQ(0.0f, Effects::slideProgress(0.0f, true));
    EXPECT_FLOAT_EQ(0.5f, Effects::slideProgress(0.5f, true));
    EXPECT_FLOAT_EQ(1.0f, Effects::slideProgress(1.0f, true));
    // Slow in the middle, fast at the ends, compared with a linear slide.
    EXPECT_LT(Effects::slideProgress(0.6f, true), 0.6f);
    EXPECT_GT(Effects::slideProgress(0.1f, true), 0.1f);
    EXPECT_FLOAT_EQ(0.3f, Effects::slideProgress(0.3f, false));
}

TEST(EffectLifetime, AnEffectIsDoneExactlyWhenNoTimeIsLeft) {
    Effects::SpeechBubble bubble;
    EXPECT_FLOAT_EQ(0.0f, bubble.lifetime);
    bubble.lifetime = bubble.remaining = 0.25f;
    bubble.update(0.125f);
    EXPECT_FALSE(bubble.isDone());
    bubble.update(0.125f);
    EXPECT_FLOAT_EQ(0.0f, bubble.remaining);
    EXPECT_TRUE(bubble.isDone());
}

TEST(EffectLifetime, AParticleMovesWithTheVelocityOfTheSameStep) {
    Effects::Particle particle;
    particle.lifetime = particle.remaining = 1.0f;
    particle.position = Vector(1.0f, 2.0f, 0.0f, 0.0f);
    particle.acceleration = Vector(0.0f, 0.0f, 10.0f, 0.0f);
    particle.setDirection(static_cast<float>(M_PI / 2), 4.0f);
    EXPECT_NEAR(0.0f, particle.velocity.x, 1e-5);
    EXPECT_NEAR(4.0f, particle.velocity.y, 1e-5);
    particle.update(0.5f);
    EXPECT_NEAR(5.0f, particle.velocity.z, 1e-5);
    EXPECT_NEAR(2.5f, particle.position.z, 1e-5);
    EXPECT_NEAR(4.0f, particle.position.y, 1e-5);
    EXPECT_FLOAT_EQ(0.5f, particle.remaining);
}

TEST(EffectLifetime, ATextParticleCentresItsTextAndKeepsTheOtherFlags) {
    Effects::TextParticle particle;
    particle.text.flags = 0xFFFFFFFFu;
    particle.text.dirty = false;
    particle.init("", 1500);
    EXPECT_EQ(0xFFFFFC00u | 0x312u, particle.text.flags);
    EXPECT_TRUE(particle.text.dirty);
    EXPECT_FLOAT_EQ(1.5f, particle.lifetime);
}

TEST(EffectLifetime, ASlideRunsFromItsStartToItsEnd) {
    Effects::Slide slide;
    slide.from = Vector(-100.0f, 50.0f, 0.0f, 0.0f);
    slide.to = Vector(900.0f, 50.0f, 0.0f, 0.0f);
    EXPECT_FLOAT_EQ(-100.0f, slide.positionAt(0.0f).x);
    EXPECT_FLOAT_EQ(150.0f, slide.positionAt(0.25f).x);
    EXPECT_FLOAT_EQ(900.0f, slide.positionAt(1.0f).x);
    EXPECT_FLOAT_EQ(50.0f, slide.positionAt(0.7f).y);
}

}  // namespace

namespace {

// A bubble that counts its destruction, so the arena's disposal shows.
class CountedBubble : public Effects::SpeechBubble {
public:
    CountedBubble(float seconds, int& destroyed) : destroyed(destroyed) { lifetime = remaining = seconds; }
    ~CountedBubble() override { ++destroyed; }
    int& destroyed;
};

TEST(EffectLifetime, TheArenaDestroysEachEffectWhenItsOwnLifeEnds) {
    int destroyed = 0;
    Arena arena;
    arena.objectType = OBJECT_LOCAL;
    // Two words of one speaker overlap, each with its own life.
    arena.addEffect(new CountedBubble(0.25f, destroyed));
    arena.addEffect(new CountedBubble(0.5f, destroyed));
    arena.update(0.125f);
    EXPECT_EQ(2u, arena.effects.size());
    arena.update(0.125f);
    EXPECT_EQ(1u, arena.effects.size());
    EXPECT_EQ(1, destroyed);
    EXPECT_FLOAT_EQ(0.25f, arena.effects.front()->remaining);
    arena.update(0.25f);
    EXPECT_TRUE(arena.effects.empty());
    EXPECT_EQ(2, destroyed);
}

}  // namespace
