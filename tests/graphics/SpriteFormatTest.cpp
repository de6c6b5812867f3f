#include <tinyxml.h>

#include "GraphicsTest.h"
#include "graphics/SpriteListFormat.h"
#include "graphics/SpriteXmlFormat.h"

namespace {

using Frame = std::vector<int>;

class SpriteFormatTest : public ::testing::Test {
protected:
    std::string parseList(const std::string& text) {
        return logOf([&] { EXPECT_TRUE(SpriteListFormat::parse(sprite, text, "list.txt")); });
    }
    // Reads the document's first <sprite>; returns its image name.
    std::string parseXml(const std::string& xml, const std::string& path = "character/x/body.xml") {
        TiXmlDocument document;
        document.Parse(xml.c_str());
        sprite.name = path;
        return SpriteXmlFormat::parseSprite(sprite, *document.FirstChildElement("sprite"));
    }
    const Graphics::Dir* dir(int anim, int slot = Graphics::DIR_DOWN) const { return sprite.anim(anim)->dir(slot); }
    // x, y, w, h, sx, sy, ax, ay.
    Frame frame(int anim, int number, int slot = Graphics::DIR_DOWN) const {
        const Graphics::Frame* f = dir(anim, slot)->frame(number);
        return f ? Frame{f->x, f->y, f->w, f->h, f->sx, f->sy, f->ax, f->ay} : Frame{};
    }

    Graphics::Sprite sprite;
};

TEST_F(SpriteFormatTest, ListOfAnimFrameAndStripLines) {
    parseList("anim 12.5 3 walk\r\n"
              "frame 3 10 20 8 8 1 2\r\n"  // 8 words: the point
              "frame 1 0 0 8 8 1 2 3\n"     // 9 words: no attachment point yet
              "\n-- frame 5 0 0 1 1\n"
              "frame 1 1 1 2 2 5 6 7 8\n"   // 10 words: all of it
              "4 0 0 16 16 0 1\n"
              "anim 2 0 x\nframe 1 0 0 1 1\n");
    ASSERT_EQ(sprite.animCount(), 3);
    EXPECT_EQ(sprite.indexOf("walk"), 0);
    EXPECT_EQ(sprite.anim("x"), nullptr) << "a one-letter name can't be looked up";
    EXPECT_FLOAT_EQ(dir(0)->spd, 12.5f);
    EXPECT_EQ(dir(0)->frameCount(), 5);
    EXPECT_EQ(frame(0, 2), (Frame{10, 20, 8, 8, 1, 2, 0, 0}));
    EXPECT_EQ(frame(0, 3), (Frame{0, 0, 8, 8, 1, 2, 0, 0}));
    EXPECT_EQ(frame(0, 4), (Frame{1, 1, 2, 2, 5, 6, 7, 8}));
    // The strip: frames side by side, an animation of its own without speed.
    ASSERT_EQ(dir(1)->frameCount(), 4);
    EXPECT_EQ(dir(1)->spd, 0.0f);
    EXPECT_EQ(frame(1, 3), (Frame{48, 0, 16, 16, 0, 1, 0, 0}));
}

TEST_F(SpriteFormatTest, ListLinesOfNoUseAreIgnoredCountsBoundedAndAShortAnimLineEndsTheList) {
    const std::string log = parseList("frame 2 0 0 4 4\n"  // no animation to go to yet
                                      "+3 0 0 4 4 0 0\n012 0 0 4 4 0 0\n3 0 0 4 4 0\n--x\n"
                                      "anim 1\nframe 2 7\n"  // missing numbers read as 0
                                      "anim 1 0\nframe 2000000000 0 0 1 1\nframe -5 0 0 1 1\n"
                                      "2147483647 2147483000 0 2147483647 1 0 0\n-4 0 0 1 1 0 0\n"
                                      "anim\nanim 1 0 second\nframe 1 0 0 4 4\n");
    ASSERT_EQ(sprite.animCount(), 4);
    EXPECT_EQ(frame(0, 1), (Frame{7, 0, 0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(dir(1)->frameCount(), SpriteListFormat::MAX_FRAMES_PER_DIR);
    EXPECT_EQ(dir(2)->frameCount(), SpriteListFormat::MAX_FRAMES_PER_DIR);
    EXPECT_EQ(dir(3)->frameCount(), 0);
    EXPECT_TRUE(contains(log, "FAIL: SpriteManager.txtParseAnim: Brak wymaganych informacji (\"anim\")"));
}

TEST_F(SpriteFormatTest, XmlAnimationsDirectionsFramesAndTheImage) {
    EXPECT_EQ(parseXml("<sprite><image>pics/body.png</image>"
                       "<anim name='idle'><dir value='up' spd='4.5'><frame x='1' w='3' sy='6' ay='8'/><frame/></dir>"
                       "<dir value='right'><frame x='2'/></dir><dir value='right'><frame x='3'/></dir>"
                       "<dir value='LEFT'><frame x='4'/></dir></anim>"
                       "<anim><dir><frame/></dir></anim></sprite>"),
              "pics/body.png");
    ASSERT_EQ(sprite.animCount(), 2);
    EXPECT_EQ(sprite.indexOf("idle"), 0);
    EXPECT_FLOAT_EQ(dir(0, Graphics::DIR_UP)->spd, 4.5f);
    EXPECT_EQ(frame(0, 0, Graphics::DIR_UP), (Frame{1, 0, 3, 0, 0, 6, 0, 8}));
    // The first dir filled all slots; a second "right" replaced the first;
    // "LEFT" is no value (case matters) and went to slot 2.
    EXPECT_EQ(frame(0, 0, Graphics::DIR_LEFT)[0], 1);
    EXPECT_EQ(frame(0, 0, Graphics::DIR_RIGHT)[0], 3);
    EXPECT_EQ(frame(0, 0)[0], 4);
    EXPECT_FLOAT_EQ(dir(1)->spd, 1.0f) << "default speed";

    // The image is named as written, or relative to the sprite's path; its absence is reported.
    EXPECT_EQ(parseXml("<sprite><image relative='no'>body.png</image></sprite>"), "character/x/body.png");
    EXPECT_EQ(parseXml("<sprite><image relative=''>b.png</image></sprite>", "a\\b\\c.xml"), "a\\b\\b.png");
    EXPECT_EQ(parseXml("<sprite><image relative='1'>b.png</image></sprite>", ""), "b.png");
    std::string missing = "-", empty = "-";
    const std::string log = logOf([&] {
        missing = parseXml("<sprite><anim><dir><frame w='2'/></dir></anim></sprite>");
        empty = parseXml("<sprite><image></image></sprite>");
    });
    EXPECT_EQ(missing + empty, "");
    EXPECT_EQ(sprite.animCount(), 3) << "reading goes on past a missing image";
    const std::string message = "FAIL: SpriteManager.xmlParseSprite: Nie ustawiono obrazka";
    EXPECT_NE(log.find(message), log.rfind(message)) << "one message for each";
}

}  // namespace
