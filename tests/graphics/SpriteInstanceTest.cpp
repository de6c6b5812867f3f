#include <gtest/gtest.h>

#include "graphics/Sprite.h"
#include "graphics/SpriteInstance.h"

namespace {

using Graphics::Anim;
using Graphics::Dir;
using Graphics::Frame;

Dir* dirOf(float spd, int frames, int width) {
    Dir* dir = new Dir;
    dir->spd = spd;
    for (int i = 0; i < frames; ++i) {
        Frame frame;
        frame.w = width + i;
        frame.h = 2 * width;
        frame.sx = 1;
        frame.sy = 2;
        frame.ax = 3;
        frame.ay = 4;
        dir->addFrame(frame);
    }
    return dir;
}

// A sprite unknown to SpriteManager: the last instance deletes it.
Graphics::Sprite* makeSprite() {
    auto* sprite = new Graphics::Sprite;
    Anim* idle = new Anim;
    idle->setDir(Graphics::DIR_DOWN, dirOf(10.0f, 4, 10));
    idle->setDir(Graphics::DIR_LEFT, dirOf(2.0f, 2, 20));
    sprite->addAnim(idle, "idle");
    Anim* walk = new Anim;
    walk->setDir(Graphics::DIR_DOWN, dirOf(1.0f, 3, 30));
    sprite->addAnim(walk, "walk");
    return sprite;
}

TEST(SpriteInstanceTest, TimeAdvancesBySpeedAndLoopsOnce) {
    Graphics::SpriteInstance instance(makeSprite());
    EXPECT_EQ(instance.anim, 0);
    EXPECT_EQ(instance.dir, Graphics::DIR_DOWN);
    EXPECT_EQ(instance.frameCount(), 4);
    instance.update(0.25f);
    EXPECT_FLOAT_EQ(instance.time, 2.5f);
    EXPECT_EQ(instance.getW(), 12);
    instance.time = 0.0f;
    instance.update(0.5f);
    EXPECT_FLOAT_EQ(instance.time, 1.0f);
}

TEST(SpriteInstanceTest, AnimationAndDirectionChanges) {
    Graphics::SpriteInstance instance(makeSprite());
    instance.update(0.15f);
    instance.setAnim(0);
    EXPECT_FLOAT_EQ(instance.time, 1.5f) << "the running animation must not restart";
    instance.setAnim("idle");
    EXPECT_FLOAT_EQ(instance.time, 1.5f);

    instance.setDir(Graphics::DIR_LEFT);
    EXPECT_EQ(instance.time, 0.0f);
    EXPECT_EQ(instance.getW(), 20);
    instance.update(0.75f);
    EXPECT_FLOAT_EQ(instance.time, 1.5f);

    // A new animation keeps the slot (walk falls back to its first dir there).
    instance.setAnim("walk");
    EXPECT_EQ(instance.anim, 1);
    EXPECT_EQ(instance.dir, Graphics::DIR_LEFT);
    EXPECT_EQ(instance.time, 0.0f);
    EXPECT_EQ(instance.getW(), 30);
    int32_t w, h, sx, sy, ax, ay;
    instance.getSize(w, h);
    instance.getS(sx, sy);
    instance.getA(ax, ay);
    EXPECT_EQ(w * 1000 + h, 30060);
    EXPECT_EQ(sx * 1000 + sy * 100 + ax * 10 + ay, 1234);

    // An unknown name falls back to animation 0.
    instance.setAnim("nothing");
    EXPECT_EQ(instance.anim, 0);
    EXPECT_EQ(instance.getW(), 20);
}

TEST(SpriteInstanceTest, NumbersTheSpriteLacksReadNoFrame) {
    Graphics::SpriteInstance instance(makeSprite());
    instance.setAnim(7);
    EXPECT_EQ(instance.frameCount(), 0);
    EXPECT_EQ(instance.getW(), 0);
    instance.update(1.0f);
    instance.setAnim(0);
    instance.setDir(13);
    EXPECT_EQ(instance.currentFrame(), nullptr);
    instance.setDir(Graphics::DIR_DOWN);
    // A time past the frames (a huge dt) or below them shows nothing.
    instance.update(100.0f);
    EXPECT_EQ(instance.currentFrame(), nullptr);
    instance.time = -1.0f;
    EXPECT_EQ(instance.currentFrame(), nullptr);

    Graphics::SpriteInstance empty;
    empty.update(1.0f);
    empty.setAnim("idle");
    EXPECT_EQ(empty.animCount(), 0);
    EXPECT_EQ(empty.getH(), 0);
}

TEST(SpriteInstanceTest, CopiesShareTheSpriteButNotThePlayback) {
    Graphics::Sprite* sprite = makeSprite();
    Graphics::SpriteInstance first(sprite);
    first.setAnim(1);
    first.update(1.5f);
    Graphics::SpriteInstance second(first);
    EXPECT_EQ(sprite->refs(), 2);
    EXPECT_EQ(second.anim, 0);
    EXPECT_EQ(second.time, 0.0f);
    second = first;
    EXPECT_EQ(sprite->refs(), 2);
    // Giving an instance its own sprite again must not free it on the way.
    first.setSprite(sprite);
    EXPECT_EQ(sprite->refs(), 2);
    EXPECT_EQ(first.animCount(), 2);
}

}  // namespace
