#include <gtest/gtest.h>

#include "BlockFont.h"
#include "TestSupport.h"
#include "graphics/Sprite.h"
#include "graphics/SpriteManager.h"
#include "graphics/Text.h"

namespace {

using Line = UI::Text::Line;

class TextLayoutTest : public ::testing::Test {
protected:
    TextLayoutTest() {
        // The space is 4 by 10, "W" 9 wide, the rest 5.
        text.font.setSprite(makeBlockFont(4, 5, 9, 10));
        text.lineHeight = 10;
        text.spaceWidth = 4;
        text.tabWidth = 40;
        text.width = 40;
        text.height = 100;
    }

    const std::vector<Line>& layout(const std::string& string) {
        text.setText(string);
        text.cutLines();
        return text.lines;
    }

    std::string lineText(size_t i) const {
        const Line& line = text.lines.at(i);
        return text.text.substr(static_cast<size_t>(line.start), static_cast<size_t>(line.length));
    }

    UI::Text text;
};

TEST_F(TextLayoutTest, AdvancesOfControlCharactersAndGlyphs) {
    EXPECT_EQ(text.advance('\t', 0), 40);
    EXPECT_EQ(text.advance('\t', 40), 40);
    EXPECT_EQ(text.advance('\t', 45), 35);
    EXPECT_EQ(text.advance('\r', 17), -17);
    EXPECT_EQ(text.advance('\n', 17), 0);
    EXPECT_EQ(text.advance(' ', 3), 4);
    EXPECT_EQ(text.advance(1, 3), 4);
    EXPECT_EQ(text.advance('a', 3), 6);
    EXPECT_EQ(text.advance('W', 3), 10);
    // Bytes the font has no glyph for take no room.
    EXPECT_EQ(text.advance(200, 3), 0);
    text.tabWidth = 0;
    EXPECT_EQ(text.advance('\t', 10), 0);
}

TEST_F(TextLayoutTest, WidthsOfStretchesAndWords) {
    text.setText("ab W\rabcdefg\nzz");
    EXPECT_EQ(text.stretchWidth(0, 4), 6 + 6 + 4 + 10);
    // The pen goes back at the carriage return; the widest point counts, and a line feed ends it.
    EXPECT_EQ(text.stretchWidth(0, 15), 42);
    EXPECT_EQ(text.wordWidth(0, 15), 12);
    EXPECT_EQ(text.wordWidth(3, 1), 10);

    UI::Text fontless;
    fontless.spaceWidth = 4;
    fontless.setText("a b");
    EXPECT_EQ(fontless.stretchWidth(0, 3), 0);
}

TEST_F(TextLayoutTest, LineEndsAreLineFeedsAndCarriageReturnLineFeedPairs) {
    ASSERT_EQ(layout("ab\ncd").size(), 2u);
    EXPECT_EQ(lineText(1), "cd");
    ASSERT_EQ(layout("a\n").size(), 2u);
    EXPECT_EQ(text.lines[1].length, 0);
    EXPECT_EQ(text.textHeight, 20);
    ASSERT_EQ(layout("ab\r\ncd").size(), 2u);
    EXPECT_EQ(lineText(0), "ab");
    ASSERT_EQ(layout("ab\rcd").size(), 1u);
    EXPECT_EQ(text.lines[0].length, 5);
    ASSERT_EQ(layout("").size(), 1u);
    EXPECT_EQ(text.lines[0].length, 0);
}

TEST_F(TextLayoutTest, TrimmingDependsOnAlignment) {
    layout("  ab   ");
    EXPECT_EQ(lineText(0), "  ab");
    layout("    ");
    EXPECT_EQ(text.lines[0].length, 1) << "a line of blanks keeps one character";

    text.flags = UI::Text::FLAG_CENTRE | UI::Text::FLAG_MIDDLE | UI::Text::FLAG_NO_CLIP_X | UI::Text::FLAG_NO_CLIP_Y;
    layout("  ab   ");
    EXPECT_EQ(lineText(0), "ab");
    text.flags = UI::Text::FLAG_RIGHT | UI::Text::FLAG_TOP | UI::Text::FLAG_NO_CLIP_X | UI::Text::FLAG_NO_CLIP_Y;
    layout("  ab   ");
    EXPECT_EQ(lineText(0), "ab   ");
}

TEST_F(TextLayoutTest, WrapsAtBlanksAndTheNextLineDoesNotStartWithOne) {
    layout("aaaa bbbb  cccc\nWW");
    ASSERT_EQ(text.lines.size(), 4u);
    EXPECT_EQ(lineText(0), "aaaa");
    EXPECT_EQ(lineText(1), "bbbb");
    EXPECT_EQ(lineText(2), "cccc");
    EXPECT_EQ(lineText(3), "WW");
    EXPECT_EQ(text.lines[1].width, 24);
    EXPECT_EQ(text.textHeight, 40);

    // A word wider than the box stays whole and widens the text.
    layout("aaaaaaaaaa b");
    ASSERT_EQ(text.lines.size(), 2u);
    EXPECT_EQ(lineText(0), "aaaaaaaaaa");
    EXPECT_EQ(text.lines[0].width, 60);
    EXPECT_EQ(text.textWidth, 60);

    // Two words that fit stay together; a tab is a break point too.
    layout("ab cd");
    EXPECT_EQ(text.lines.size(), 1u);
    layout("ab\tcd");
    ASSERT_EQ(text.lines.size(), 2u);
    EXPECT_EQ(lineText(0), "ab");
    EXPECT_EQ(lineText(1), "cd");
}

TEST_F(TextLayoutTest, ClippingCutsLinesAtTheRightEdgeAndDropsLinesBelowTheBox) {
    text.flags = UI::Text::FLAG_LEFT | UI::Text::FLAG_TOP;
    text.height = 25;
    layout("aaaaaaaaa\nbb  \nc\nd");
    ASSERT_EQ(text.lines.size(), 2u);
    EXPECT_EQ(lineText(0), "aaaaaa");
    EXPECT_EQ(text.lines[0].width, 36);
    EXPECT_EQ(lineText(1), "bb");
    EXPECT_EQ(text.textHeight, 20);
    EXPECT_EQ(text.textWidth, 40);
}

TEST_F(TextLayoutTest, MetricsOfMinusOneComeFromTheSpaceGlyph) {
    TestSupport::ScopedTempDir dir;
    TestSupport::writeFile("font.xml", "<sprite><image>none.png</image>"
                                       "<anim><dir><frame w='7' h='13'/></dir></anim></sprite>");
    UI::Text fresh;
    fresh.lineHeight = -1;
    fresh.spaceWidth = -1;
    fresh.tabWidth = -1;
    fresh.setFont("font.xml");
    EXPECT_EQ(fresh.lineHeight, 13);
    EXPECT_EQ(fresh.spaceWidth, 7);
    EXPECT_EQ(fresh.tabWidth, 28);
    fresh.clear();
    SpriteManager::clear();
}

}  // namespace
