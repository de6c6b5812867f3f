#include <string>

#include "RenderTestSupport.h"
#include "TestSupport.h"
#include "graphics/SpriteManager.h"
#include "graphics/Text.h"

namespace {

using Pixel = std::array<uint8_t, 4>;

bool isWhite(const Pixel& p) { return p[0] == 255 && p[1] == 255 && p[2] == 255; }

// A font whose glyphs are 6 by 8 white blocks and whose space is 4 wide.
class TextDrawTest : public RenderTest {
protected:
    void SetUp() override {
        RenderTest::SetUp();
        // The picture goes with the font's last sprite, so every test makes it anew.
        SDL_Surface* s = SDL_CreateRGBSurface(SDL_SWSURFACE, 16, 8, 32, 0xff, 0xff00, 0xff0000, 0xff000000);
        SDL_Rect solid = {0, 0, 8, 8};
        SDL_FillRect(s, nullptr, SDL_MapRGBA(s->format, 0, 0, 0, 0));
        SDL_FillRect(s, &solid, SDL_MapRGBA(s->format, 255, 255, 255, 255));
        ASSERT_NE(ImageManager::load("text_test_font.png", s), nullptr);
        SDL_FreeSurface(s);
        std::string xml = "<sprite><image>text_test_font.png</image>"
                          "<anim><dir><frame x='8' w='4' h='8'/></dir></anim>";
        for (int code = 33; code < 127; ++code) xml += "<anim><dir><frame w='6' h='8'/></dir></anim>";
        TestSupport::writeFile("font.xml", xml + "</sprite>");
    }

    void TearDown() override { SpriteManager::clear(); }

    TestSupport::ScopedTempDir dir;
};

TEST_F(TextDrawTest, CentredTextLandsInTheMiddleOfItsBox) {
    UI::Text text;
    text.init("font.xml", "AA", 200, 100, -1, -1, -1);
    text.flags = (text.flags & ~0x7Fu) | UI::Text::FLAG_CENTRE | UI::Text::FLAG_MIDDLE;
    text.update();
    text.draw(100, 100, 0, 255);
    // Line 14 wide (each glyph and the pixel behind it), 8 high, in a 200 by 100 box.
    EXPECT_TRUE(isWhite(pixelAt(193, 146)));
    EXPECT_TRUE(isWhite(pixelAt(198, 153)));
    EXPECT_TRUE(isBackground(pixelAt(199, 146)));
    EXPECT_TRUE(isWhite(pixelAt(200, 146)));
    EXPECT_TRUE(isBackground(pixelAt(192, 146)));
    EXPECT_TRUE(isBackground(pixelAt(193, 145)));
    EXPECT_TRUE(isBackground(pixelAt(193, 154)));
}

TEST_F(TextDrawTest, HundredsOfGlyphsAreOneDrawCall) {
    std::string words;
    for (int i = 0; i < 30; ++i) words += std::string(9, static_cast<char>('!' + i)) + " ";
    UI::Text text("font.xml", words, 400, 400, -1, -1, -1);
    text.update();
    Render::flush();
    const uint32_t before = Render::frameStats().drawCalls;
    text.draw(0, 0, 0, 255);
    text.draw(0, 200, 0, 255);
    EXPECT_EQ(Render::frameStats().drawCalls - before, 2u);
    // 270 glyphs; words 67 pixels with their blank, six to a 400-pixel line.
    EXPECT_EQ(text.lines.size(), 5u);
    EXPECT_EQ(text.buffer.count, 270 * 4);
    EXPECT_TRUE(isWhite(pixelAt(0, 32)));
    EXPECT_TRUE(isBackground(pixelAt(0, 40)));
    EXPECT_TRUE(isWhite(pixelAt(396, 0)));
    EXPECT_TRUE(isBackground(pixelAt(397, 0)));
}

TEST_F(TextDrawTest, LaysOutOnlyWhenChangedAndAnEmptyTextVanishes) {
    UI::Text text;
    text.init("font.xml", "AB", 100, 20, -1, -1, -1);
    text.update();
    const size_t built = text.buffer.vertices.size();
    EXPECT_EQ(built, 8u);
    // Nothing changed: the next update leaves the buffer alone.
    text.buffer.vertices.push_back(Render::Vertex());
    text.update();
    EXPECT_EQ(text.buffer.vertices.size(), built + 1);
    text.buffer.vertices.pop_back();
    text.draw(10, 10, 0, 255);
    EXPECT_TRUE(isWhite(pixelAt(10, 10)));

    Render::flip();
    text.setText("");
    text.update();
    text.draw(10, 10, 0, 255);
    EXPECT_TRUE(isBackground(pixelAt(10, 10)));
    EXPECT_TRUE(isBackground(pixelAt(17, 10)));
}

}  // namespace
