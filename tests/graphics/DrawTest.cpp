#include <cstdlib>
#include <string>

#include "RenderTestSupport.h"
#include "LogCapture.h"
#include "graphics/ClassicCounter.h"
#include "graphics/Sprite.h"
#include "graphics/SpriteInstance.h"
#include "graphics/SpriteManager.h"
#include "graphics/Text.h"
#include "shell/Log.h"

namespace {

using Pixel = std::array<uint8_t, 4>;

bool isColour(const Pixel& p, uint8_t r, uint8_t g, uint8_t b) { return p[0] == r && p[1] == g && p[2] == b; }
bool isYellow(const Pixel& p) { return isColour(p, 255, 255, 0); }

// Four 8 by 8 blocks side by side, red, green, blue, yellow, as a BMP file.
void writeStripPicture(const std::string& path) {
    SDL_Surface* s = SDL_CreateRGBSurface(SDL_SWSURFACE, 32, 8, 32, 0xff0000, 0xff00, 0xff, 0);
    const Uint32 colours[4] = {SDL_MapRGB(s->format, 255, 0, 0), SDL_MapRGB(s->format, 0, 255, 0),
                               SDL_MapRGB(s->format, 0, 0, 255), SDL_MapRGB(s->format, 255, 255, 0)};
    for (int i = 0; i < 4; ++i) {
        SDL_Rect block = {static_cast<Sint16>(i * 8), 0, 8, 8};
        SDL_FillRect(s, &block, colours[i]);
    }
    SDL_SaveBMP(s, path.c_str());
    SDL_FreeSurface(s);
}

// One animation whose four named directions each show their own block.
const char* FOUR_WAY_XML =
    "<sprite><image relative='1'>strip.bmp</image><anim name='spin'>"
    "<dir value='down' spd='2'><frame x='0' w='8' h='8' sx='4' sy='4'/><frame x='24' w='8' h='8' sx='4' sy='4'/></dir>"
    "<dir value='right'><frame x='8' w='8' h='8'/></dir>"
    "<dir value='left'><frame x='16' w='8' h='8'/></dir>"
    "<dir value='up'><frame x='24' w='8' h='8'/></dir>"
    "</anim></sprite>";

class DrawTest : public RenderTest {
protected:
    void SetUp() override {
        RenderTest::SetUp();
        writeStripPicture("strip.bmp");
        TestSupport::writeFile("four.xml", FOUR_WAY_XML);
        // Glyphs 6 by 8 cut from the yellow block, the space 4 wide.
        std::string font = "<sprite><image>strip.bmp</image><anim><dir><frame w='4' h='8'/></dir></anim>";
        for (int code = 33; code < 127; ++code) font += "<anim><dir><frame x='24' w='6' h='8'/></dir></anim>";
        TestSupport::writeFile("font.xml", font + "</sprite>");
    }
    void TearDown() override { SpriteManager::clear(); }

