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

class SpriteDrawTest : public RenderTest {
protected:
    void SetUp() override {
        RenderTest::SetUp();
        writeStripPicture("strip.bmp");
        TestSupport::writeFile("four.xml", FOUR_WAY_XML);
    }
    void TearDown() override { SpriteManager::clear(); }

    TestSupport::ScopedTempDir dir;
};

TEST_F(SpriteDrawTest, EachDirectionSlotShowsItsOwnFrames) {
    Graphics::SpriteInstance instance("four.xml");
    ASSERT_NE(instance.sprite, nullptr);
    ASSERT_NE(instance.sprite->image, nullptr);
    const int slots[4] = {Graphics::DIR_DOWN, Graphics::DIR_RIGHT, Graphics::DIR_LEFT, Graphics::DIR_UP};
    const uint8_t expected[4][3] = {{255, 0, 0}, {0, 255, 0}, {0, 0, 255}, {255, 255, 0}};
    for (int i = 0; i < 4; ++i) {
        instance.setDir(slots[i]);
        Render::drawSprite(&instance, 20.0f + 20 * i, 20, 0, 0);
    }
    // The down frames stand on their centre: drawn 4 up and left.
    EXPECT_TRUE(isColour(pixelAt(16, 16), 255, 0, 0));
    EXPECT_TRUE(isBackground(pixelAt(24, 24)));
    for (int i = 1; i < 4; ++i)
        EXPECT_TRUE(isColour(pixelAt(20 + 20 * i, 20), expected[i][0], expected[i][1], expected[i][2])) << i;

    // Half a second at 2 frames a second: the second frame of down.
    instance.setDir(Graphics::DIR_DOWN);
    instance.update(0.5f);
    Render::drawSprite(&instance, 100, 100, 0, 0);
    EXPECT_TRUE(isColour(pixelAt(96, 96), 255, 255, 0));
}

TEST_F(SpriteDrawTest, ImageDiesWithItsLastSpriteAndNotBefore) {
    TestSupport::writeFile("plain.xml", "<sprite><image>strip.bmp</image></sprite>");
    Graphics::SpriteInstance first("four.xml");
    Graphics::SpriteInstance second("strip.bmp");
    Graphics::SpriteInstance third("plain.xml");
    ASSERT_NE(first.sprite, nullptr);
    Graphics::Image* image = first.sprite->image;
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(second.sprite->image, image);
    EXPECT_EQ(third.sprite->image, image);
    EXPECT_EQ(image->refs(), 3);
    // The whole picture is the plain sprite's one frame.
    EXPECT_EQ(second.getW(), 32);
    EXPECT_EQ(third.getH(), 8);

    const uint32_t flags = Log::getFlags();
    Log::setFlags(flags | Log::LOG_DEBUG);
    const std::string whileHeld = logOf([&] {
        first.setSprite(static_cast<Graphics::Sprite*>(nullptr));
        second.setSprite(static_cast<Graphics::Sprite*>(nullptr));
    });
    EXPECT_EQ(image->refs(), 1);
    EXPECT_EQ(whileHeld.find("ImageManager.free: Kasowanie"), std::string::npos);
    Render::drawSprite(&third, 0, 0, 0, 0);
    EXPECT_TRUE(isColour(pixelAt(0, 0), 255, 0, 0));
    const std::string atLast = logOf([&] { third.setSprite(static_cast<Graphics::Sprite*>(nullptr)); });
    Log::setFlags(flags);
    EXPECT_NE(atLast.find("ImageManager.free: Kasowanie \"strip.bmp\""), std::string::npos);
}

TEST_F(SpriteDrawTest, ClassicCounterDrawsTheEmptyBarAndTheFilledPart) {
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

// Mostly a picture to look at: the game's own fighter and font, the fighter
// walking in every direction slot beside the test sprite, and a wrapped,
// centred text. Held on screen for a number of frames when asked to.
TEST_F(SpriteDrawTest, Scene) {
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
            fighters[i].update(1.0f / 60.0f);
            blocks[i].update(1.0f / 60.0f);
            Render::drawSprite(&fighters[i], 160.0f + 160 * i, 300, 0, 0);
            Render::drawSprite(&blocks[i], 160.0f + 160 * i, 340, 0, 0);
        }
        text.draw(220, 380, 0, 255);
        if (frame + 1 < frames) Render::flip();
    }
    EXPECT_TRUE(isColour(pixelAt(320, 340), 255, 0, 0));
    EXPECT_TRUE(isColour(pixelAt(480, 340), 0, 0, 255));
}

}  // namespace
