#include "RenderTestSupport.h"
#include "gameplay/Character.h"
#include "graphics/EffectSpeechBubble.h"
#include "graphics/Sprite.h"
#include "graphics/SpriteInstance.h"

namespace {

// A sprite of one 8 by 8 frame of a solid image, its attachment point at
// (ax, ay); the last instance that holds it deletes it.
Graphics::Sprite* solidSprite(Graphics::Image* image, int32_t ax, int32_t ay) {
    auto* dir = new Graphics::Dir;
    Graphics::Frame frame;
    frame.w = frame.h = 8;
    frame.ax = ax;
    frame.ay = ay;
    dir->addFrame(frame);
    auto* anim = new Graphics::Anim;
    anim->setDir(Graphics::DIR_DOWN, dir);
    auto* sprite = new Graphics::Sprite;
    sprite->setImage(image);
    sprite->addAnim(anim, "only");
    return sprite;
}

class SpeechBubbleDrawTest : public RenderTest {
protected:
    void SetUp() override {
        RenderTest::SetUp();
        white = solidImage("bubble-white", 8, 8, 255, 255, 255);
        speaker.position = Vector(100.0f, 200.0f, 50.0f, 0.0f);
        // The mouth of the body's current frame sits 20 right and 30 up.
        speaker.sprite.setSprite(solidSprite(white, 20, -30));
    }

    // A bubble of 400 ms with `left` seconds of it remaining.
    void drawBubble(float left) {
        Effects::SpeechBubble bubble;
        bubble.sprite.setSprite(solidSprite(white, 0, 0));
        bubble.character = &speaker;
        bubble.lifetime = 0.4f;
        bubble.remaining = left;
        bubble.draw();
    }

    Graphics::Image* white = nullptr;
    Character speaker;
};

TEST_F(SpeechBubbleDrawTest, SitsAtTheMouthLiftedByTheHeightAndFades) {
    // 50 ms into the word: an eighth of the way, half faded in.
    drawBubble(0.35f);
    // Position (100, 200) + mouth (20, -30), lifted by the height 50.
    auto faded = pixelAt(122, 122);
    EXPECT_NEAR(127, faded[0], 4);
    EXPECT_TRUE(isBackground(pixelAt(118, 122)));
    EXPECT_TRUE(isBackground(pixelAt(122, 152)));
}

TEST_F(SpeechBubbleDrawTest, LeavesTheAlphaWhole) {
    drawBubble(0.399f);
    speaker.position.x = 300.0f;
    // In the middle of its life a bubble doesn't set the alpha itself, so it
    // shows whatever the faded one before it left behind.
    drawBubble(0.2f);
    EXPECT_EQ(255, pixelAt(322, 122)[0]);
    EXPECT_LT(pixelAt(122, 122)[0], 10);
}

}  // namespace
