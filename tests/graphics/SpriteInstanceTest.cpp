#include <gtest/gtest.h>

#include "graphics/Sprite.h"
#include "graphics/SpriteInstance.h"

namespace {

Graphics::Dir* dirOf(float spd, int frames, int width) {
    auto* dir = new Graphics::Dir;
    dir->spd = spd;
    for (int i = 0; i < frames; ++i) {
        Graphics::Frame frame;
        frame.w = width + i;
        dir->addFrame(frame);
    }
    return dir;
}

// "idle": down 4 frames at 10/s, left 2 at 2/s; "walk": down only. The
// sprite isn't SpriteManager's: its last instance deletes it.
Graphics::Sprite* makeSprite() {
    auto* sprite = new Graphics::Sprite;
    auto* idle = new Graphics::Anim;
    idle->setDir(Graphics::DIR_DOWN, dirOf(10.0f, 4, 10));
    idle->setDir(Graphics::DIR_LEFT, dirOf(2.0f, 2, 20));
    sprite->addAnim(idle, "idle");
    auto* walk = new Graphics::Anim;
    walk->setDir(Graphics::DIR_DOWN, dirOf(1.0f, 3, 30));
    sprite->addAnim(walk, "walk");
    return sprite;
}

TEST(SpriteInstanceTest, TimeRunsAtTheDirectionsSpeedAndLoops) {
    Graphics::SpriteInstance instance(makeSprite());
    instance.update(0.25f);
    EXPECT_FLOAT_EQ(instance.time, 2.5f);
    EXPECT_EQ(instance.getW(), 12);
    instance.time = 0.0f;
    instance.update(0.5f);
    EXPECT_FLOAT_EQ(instance.time, 1.0f);
    // A huge step leaves time past the frames: no frame, no out-of-range read.
    instance.update(100.0f);
    EXPECT_EQ(instance.currentFrame(), nullptr);
}

TEST(SpriteInstanceTest, AnimationChangesKeepTheSlotAndRestartOnlyWhenNew) {
    Graphics::SpriteInstance instance(makeSprite());
    instance.update(0.15f);
    instance.setAnim("idle");
    EXPECT_FLOAT_EQ(instance.time, 1.5f) << "the running animation must not restart";

    instance.setDir(Graphics::DIR_LEFT);
    EXPECT_EQ(instance.getW(), 20);
    instance.update(0.75f);
    instance.setAnim("walk");
    EXPECT_EQ(instance.dir, Graphics::DIR_LEFT);
    EXPECT_EQ(instance.time, 0.0f);
    EXPECT_EQ(instance.getW(), 30);  // walk's first dir serves the left slot

    instance.setAnim("nothing");
    EXPECT_EQ(instance.anim, 0);
    instance.setAnim(7);
    EXPECT_EQ(instance.frameCount(), 0);
    EXPECT_EQ(instance.getW(), 0);
}

TEST(SpriteInstanceTest, CopiesShareTheSpriteButNotThePlayback) {
    Graphics::Sprite* sprite = makeSprite();
    Graphics::SpriteInstance first(sprite);
    first.setAnim(1);
    Graphics::SpriteInstance second(first);
    EXPECT_EQ(sprite->refs(), 2);
    EXPECT_EQ(second.anim, 0);
    second = first;
    first.setSprite(sprite);  // its own sprite again must not free it on the way
    EXPECT_EQ(sprite->refs(), 2);
    EXPECT_EQ(first.animCount(), 2);
}

}  // namespace
