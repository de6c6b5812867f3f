#include <utility>

#include "GraphicsTest.h"
#include "gameplay/Arena.h"
#include "gameplay/Character.h"
#include "graphics/EffectFade.h"
#include "graphics/EffectSpeechBubble.h"

namespace {

TEST(EffectTest, BubblesFadeAtBothEndsAndEasedSlidesLingerMidway) {
    // A bubble of 400 ms so many ms in; -1 where it leaves the alpha alone.
    const std::pair<float, int> bubble[] = {{0, 0}, {50, 127}, {100, -1}, {200, -1}, {300, -1}, {350, 127}, {400, 0}};
    for (const auto& [elapsed, expected] : bubble) {
        uint8_t alpha = 0;
        const bool sets = Effects::bubbleAlpha((400 - elapsed) / 1000, 0.4f, alpha);
        EXPECT_EQ(sets ? alpha : -1, expected) << elapsed;
    }
    const std::pair<float, float> eased[] = {{0, 0}, {0.1f, 0.244f}, {0.5f, 0.5f}, {0.6f, 0.504f}, {1, 1}};
    for (const auto& [t, progress] : eased) EXPECT_NEAR(Effects::slideProgress(t, true), progress, 1e-5) << t;
}

TEST(EffectTest, TheArenaDropsEachEffectWhenNoTimeIsLeft) {
    Arena arena;
    arena.objectType = OBJECT_LOCAL;
    // Two words of one speaker overlap, each with its own life.
    for (float seconds : {0.25f, 0.5f}) {
        auto* bubble = new Effects::SpeechBubble;
        bubble->lifetime = bubble->remaining = seconds;
        arena.addEffect(bubble);
    }
    arena.update(0.125f);
    arena.update(0.125f);
    ASSERT_EQ(arena.effects.size(), 1u) << "done with exactly 0 left";
    EXPECT_EQ(arena.effects.front()->remaining, 0.25f);
    arena.update(0.25f);
    EXPECT_TRUE(arena.effects.empty());
}

using EffectDrawTest = RenderTest;

TEST_F(EffectDrawTest, ABubbleSitsAtTheMouthLiftedByTheHeightAndFadesOnlyAtItsEnds) {
    Graphics::Image* white = blockImage("white", {WHITE});
    Character speaker;
    // The mouth of the body's current frame sits 20 right and 30 up.
    speaker.sprite.setSprite(spriteOf(white, {animOf({{0, 0, 8, 8, 0, 0, 20, -30}})}));
    auto drawBubble = [&](float x, float left) {
        speaker.position = Vector(x, 200, 50, 0);
        Effects::SpeechBubble bubble;
        bubble.sprite.setSprite(spriteOf(white, {animOf({{0, 0, 8, 8}})}));
        bubble.character = &speaker;
        bubble.lifetime = 0.4f;
        bubble.remaining = left;
        bubble.draw();
    };
    drawBubble(100, 0.35f);  // 50 ms in: half faded in
    drawBubble(300, 0.2f);   // midway: the alpha the bubble before left, whole again
    EXPECT_NEAR(rgbAt(120, 120) >> 16, 127, 4);
    EXPECT_EQ(rgbAt(119, 120), SKY);
    EXPECT_EQ(rgbAt(127, 128), SKY);
    expectBox(320, 120, 327, 127, WHITE, WHITE);
}

}  // namespace
