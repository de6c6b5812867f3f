#include <gtest/gtest.h>

#include "graphics/Sprite.h"

namespace {

using Graphics::Anim;
using Graphics::Dir;

TEST(SpriteAnimTest, FirstDirFillsEverySlotAndLaterOnesReplaceTheirOwn) {
    Anim anim;
    Dir* up = new Dir;
    anim.setDir(Graphics::DIR_UP, up);
    for (int slot = 0; slot < Graphics::DIR_SLOTS; ++slot) EXPECT_EQ(anim.dir(slot), up) << slot;

    Dir* right = new Dir;
    anim.setDir(Graphics::DIR_RIGHT, new Dir);
    anim.setDir(Graphics::DIR_RIGHT, right);
    anim.setDir(Graphics::DIR_RIGHT, right);  // the same again must not free it
    Dir* down = new Dir;
    anim.setDir(Graphics::DIR_DOWN, down);
    EXPECT_EQ(anim.dir(Graphics::DIR_RIGHT), right);
    EXPECT_EQ(anim.dir(Graphics::DIR_DOWN), down);
    EXPECT_EQ(anim.dir(Graphics::DIR_LEFT), up);
    EXPECT_EQ(anim.dir(8), nullptr);
    EXPECT_EQ(anim.dir(-1), nullptr);
}

TEST(SpriteAnimTest, ReplacedAnimationLosesItsName) {
    Graphics::Sprite* sprite = new Graphics::Sprite;
    EXPECT_EQ(sprite->addAnim(new Anim, "idle"), 0);
    EXPECT_EQ(sprite->addAnim(new Anim, "w"), 1);
    // One letter is no name to look up; the number still works.
    EXPECT_EQ(sprite->anim("w"), nullptr);
    EXPECT_NE(sprite->anim(1), nullptr);

    Anim* walk = new Anim;
    sprite->setAnim(0, walk, "walk");
    EXPECT_EQ(sprite->anim("idle"), nullptr);
    EXPECT_EQ(sprite->anim("walk"), walk);
    sprite->setAnim(7, new Anim, "jump");
    EXPECT_EQ(sprite->indexOf("jump"), 2);
    delete sprite;
}

}  // namespace