    TestSupport::ScopedTempDir dir;
};

TEST_F(DrawTest, ImageDiesWithItsLastSpriteAndNotBefore) {
    TestSupport::writeFile("plain.xml", "<sprite><image>strip.bmp</image></sprite>");
    Graphics::SpriteInstance first("four.xml"), second("strip.bmp"), third("plain.xml");
    ASSERT_NE(first.sprite, nullptr);
    Graphics::Image* image = first.sprite->image;
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(second.sprite->image, image);
    EXPECT_EQ(image->refs(), 3);
    EXPECT_EQ(second.getW() * 100 + third.getH(), 3208) << "a plain picture is one whole frame";

    const uint32_t flags = Log::getFlags();
    Log::setFlags(flags | Log::LOG_DEBUG);
    const std::string whileHeld = logOf([&] {
        first.setSprite(static_cast<Graphics::Sprite*>(nullptr));
        second.setSprite(static_cast<Graphics::Sprite*>(nullptr));
    });
    Render::drawSprite(&third, 0, 0, 0, 0);
    EXPECT_TRUE(isColour(pixelAt(0, 0), 255, 0, 0));
    const std::string atLast = logOf([&] { third.setSprite(static_cast<Graphics::Sprite*>(nullptr)); });
    Log::setFlags(flags);
    EXPECT_EQ(whileHeld.find("ImageManager.free: Kasowanie"), std::string::npos);
    EXPECT_NE(atLast.find("ImageManager.free: Kasowanie \"strip.bmp\""), std::string::npos);
}

TEST_F(DrawTest, ClassicCounterDrawsTheEmptyBarAndTheFilledPart) {
    // Empty bar: the blue block; full bar: the 16 pixels of red and green.
    TestSupport::writeFile("bar.xml", "<sprite><image>strip.bmp</image>"
                                      "<anim><dir value='right'><frame x='16' w='8' h='8'/></dir></anim>"
                                      "<anim><dir><frame x='0' w='16' h='8'/></dir></anim></sprite>");
    ClassicCounter counter;
    counter.setSprite("bar.xml");
    counter.set(0, 100, 0);
    counter.update(0.1f);
    counter.draw(50, 50);
    EXPECT_TRUE(isColour(pixelAt(50, 50), 0, 0, 255));
    EXPECT_TRUE(isBackground(pixelAt(58, 50)));

    counter.value = 50;
    counter.update(0.1f);
    counter.draw(50, 80);
    EXPECT_TRUE(isColour(pixelAt(50, 80), 255, 0, 0));
    EXPECT_TRUE(isColour(pixelAt(57, 80), 255, 0, 0));
    EXPECT_TRUE(isBackground(pixelAt(58, 80)));

    // A drop leaves a ghost that falls by half the scale a second.
    counter.value = 25;
    counter.update(0.1f);
    EXPECT_FLOAT_EQ(counter.ghost, 45.0f);
    counter.clear();
}

TEST_F(DrawTest, CentredTextLandsMidBoxIsBuiltOnlyWhenChangedAndVanishesWhenEmptied) {
    UI::Text text;
    text.init("font.xml", "AA", 200, 100, -1, -1, -1);
    text.flags = (text.flags & ~0x7Fu) | UI::Text::FLAG_CENTRE | UI::Text::FLAG_MIDDLE;
    text.update();
    ASSERT_EQ(text.buffer.vertices.size(), 8u);
    // Unchanged, the next update leaves the buffer alone.
    text.buffer.vertices.push_back(Render::Vertex());
    text.update();
    EXPECT_EQ(text.buffer.vertices.size(), 9u);
    text.buffer.vertices.pop_back();

    text.draw(100, 100, 0, 255);
    // Line 14 wide (each glyph and the pixel behind it), 8 high, in a 200 by 100 box.
    EXPECT_TRUE(isYellow(pixelAt(193, 146)));
    EXPECT_TRUE(isYellow(pixelAt(198, 153)));
    EXPECT_TRUE(isBackground(pixelAt(199, 146)));
    EXPECT_TRUE(isYellow(pixelAt(200, 146)));
    EXPECT_TRUE(isBackground(pixelAt(192, 146)));
    EXPECT_TRUE(isBackground(pixelAt(193, 145)));
    EXPECT_TRUE(isBackground(pixelAt(193, 154)));

    Render::flip();
    text.setText("");
    text.update();
    text.draw(100, 100, 0, 255);
    EXPECT_TRUE(isBackground(pixelAt(193, 146)));
    EXPECT_TRUE(isBackground(pixelAt(200, 146)));
}

TEST_F(DrawTest, HundredsOfGlyphsAreOneDrawCall) {
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
    EXPECT_TRUE(isYellow(pixelAt(0, 32)));
    EXPECT_TRUE(isBackground(pixelAt(0, 40)));
    EXPECT_TRUE(isYellow(pixelAt(396, 0)));
    EXPECT_TRUE(isBackground(pixelAt(397, 0)));
}

// Mostly a picture to look at: the game's own fighter and font, the fighter
// walking in every direction slot beside the test sprite, and a wrapped,
// centred text. Held on screen for a number of frames when asked to.
TEST_F(DrawTest, Scene) {
    const std::string data = std::string(KORVANE_SOURCE_DIR) + "/data/";
    UI::Text text;
    text.init(data + "font/font_02.xml", "", 360, 140, -1, -1, -1);
    text.flags = (text.flags & ~0x3Fu) | UI::Text::FLAG_CENTRE | UI::Text::FLAG_MIDDLE;
    text.setText("The quick brown fox jumps over the lazy dog, then turns round and runs all the way back "
                 "to where it started, because the dog never woke up.");
    text.update();
    EXPECT_GT(text.lines.size(), 2u);

    const int slots[4] = {Graphics::DIR_RIGHT, Graphics::DIR_DOWN, Graphics::DIR_LEFT, Graphics::DIR_UP};
    Graphics::SpriteInstance fighters[4];
    Graphics::SpriteInstance blocks[4];
    for (int i = 0; i < 4; ++i) {
        fighters[i].setSprite(data + "character/default/character.xml");
        fighters[i].setAnim("moving");
        fighters[i].setDir(slots[i]);
        blocks[i].setSprite("four.xml");
        blocks[i].setDir(slots[i]);
    }
    ASSERT_NE(fighters[0].sprite, nullptr);
    const char* hold = getenv("KORVANE_SCENE_HOLD_FRAMES");
    const int frames = hold ? atoi(hold) : 1;
    for (int frame = 0; frame < frames; ++frame) {
        Render::setMode(Render::MODE_SCREEN_SHAPES);
        Render::setColor(40, 40, 40, 255);
        Render::drawRect(220, 380, 360, 140);
        Render::setMode(Render::MODE_WORLD_IMAGES);
        for (int i = 0; i < 4; ++i) {
            // Only the fighters walk: the blocks stay on their first frame for the checks below.
            fighters[i].update(1.0f / 60.0f);
            Render::drawSprite(&fighters[i], 160.0f + 160 * i, 300, 0, 0);
            Render::drawSprite(&blocks[i], 160.0f + 160 * i, 340, 0, 0);
        }
        text.draw(220, 380, 0, 255);
        if (frame + 1 < frames) {
            Render::flip();
            SDL_Delay(16);
        }
    }
    // Every slot shows its own block; "down" stands on its centre.
    EXPECT_TRUE(isColour(pixelAt(160, 340), 0, 255, 0));
    EXPECT_TRUE(isColour(pixelAt(316, 336), 255, 0, 0));
    EXPECT_TRUE(isColour(pixelAt(480, 340), 0, 0, 255));
    EXPECT_TRUE(isColour(pixelAt(640, 340), 255, 255, 0));
    // Half a second at 2 frames a second: the second frame of "down".
    blocks[1].time = 0.0f;
    blocks[1].update(0.5f);
    Render::drawSprite(&blocks[1], 100, 100, 0, 0);
    EXPECT_TRUE(isColour(pixelAt(96, 96), 255, 255, 0));
}

}  // namespace
