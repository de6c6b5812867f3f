#include <gtest/gtest.h>

#include "GraphicsTest.h"
#include "graphics/Sprite.h"
#include "graphics/SpriteListFormat.h"

namespace {

class SpriteListFormatTest : public ::testing::Test {
protected:
    ~SpriteListFormatTest() override { delete sprite; }

    std::string parse(const std::string& text) {
        return logOf([&] { EXPECT_TRUE(SpriteListFormat::parse(*sprite, text, "list.txt")); });
    }

    const Graphics::Dir* defaultDir(int anim) const { return sprite->anim(anim)->dir(Graphics::DIR_DOWN); }

    // x, y, w, h, sx, sy, ax, ay of one frame, as one vector.
    std::vector<int> frame(int anim, int number) const {
        const Graphics::Frame* f = defaultDir(anim)->frame(number);
        if (!f) return {};
        return {f->x, f->y, f->w, f->h, f->sx, f->sy, f->ax, f->ay};
    }

    Graphics::Sprite* sprite = new Graphics::Sprite;
};

TEST_F(SpriteListFormatTest, AnimFrameAndStripLines) {
    parse("anim 12.5 3 walk\r\n"
          "frame 3 10 20 8 8\r\n"
          "frame 1 0 0 8 8 1 2 3\n"      // 9 words: no attachment point
          "\n-- frame 5 0 0 1 1\n"
          "frame 1 1 1 2 2 5 6 7 8 9\n"  // 10 words and more: all of it
          "4 0 0 16 16 0 1\n"
          "anim 2 0 x\nframe 1 0 0 1 1\n");
    ASSERT_EQ(sprite->animCount(), 3);
    EXPECT_EQ(sprite->indexOf("walk"), 0);
    EXPECT_EQ(sprite->anim("x"), nullptr) << "a one-letter name can't be looked up";
    EXPECT_FLOAT_EQ(defaultDir(0)->spd, 12.5f);
    EXPECT_EQ(defaultDir(0)->ret, 3);
    ASSERT_EQ(defaultDir(0)->frameCount(), 5);
    EXPECT_EQ(frame(0, 2), (std::vector<int>{10, 20, 8, 8, 0, 0, 0, 0}));
    EXPECT_EQ(frame(0, 3), (std::vector<int>{0, 0, 8, 8, 1, 2, 0, 0}));
    EXPECT_EQ(frame(0, 4), (std::vector<int>{1, 1, 2, 2, 5, 6, 7, 8}));
    // The strip: frames side by side, an animation of its own without speed.
    ASSERT_EQ(defaultDir(1)->frameCount(), 4);
    EXPECT_EQ(defaultDir(1)->spd, 0.0f);
    EXPECT_EQ(frame(1, 3), (std::vector<int>{48, 0, 16, 16, 0, 1, 0, 0}));
    EXPECT_EQ(sprite->anim(1)->dir(Graphics::DIR_LEFT), defaultDir(1));
}

TEST_F(SpriteListFormatTest, OddLinesAreIgnoredAndAShortAnimLineEndsTheList) {
    const std::string log = parse("frame 2 0 0 4 4\n"  // no animation to go to yet
                                  "+3 0 0 4 4 0 0\n012 0 0 4 4 0 0\n3 0 0 4 4 0\n--x\n"
                                  "anim 1\nframe 2 7\n"  // missing numbers read as 0
                                  "anim\nanim 1 0 second\nframe 1 0 0 4 4\n");
    ASSERT_EQ(sprite->animCount(), 1);
    EXPECT_EQ(frame(0, 1), (std::vector<int>{7, 0, 0, 0, 0, 0, 0, 0}));
    EXPECT_NE(log.find("FAIL: SpriteManager.txtParseAnim: Brak wymaganych informacji (\"anim\")"), std::string::npos);
}

TEST_F(SpriteListFormatTest, HostileCountsAreBoundedAndNeverOverflow) {
    parse("anim 1 0\nframe 2000000000 0 0 1 1\nframe -5 0 0 1 1\n"
          "2147483647 2147483000 0 2147483647 1 0 0\n-4 0 0 1 1 0 0\n");
    ASSERT_EQ(sprite->animCount(), 3);
    EXPECT_EQ(defaultDir(0)->frameCount(), SpriteListFormat::MAX_FRAMES_PER_DIR);
    EXPECT_EQ(defaultDir(1)->frameCount(), SpriteListFormat::MAX_FRAMES_PER_DIR);
    EXPECT_EQ(defaultDir(2)->frameCount(), 0);
}

}  // namespace
