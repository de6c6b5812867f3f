#include <gtest/gtest.h>

#include "LogCapture.h"
#include "graphics/Sprite.h"
#include "graphics/SpriteListFormat.h"

namespace {

using Graphics::Frame;

class SpriteListFormatTest : public ::testing::Test {
protected:
    ~SpriteListFormatTest() override { delete sprite; }

    void parse(const std::string& text) { ASSERT_TRUE(SpriteListFormat::parse(*sprite, text, "list.txt")); }

    const Graphics::Dir* defaultDir(int anim) const {
        const Graphics::Anim* found = sprite->anim(anim);
        return found ? found->dir(Graphics::DIR_DOWN) : nullptr;
    }

    Graphics::Sprite* sprite = new Graphics::Sprite;
};

void expectFrame(const Frame* f, int x, int y, int w, int h, int sx, int sy, int ax, int ay) {
    ASSERT_NE(f, nullptr);
    EXPECT_EQ(f->x, x);
    EXPECT_EQ(f->y, y);
    EXPECT_EQ(f->w, w);
    EXPECT_EQ(f->h, h);
    EXPECT_EQ(f->sx, sx);
    EXPECT_EQ(f->sy, sy);
    EXPECT_EQ(f->ax, ax);
    EXPECT_EQ(f->ay, ay);
}

TEST_F(SpriteListFormatTest, StripLineLaysFramesSideBySide) {
    parse("4 0 0 16 16 0 0\n");
    ASSERT_EQ(sprite->animCount(), 1);
    const Graphics::Dir* dir = defaultDir(0);
    ASSERT_NE(dir, nullptr);
    ASSERT_EQ(dir->frameCount(), 4);
    EXPECT_EQ(dir->spd, 0.0f);
    for (int i = 0; i < 4; ++i) expectFrame(dir->frame(i), 16 * i, 0, 16, 16, 0, 0, 0, 0);
    // Only slot 2 exists in this format, and every direction plays it.
    EXPECT_EQ(sprite->anim(0)->dir(Graphics::DIR_LEFT), dir);
}

TEST_F(SpriteListFormatTest, FrameLinesRepeatAndReadOptionalPairsByWordCount) {
    parse("anim 12.5 3 walk\r\n"
          "frame 3 10 20 8 8\r\n"
          "frame 1 0 0 8 8 1 2 3\r\n"  // 9 words: no attachment point
          "frame 1 0 0 8 8 1 2 3 4\n"  // 10 words: the attachment point too
          "\n\n"
          "-- frame 5 0 0 1 1\n"
          "frame 1 1 1 2 2 5 6 7 8 9\n");
    ASSERT_EQ(sprite->animCount(), 1);
    EXPECT_EQ(sprite->indexOf("walk"), 0);
    EXPECT_NE(sprite->anim("walk"), nullptr);
    const Graphics::Dir* dir = defaultDir(0);
    EXPECT_FLOAT_EQ(dir->spd, 12.5f);
    EXPECT_EQ(dir->ret, 3);
    ASSERT_EQ(dir->frameCount(), 6);
    for (int i = 0; i < 3; ++i) expectFrame(dir->frame(i), 10, 20, 8, 8, 0, 0, 0, 0);
    expectFrame(dir->frame(3), 0, 0, 8, 8, 1, 2, 0, 0);
    expectFrame(dir->frame(4), 0, 0, 8, 8, 1, 2, 3, 4);
    expectFrame(dir->frame(5), 1, 1, 2, 2, 5, 6, 7, 8);
}

TEST_F(SpriteListFormatTest, AnimationsAreNumberedInLineOrder) {
    parse("anim 1 0 idle\nframe 1 0 0 4 4\n"
          "3 0 10 4 4 1 1\n"
          "anim 2 0 x\nframe 2 5 5 4 4\n"
          "frame 1 9 9 9 9\n");
    ASSERT_EQ(sprite->animCount(), 3);
    EXPECT_EQ(defaultDir(0)->frameCount(), 1);
    EXPECT_EQ(defaultDir(1)->frameCount(), 3);
    EXPECT_EQ(defaultDir(2)->frameCount(), 3);
    EXPECT_EQ(sprite->indexOf("idle"), 0);
    // "x" is too short to be found by name.
    EXPECT_EQ(sprite->anim("x"), nullptr);
    expectFrame(defaultDir(1)->frame(2), 8, 10, 4, 4, 1, 1, 0, 0);
}

TEST_F(SpriteListFormatTest, LinesThatAreNotCommandsAreIgnored) {
    parse("frame 2 0 0 4 4\n"         // no animation to go to yet
          "+3 0 0 4 4 0 0\n"          // not an integer in plain form
          "012 0 0 4 4 0 0\n"
          "3 0 0 4 4 0\n"             // a strip needs 7 words
          "--comment\n"               // "--" must be a word of its own
          "anim 1 0\n"
          "--x frame\n"
          "frame 1 0 0 4 4\n");
    ASSERT_EQ(sprite->animCount(), 1);
    EXPECT_EQ(defaultDir(0)->frameCount(), 1);
}

TEST_F(SpriteListFormatTest, ShortAnimLineStopsReadingAndKeepsWhatWasRead) {
    const std::string log =
        logOf([&] { parse("anim 1 0 first\nframe 1 0 0 4 4\nanim\nanim 1 0 second\nframe 1 0 0 4 4\n"); });
    EXPECT_EQ(sprite->animCount(), 1);
    EXPECT_NE(log.find("SpriteManager.txtParseAnim: Brak wymaganych informacji (\"anim\")"),
              std::string::npos);
}

TEST_F(SpriteListFormatTest, MissingNumbersReadAsZero) {
    logOf([&] { parse("anim 3\nframe 2 7\n"); });
    ASSERT_EQ(sprite->animCount(), 1);
    EXPECT_EQ(defaultDir(0)->ret, 0);
    ASSERT_EQ(defaultDir(0)->frameCount(), 2);
    expectFrame(defaultDir(0)->frame(1), 7, 0, 0, 0, 0, 0, 0, 0);
}

TEST_F(SpriteListFormatTest, HostileCountsAreBoundedAndNeverOverflow) {
    parse("anim 1 0\n"
          "frame 2000000000 0 0 1 1\n"
          "frame -5 0 0 1 1\n"
          "2147483647 2147483000 0 2147483647 1 0 0\n"
          "-4 0 0 1 1 0 0\n");
    ASSERT_EQ(sprite->animCount(), 3);
    EXPECT_EQ(defaultDir(0)->frameCount(), SpriteListFormat::MAX_FRAMES_PER_DIR);
    EXPECT_EQ(defaultDir(1)->frameCount(), SpriteListFormat::MAX_FRAMES_PER_DIR);
    EXPECT_EQ(defaultDir(2)->frameCount(), 0);
}

}  // namespace
