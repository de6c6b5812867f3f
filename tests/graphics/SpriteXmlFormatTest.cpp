#include <gtest/gtest.h>
#include <tinyxml.h>

#include "LogCapture.h"
#include "graphics/Sprite.h"
#include "graphics/SpriteXmlFormat.h"

namespace {

class SpriteXmlFormatTest : public ::testing::Test {
protected:
    ~SpriteXmlFormatTest() override { delete sprite; }

    // Parses the first <sprite> of the document; returns its image name.
    std::string parse(const std::string& xml, const std::string& path = "character/x/body.xml") {
        TiXmlDocument document;
        document.Parse(xml.c_str());
        const TiXmlElement* element = document.FirstChildElement("sprite");
        EXPECT_NE(element, nullptr);
        if (!element) return "";
        sprite->name = path;
        return SpriteXmlFormat::parseSprite(*sprite, *element);
    }

    Graphics::Sprite* sprite = new Graphics::Sprite;
};

TEST_F(SpriteXmlFormatTest, ReadsAnimationsDirectionsAndFrames) {
    const std::string image = parse(
        "<sprite><image>pics/body.png</image>"
        "<anim name='idle'><dir value='down' spd='4.5'>"
        "<frame x='1' y='2' w='3' h='4' sx='5' sy='6' ax='7' ay='8'/><frame w='9'/></dir>"
        "<dir value='left'><frame x='10'/></dir></anim>"
        "<anim><dir><frame/></dir></anim></sprite>");
    EXPECT_EQ(image, "pics/body.png");
    ASSERT_EQ(sprite->animCount(), 2);
    EXPECT_EQ(sprite->indexOf("idle"), 0);
    const Graphics::Dir* down = sprite->anim(0)->dir(Graphics::DIR_DOWN);
    EXPECT_FLOAT_EQ(down->spd, 4.5f);
    ASSERT_EQ(down->frameCount(), 2);
    const Graphics::Frame* f = down->frame(0);
    EXPECT_EQ(f->x + f->y + f->w + f->h, 1 + 2 + 3 + 4);
    EXPECT_EQ(f->sx * 1000 + f->sy * 100 + f->ax * 10 + f->ay, 5678);
    EXPECT_EQ(down->frame(1)->w, 9);
    EXPECT_EQ(down->frame(1)->x, 0);
    EXPECT_EQ(sprite->anim(0)->dir(Graphics::DIR_LEFT)->frame(0)->x, 10);
    // "up" wasn't given: it falls back to the first dir.
    EXPECT_EQ(sprite->anim(0)->dir(Graphics::DIR_UP), down);
    // A dir without spd plays at one frame a second.
    EXPECT_FLOAT_EQ(sprite->anim(1)->dir(Graphics::DIR_DOWN)->spd, 1.0f);
}

TEST_F(SpriteXmlFormatTest, DirectionValuesAndReplacement) {
    parse("<sprite><image>a.png</image><anim>"
          "<dir value='up'><frame x='1'/></dir>"
          "<dir value='right'><frame x='2'/></dir>"
          "<dir value='right'><frame x='3'/></dir>"
          "<dir value='RIGHT'><frame x='4'/></dir>"
          "</anim></sprite>");
    const Graphics::Anim* anim = sprite->anim(0);
    ASSERT_NE(anim, nullptr);
    EXPECT_EQ(anim->dir(Graphics::DIR_UP)->frame(0)->x, 1);
    EXPECT_EQ(anim->dir(Graphics::DIR_LEFT)->frame(0)->x, 1);
    EXPECT_EQ(anim->dir(Graphics::DIR_RIGHT)->frame(0)->x, 3);
    // Case matters: "RIGHT" is no known value and goes to slot 2.
    EXPECT_EQ(anim->dir(Graphics::DIR_DOWN)->frame(0)->x, 4);
}

TEST_F(SpriteXmlFormatTest, RelativeImageIsResolvedAgainstTheSpritePath) {
    EXPECT_EQ(parse("<sprite><image relative='no'>body.png</image></sprite>"), "character/x/body.png");
    EXPECT_EQ(parse("<sprite><image relative=''>b.png</image></sprite>", "a\\b\\c.xml"), "a\\b\\b.png");
    EXPECT_EQ(parse("<sprite><image relative='1'>b.png</image></sprite>", "c.xml"), "b.png");
    EXPECT_EQ(parse("<sprite><image relative='1'>b.png</image></sprite>", ""), "b.png");
    EXPECT_EQ(parse("<sprite><image>dir/b.png</image></sprite>"), "dir/b.png");
}

TEST_F(SpriteXmlFormatTest, MissingOrEmptyImageIsReportedAndReadingGoesOn) {
    std::string missing, empty;
    const std::string log = logOf([&] {
        missing = parse("<sprite><anim><dir><frame w='2'/></dir></anim></sprite>");
        empty = parse("<sprite><image></image></sprite>");
    });
    EXPECT_EQ(missing, "");
    EXPECT_EQ(empty, "");
    EXPECT_EQ(sprite->animCount(), 1);
    const std::string message = "FAIL: SpriteManager.xmlParseSprite: Nie ustawiono obrazka";
    const size_t first = log.find(message);
    ASSERT_NE(first, std::string::npos);
    EXPECT_NE(log.find(message, first + 1), std::string::npos);
}

TEST_F(SpriteXmlFormatTest, AnimWithoutDirsLeavesItsSlotsEmpty) {
    parse("<sprite><image>a.png</image><anim name='empty'/></sprite>");
    ASSERT_EQ(sprite->animCount(), 1);
    for (int slot = 0; slot < Graphics::DIR_SLOTS; ++slot) EXPECT_EQ(sprite->anim(0)->dir(slot), nullptr);
}

}  // namespace
