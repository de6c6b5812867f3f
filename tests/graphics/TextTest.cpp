#include "GraphicsTest.h"
#include "graphics/ClassicCounter.h"
#include "graphics/Text.h"

namespace {

using Lines = std::vector<std::string>;

// A box 40 wide; glyphs 5 wide and a pixel apart, "W" 9, the space 4, tab stops 40 apart.
class TextLayoutTest : public ::testing::Test {
protected:
    TextLayoutTest() {
        std::vector<Graphics::Anim*> glyphs;
        for (int code = 32; code < 127; ++code)
            glyphs.push_back(animOf({Graphics::Frame{0, 0, code == ' ' ? 4 : code == 'W' ? 9 : 5, 10}}));
        text.font.setSprite(spriteOf(nullptr, glyphs));
        text.width = text.tabWidth = 40;
        text.lineHeight = 10;
        text.spaceWidth = 4;
    }

    Lines layout(const std::string& string) {
        text.setText(string);
        text.cutLines();
        Lines result;
        for (const UI::Text::Line& line : text.lines) result.push_back(string.substr(line.start, line.length));
        return result;
    }

    UI::Text text;
};

TEST_F(TextLayoutTest, AdvancesAndWidths) {
    const int advances[][3] = {{'\t', 0, 40}, {'\t', 39, 1}, {'\t', 40, 40}, {'\r', 17, -17}, {'\n', 17, 0},
                               {1, 3, 4},     {'W', 3, 10},  {200, 3, 0}};
    for (const auto& a : advances) EXPECT_EQ(text.advance(uint8_t(a[0]), a[1]), a[2]) << a[0] << " at " << a[1];
    text.setText("ab W\rabcdefg\nzz");
    // The pen goes back at the carriage return; the widest point counts, a line feed ends it.
    EXPECT_EQ(text.stretchWidth(0, 15), 42);
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
}

TEST_F(TextLayoutTest, WrapsAtBlanksOnlyWhenTheNextWordWouldPassTheBox) {
    EXPECT_EQ(layout("aaaa bbbb  cccc\nWW"), (Lines{"aaaa", "bbbb", "cccc", "WW"}));
    EXPECT_EQ(text.lines[1].width, 24);
    EXPECT_EQ(layout("aaa bbb"), (Lines{"aaa bbb"})) << "exactly the box";
    EXPECT_EQ(layout("aaa bbbb"), (Lines{"aaa", "bbbb"}));
    EXPECT_EQ(layout("ab\tcd"), (Lines{"ab", "cd"}));
    // A word wider than the box stays whole and widens the text.
    EXPECT_EQ(layout("aaaaaaaaaa b"), (Lines{"aaaaaaaaaa", "b"}));
    EXPECT_EQ(text.textWidth, 60);
}

using TextDrawTest = RenderTest;

TEST_F(TextDrawTest, CentredTextLandsMidBoxIsBuiltOnlyWhenChangedAndVanishesWhenEmptied) {
    TestSupport::ScopedTempDir dir;
    stripImage();
    // Glyphs 6 by 8 cut from the yellow block; the space 4 by 8.
    std::string font = "<sprite><image>strip</image><anim><dir><frame w='4' h='8'/></dir></anim>";
    for (int code = 33; code < 127; ++code) font += "<anim><dir><frame x='24' w='6' h='8'/></dir></anim>";
    TestSupport::writeFile("font.xml", font + "</sprite>");
    UI::Text text;
    text.init("font.xml", "AA", 200, 100, -1, -1, -1);
    EXPECT_EQ((std::vector<int>{text.lineHeight, text.spaceWidth, text.tabWidth}), (std::vector<int>{8, 4, 16}));
    text.flags = (text.flags & ~0x7Fu) | UI::Text::FLAG_CENTRE | UI::Text::FLAG_MIDDLE;
    text.update();
    ASSERT_EQ(text.buffer.vertices.size(), 8u);
    text.buffer.vertices.push_back(Render::Vertex());
    text.update();
    EXPECT_EQ(text.buffer.vertices.size(), 9u) << "unchanged: not built again";
    text.buffer.vertices.pop_back();

    // A line 14 wide (each glyph and the pixel behind it) and 8 high in a 200 by 100 box.
    text.draw(100, 100, 0, 255);
    expectBox(193, 146, 198, 153, YELLOW, YELLOW);
    EXPECT_EQ(rgbAt(205, 153), YELLOW);
    Render::flip();
    text.setText("");
    text.update();
    text.draw(100, 100, 0, 255);
    EXPECT_EQ(rgbAt(193, 146), SKY);
}

// The empty bar is blue and yellow, the full one red and green, each 16 pixels.
TEST_F(TextDrawTest, ClassicCounterShowsTheValueOverTheRangeAndAGhostFallingBehindIt) {
    ClassicCounter counter;
    counter.sprite.setSprite(spriteOf(stripImage(), {animOf({{16, 0, 16, 8}}), animOf({{0, 0, 16, 8}})}));
    counter.set(-100, 100, 0);
    const float values[] = {0, 150, 50, 50, 50};  // 150 is clamped to the maximum
    for (int row = 0; row < 5; ++row) {
        counter.value = values[row];
        counter.update(0.25f);
        counter.draw(50, 50 + 10 * row);
    }
    expectBox(50, 50, 65, 57, BLUE, YELLOW);
    // The full bar's share is value / (max - min): the value isn't reduced by the minimum.
    EXPECT_EQ(rgbAt(57, 60), RED);
    EXPECT_EQ(rgbAt(58, 60), YELLOW);
    EXPECT_FLOAT_EQ(counter.ghost, 50.0f) << "the ghost falls by half the range a second, down to the value";
}

}  // namespace
