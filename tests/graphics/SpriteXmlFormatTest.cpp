#include <gtest/gtest.h>
#include <tinyxml.h>

#include "GraphicsTest.h"
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
        sprite->name = path;
        return SpriteXmlFormat::parseSprite(*sprite, *document.FirstChildElement("sprite"));
    }

    int firstX(int anim, int slot) const { return sprite->anim(anim)->dir(slot)->frame(0)->x; }

    Graphics::Sprite* sprite = new Graphics::Sprite;
};

TEST_F(SpriteXmlFormatTest, AnimationsDirectionsAndFrames) {
    EXPECT_EQ(parse("<sprite><image>pics/body.png</image>"
                    "<anim name='idle'><dir value='up' spd='4.5'><frame x='1' w='3' sy='6' ay='8'/><frame/></dir>"
                    "<dir value='right'><frame x='2'/></dir><dir value='right'><frame x='3'/></dir>"
                    "<dir value='LEFT'><frame x='4'/></dir></anim>"
                    "<anim><dir><frame/></dir></anim></sprite>"),
              "pics/body.png");
    ASSERT_EQ(sprite->animCount(), 2);
    EXPECT_EQ(sprite->indexOf("idle"), 0);
    const Graphics::Dir* up = sprite->anim(0)->dir(Graphics::DIR_UP);
    EXPECT_FLOAT_EQ(up->spd, 4.5f);
    ASSERT_EQ(up->frameCount(), 2);
    const Graphics::Frame* f = up->frame(0);
    EXPECT_EQ(f->x * 1000 + f->w * 100 + f->sy * 10 + f->ay, 1368);
    EXPECT_EQ(up->frame(1)->w, 0);
    // The first dir filled all slots; a second "right" replaced the first;
    // "LEFT" is no value (case matters) and went to slot 2.
    EXPECT_EQ(firstX(0, Graphics::DIR_LEFT), 1);
    EXPECT_EQ(firstX(0, Graphics::DIR_RIGHT), 3);
    EXPECT_EQ(firstX(0, Graphics::DIR_DOWN), 4);
    EXPECT_FLOAT_EQ(sprite->anim(1)->dir(Graphics::DIR_DOWN)->spd, 1.0f) << "default speed";
}

TEST_F(SpriteXmlFormatTest, RelativeImageIsResolvedAgainstTheSpritePath) {
    EXPECT_EQ(parse("<sprite><image relative='no'>body.png</image></sprite>"), "character/x/body.png");
    EXPECT_EQ(parse("<sprite><image relative=''>b.png</image></sprite>", "a\\b\\c.xml"), "a\\b\\b.png");
    EXPECT_EQ(parse("<sprite><image relative='1'>b.png</image></sprite>", "c.xml"), "b.png");
    EXPECT_EQ(parse("<sprite><image relative='1'>b.png</image></sprite>", ""), "b.png");
    EXPECT_EQ(parse("<sprite><image>dir/b.png</image></sprite>"), "dir/b.png");
}

TEST_F(SpriteXmlFormatTest, MissingOrEmptyImageIsReportedAndReadingGoesOn) {
    std::string missing = "-", empty = "-";
    const std::string log = logOf([&] {
        missing = parse("<sprite><anim><dir><frame w='2'/></dir></anim></sprite>");
        empty = parse("<sprite><image></image></sprite>");
    });
    EXPECT_EQ(missing + empty, "");
    EXPECT_EQ(sprite->animCount(), 1);
    const std::string message = "FAIL: SpriteManager.xmlParseSprite: Nie ustawiono obrazka";
    EXPECT_NE(log.find(message), log.rfind(message)) << "one message for each";
}

}  // namespace
