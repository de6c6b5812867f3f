#include <gtest/gtest.h>

#include "BlockFont.h"
#include "TestSupport.h"
#include "graphics/SpriteManager.h"
#include "graphics/Text.h"

namespace {

class TextLayoutTest : public ::testing::Test {
protected:
    TextLayoutTest() {
        // The space is 4 by 10, "W" 9 wide, the rest 5; glyphs stand a pixel apart.
        text.font.setSprite(makeBlockFont(4, 5, 9, 10));
        text.lineHeight = 10;
        text.spaceWidth = 4;
        text.tabWidth = 40;
        text.width = 40;
        text.height = 100;
    }

    // The lines of the laid-out text, as strings.
    std::vector<std::string> layout(const std::string& string) {
        text.setText(string);
        text.cutLines();
        std::vector<std::string> result;
        for (const UI::Text::Line& line : text.lines) result.push_back(string.substr(line.start, line.length));
        return result;
    }

    using Lines = std::vector<std::string>;
    UI::Text text;
};

TEST_F(TextLayoutTest, AdvancesAndWidths) {
    EXPECT_EQ(text.advance('\t', 0), 40);
    EXPECT_EQ(text.advance('\t', 40), 40);
    EXPECT_EQ(text.advance('\t', 45), 35);
    EXPECT_EQ(text.advance('\r', 17), -17);
    EXPECT_EQ(text.advance('\n', 17), 0);
    EXPECT_EQ(text.advance(1, 3), 4);
    EXPECT_EQ(text.advance('W', 3), 10);
    EXPECT_EQ(text.advance(200, 3), 0) << "a byte without a glyph takes no room";

    text.setText("ab W\rabcdefg\nzz");
    // The pen goes back at the carriage return; the widest point counts, a line feed ends it.
    EXPECT_EQ(text.stretchWidth(0, 15), 42);
    EXPECT_EQ(text.wordWidth(0, 15), 12);
}

TEST_F(TextLayoutTest, LineEndsAndTrimming) {
    EXPECT_EQ(layout("ab\r\ncd\nef\rgh"), (Lines{"ab", "cd", "ef\rgh"}));
    EXPECT_EQ(layout("a\n"), (Lines{"a", ""}));
    EXPECT_EQ(text.textHeight, 20);
    EXPECT_EQ(layout(""), (Lines{""}));
    // Left: trailing blanks go, leading ones stay, one blank survives.
    EXPECT_EQ(layout("  ab   \n    "), (Lines{"  ab", " "}));
    text.flags = UI::Text::FLAG_CENTRE | UI::Text::FLAG_MIDDLE | UI::Text::FLAG_NO_CLIP_X | UI::Text::FLAG_NO_CLIP_Y;
    EXPECT_EQ(layout("  ab   "), (Lines{"ab"}));
    text.flags = UI::Text::FLAG_RIGHT | UI::Text::FLAG_TOP | UI::Text::FLAG_NO_CLIP_X | UI::Text::FLAG_NO_CLIP_Y;
    EXPECT_EQ(layout("  ab   "), (Lines{"ab   "}));
}

TEST_F(TextLayoutTest, WrapsAtBlanksAndTheNextLineDoesNotStartWithOne) {
    EXPECT_EQ(layout("aaaa bbbb  cccc\nWW"), (Lines{"aaaa", "bbbb", "cccc", "WW"}));
    EXPECT_EQ(text.lines[1].width, 24);
    EXPECT_EQ(text.textHeight, 40);
    EXPECT_EQ(layout("ab cd"), (Lines{"ab cd"}));
    EXPECT_EQ(layout("ab\tcd"), (Lines{"ab", "cd"}));
    // A word wider than the box stays whole and widens the text.
    EXPECT_EQ(layout("aaaaaaaaaa b"), (Lines{"aaaaaaaaaa", "b"}));
    EXPECT_EQ(text.textWidth, 60);
}

TEST_F(TextLayoutTest, ClippingCutsAtTheRightEdgeAndDropsLinesBelowTheBox) {
    text.flags = UI::Text::FLAG_LEFT | UI::Text::FLAG_TOP;
    text.height = 25;
    EXPECT_EQ(layout("aaaaaaaaa\nbb  \nc\nd"), (Lines{"aaaaaa", "bb"}));
    EXPECT_EQ(text.lines[0].width, 36);
    EXPECT_EQ(text.textHeight, 20);
    EXPECT_EQ(text.textWidth, 40);
}

TEST_F(TextLayoutTest, MetricsOfMinusOneComeFromTheSpaceGlyph) {
    TestSupport::ScopedTempDir dir;
    TestSupport::writeFile("font.xml", "<sprite><image>none.png</image>"
                                       "<anim><dir><frame w='7' h='13'/></dir></anim></sprite>");
    UI::Text fresh;
    fresh.lineHeight = fresh.spaceWidth = fresh.tabWidth = -1;
    fresh.setFont("font.xml");
    EXPECT_EQ(fresh.lineHeight, 13);
    EXPECT_EQ(fresh.spaceWidth, 7);
    EXPECT_EQ(fresh.tabWidth, 28);
    fresh.clear();
    SpriteManager::clear();
}

}  // namespace
