#include "GraphicsTest.h"
#include "graphics/SpriteInstance.h"

namespace {

using Graphics::Frame;

// "idle": 4 frames at 8 a second, its left slot 2 frames at 2 a second;
// "walk": 3 frames at 1 a second in every slot. Frame widths tell them apart.
Graphics::Sprite* makeSprite() {
    Graphics::Anim* idle = animOf({Frame{0, 0, 10}, Frame{0, 0, 11}, Frame{0, 0, 12}, Frame{0, 0, 13}}, 8);
    auto* left = new Graphics::Dir;
    left->spd = 2;
    left->frames = {Frame{0, 0, 20}, Frame{0, 0, 21}};
    idle->setDir(Graphics::DIR_LEFT, left);
    idle->setDir(Graphics::DIR_LEFT, left);  // the same again must not free it
    auto* sprite = new Graphics::Sprite;
    sprite->addAnim(idle, "idle");
    sprite->addAnim(animOf({Frame{0, 0, 30}, Frame{0, 0, 31}, Frame{0, 0, 32}}, 1), "walk");
    return sprite;
}

TEST(SpriteTest, ReplacedAnimationsLoseTheirNamesAndOnlyEightSlotsExist) {
    Graphics::Sprite* sprite = makeSprite();
    Graphics::Anim* run = animOf({});
    sprite->setAnim(0, run, "run");
    EXPECT_EQ(sprite->anim("idle"), nullptr);
    EXPECT_EQ(sprite->indexOf("run"), 0);
    sprite->setAnim(7, animOf({}), "jump");
    EXPECT_EQ(sprite->indexOf("jump"), 2);
    EXPECT_EQ(run->dir(Graphics::DIR_SLOTS), nullptr);
    EXPECT_EQ(run->dir(-1), nullptr);
    delete sprite;
}

TEST(SpriteTest, TimeRunsAtTheSlotsSpeedAndLoopsAtTheFrameCount) {
    Graphics::SpriteInstance instance(makeSprite());
    instance.update(0.625f);  // 5 frames of 4: back to 1
    EXPECT_FLOAT_EQ(instance.time, 1.0f);
    EXPECT_EQ(instance.getW(), 11);
    instance.update(0.375f);  // exactly 4: back to 0
    EXPECT_EQ(instance.time, 0.0f);
    instance.update(100.0f);  // past the frames: none to show, no read out of range
    EXPECT_EQ(instance.currentFrame(), nullptr);
    EXPECT_EQ(instance.getW(), 0);
}

TEST(SpriteTest, ANewAnimationRestartsInTheSameSlotAndTheRunningOneRunsOn) {
    Graphics::SpriteInstance instance(makeSprite());
    instance.update(0.25f);
    instance.setAnim("idle");
    EXPECT_FLOAT_EQ(instance.time, 2.0f);
    instance.setDir(Graphics::DIR_LEFT);
    EXPECT_EQ(instance.time, 0.0f);
    instance.update(0.75f);
    EXPECT_EQ(instance.getW(), 21);
    instance.setAnim("walk");
    EXPECT_EQ(instance.time, 0.0f);
    EXPECT_EQ(instance.getW(), 30) << "walk's one dir serves the left slot";
    instance.setAnim("nothing");
    EXPECT_EQ(instance.getW(), 20) << "an unknown name is the first animation";
    instance.setAnim(7);
    EXPECT_EQ(instance.frameCount(), 0);
}

TEST(SpriteTest, CopiesShareTheSpriteButNotThePlayback) {
    Graphics::Sprite* sprite = makeSprite();
    Graphics::SpriteInstance first(sprite);
    first.setAnim(1);
    Graphics::SpriteInstance second(first);
    EXPECT_EQ(second.getW(), 10);
    second = first;
    first.setSprite(sprite);  // its own sprite again must not free it on the way
    EXPECT_EQ(sprite->refs(), 2);
    EXPECT_EQ(first.getW(), 10);
}

}  // namespace
