#include <gtest/gtest.h>

#include "graphics/Sprite.h"
#include "graphics/SpriteAnim.h"

namespace {

using Graphics::Anim;
using Graphics::Dir;

Dir* dirOf(int frames) {
    Dir* dir = new Dir;
    for (int i = 0; i < frames; ++i) dir->addFrame(Graphics::Frame());
    return dir;
}

TEST(SpriteAnimTest, FirstDirServesEverySlotUntilOthersAreGiven) {
    Anim anim;
    Dir* up = dirOf(1);
    anim.setDir(Graphics::DIR_UP, up);
    for (int slot = 0; slot < Graphics::DIR_SLOTS; ++slot) EXPECT_EQ(anim.dir(slot), up) << slot;

    Dir* left = dirOf(2);
    anim.setDir(Graphics::DIR_LEFT, left);
    EXPECT_EQ(anim.dir(Graphics::DIR_LEFT), left);
    EXPECT_EQ(anim.dir(Graphics::DIR_DOWN), up);
    EXPECT_EQ(anim.dir(Graphics::DIR_UP), up);
}

TEST(SpriteAnimTest, SecondDirForASlotReplacesTheFirst) {
    Anim anim;
    Dir* down = dirOf(1);
    anim.setDir(Graphics::DIR_DOWN, down);
    anim.setDir(Graphics::DIR_RIGHT, dirOf(1));
    Dir* right = dirOf(3);
    anim.setDir(Graphics::DIR_RIGHT, right);
    EXPECT_EQ(anim.dir(Graphics::DIR_RIGHT), right);
    EXPECT_EQ(anim.dir(Graphics::DIR_LEFT), down);

    // A new default slot leaves the slots given their own dir alone.
    Dir* newDown = dirOf(1);
    anim.setDir(Graphics::DIR_DOWN, newDown);
    EXPECT_EQ(anim.dir(Graphics::DIR_DOWN), newDown);
    EXPECT_EQ(anim.dir(Graphics::DIR_RIGHT), right);
    EXPECT_EQ(anim.dir(1), down);
    // Giving the same dir again must not delete it (ASan would see the use).
    anim.setDir(Graphics::DIR_RIGHT, right);
    EXPECT_EQ(anim.dir(Graphics::DIR_RIGHT)->frameCount(), 3);
}

TEST(SpriteAnimTest, OutOfRangeNumbersReadNothing) {
    Anim anim;
    EXPECT_EQ(anim.dir(Graphics::DIR_DOWN), nullptr);
    EXPECT_EQ(anim.dir(-1), nullptr);
    EXPECT_EQ(anim.dir(8), nullptr);
    anim.setDir(9, dirOf(1));
    EXPECT_EQ(anim.dir(Graphics::DIR_DOWN), nullptr);

    Dir* dir = dirOf(2);
    anim.setDir(Graphics::DIR_DOWN, dir);
    EXPECT_NE(dir->frame(1), nullptr);
    EXPECT_EQ(dir->frame(2), nullptr);
    EXPECT_EQ(dir->frame(-1), nullptr);
}

TEST(SpriteTest, AnimationsByNumberAndByName) {
    Graphics::Sprite* sprite = new Graphics::Sprite;
    Anim* idle = new Anim;
    Anim* shortName = new Anim;
    EXPECT_EQ(sprite->addAnim(idle, "idle"), 0);
    EXPECT_EQ(sprite->addAnim(shortName, "w"), 1);
    EXPECT_EQ(sprite->anim("idle"), idle);
    // One letter is no name to look up; the number still works.
    EXPECT_EQ(sprite->anim("w"), nullptr);
    EXPECT_EQ(sprite->anim(1), shortName);
    EXPECT_EQ(sprite->indexOf("w"), 0);
    EXPECT_EQ(sprite->anim(2), nullptr);
    EXPECT_EQ(sprite->anim(-1), nullptr);

    // Replacing an animation drops the name that pointed at the old one.
    Anim* walk = new Anim;
    sprite->setAnim(0, walk, "walk");
    EXPECT_EQ(sprite->anim("idle"), nullptr);
    EXPECT_EQ(sprite->indexOf("walk"), 0);
    sprite->setAnim(7, new Anim, "jump");
    EXPECT_EQ(sprite->animCount(), 3);
    EXPECT_EQ(sprite->indexOf("jump"), 2);
    delete sprite;
}

}  // namespace
