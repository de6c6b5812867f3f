#include <gtest/gtest.h>

#include "LogCapture.h"
#include "graphics/Sprite.h"
#include "graphics/SpriteInstance.h"
#include "graphics/SpriteManager.h"

namespace {

using TestSupport::writeFile;

bool contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

int defaultFrames(const Graphics::Sprite* sprite, int anim) {
    const Graphics::Anim* found = sprite ? sprite->anim(anim) : nullptr;
    const Graphics::Dir* dir = found ? found->dir(Graphics::DIR_DOWN) : nullptr;
    return dir ? dir->frameCount() : -1;
}

// Sprites here have no picture: everything but drawing works without one.
class SpriteManagerTest : public ::testing::Test {
protected:
    ~SpriteManagerTest() override { SpriteManager::clear(); }
    TestSupport::ScopedTempDir dir;
};

TEST_F(SpriteManagerTest, EmptyNameGivesNullAndLogsNothing) {
    Graphics::Sprite* sprite = nullptr;
    EXPECT_EQ(logOf([&] { sprite = SpriteManager::get(""); }), "");
    EXPECT_EQ(sprite, nullptr);
}

TEST_F(SpriteManagerTest, SprFileNamesItsImageAndListAndIsReadOnce) {
    writeFile("body.spr", "none.png;anims.txt;-");
    writeFile("anims.txt", "anim 5 0 idle\nframe 2 0 0 8 8\n3 0 8 8 8 4 4\n");
    Graphics::Sprite* sprite = SpriteManager::get("body.spr");
    ASSERT_NE(sprite, nullptr);
    EXPECT_EQ(sprite->name, "");
    EXPECT_EQ(sprite->image, nullptr);
    ASSERT_EQ(sprite->animCount(), 2);
    EXPECT_EQ(defaultFrames(sprite, 0), 2);
    EXPECT_EQ(defaultFrames(sprite, 1), 3);

    writeFile("anims.txt", "anim 5 0 idle\nframe 9 0 0 8 8\n");
    EXPECT_EQ(SpriteManager::get("body.spr"), sprite);
    EXPECT_EQ(defaultFrames(sprite, 0), 2);
}

TEST_F(SpriteManagerTest, SprFileWithoutUsableAnimationsFailsAndLeavesNoEntry) {
    writeFile("short.spr", "a.png;b.txt");
    writeFile("empty.spr", "none.png;empty.txt;-");
    writeFile("empty.txt", "anim 1 0 idle\n");
    Graphics::Sprite* loaded[3] = {};
    const std::string log = logOf([&] {
        loaded[0] = SpriteManager::get("short.spr");
        loaded[1] = SpriteManager::get("empty.spr");
        loaded[2] = SpriteManager::get("missing.spr");
    });
    EXPECT_EQ(loaded[0], nullptr);
    EXPECT_EQ(loaded[1], nullptr);
    EXPECT_EQ(loaded[2], nullptr);
    EXPECT_TRUE(contains(log, "SpriteManager.loadTxt: Nie udalo sie wczytac animacji \"short.spr\":\"short.spr\""));
    EXPECT_TRUE(contains(log, "SpriteManager.loadTxt: Nie udalo sie wczytac animacji \"empty.spr\":\"empty.txt\""));
    EXPECT_TRUE(contains(log, "SpriteManager.get: Nie udalo sie wczytac \"missing.spr\""));

    // A later fix of the file is picked up: failures aren't remembered.
    writeFile("empty.txt", "anim 1 0 idle\nframe 1 0 0 1 1\n");
    EXPECT_NE(SpriteManager::get("empty.spr"), nullptr);
}

TEST_F(SpriteManagerTest, NamedXmlSpritesAreFoundByNameNotByPath) {
    writeFile("fx.xml",
              "<sprite name='bubble'><image>b.png</image><anim><dir><frame w='3'/></dir></anim></sprite>"
              "<sprite name='spark'><image>s.png</image><anim><dir><frame w='4'/></dir></anim></sprite>");
    Graphics::Sprite* byPath = nullptr;
    const std::string log = logOf([&] { byPath = SpriteManager::get("fx.xml"); });
    EXPECT_EQ(byPath, nullptr);
    EXPECT_TRUE(contains(log, "SpriteManager.get: Nie udalo sie wczytac \"fx.xml\""));
    Graphics::Sprite* bubble = SpriteManager::get("bubble");
    ASSERT_NE(bubble, nullptr);
    EXPECT_EQ(bubble->name, "fx.xml");
    EXPECT_EQ(bubble->anim(0)->dir(Graphics::DIR_DOWN)->frame(0)->w, 3);
    EXPECT_NE(SpriteManager::get("spark"), nullptr);

    writeFile("both.xml", "<sprite name='other'><image>o.png</image></sprite><sprite><image>m.png</image>"
                          "<anim><dir><frame w='5'/></dir></anim></sprite>");
    Graphics::Sprite* main = SpriteManager::get("both.xml");
    ASSERT_NE(main, nullptr);
    EXPECT_EQ(main->anim(0)->dir(Graphics::DIR_DOWN)->frame(0)->w, 5);
}

TEST_F(SpriteManagerTest, XmlSpriteWithoutAnimationsGetsTheWholeImage) {
    writeFile("plain.xml", "<sprite><image>none.png</image></sprite>");
    Graphics::Sprite* sprite = SpriteManager::get("plain.xml");
    ASSERT_NE(sprite, nullptr);
    ASSERT_EQ(sprite->animCount(), 1);
    EXPECT_EQ(defaultFrames(sprite, 0), 1);
    EXPECT_EQ(sprite->anim(0)->dir(Graphics::DIR_UP), sprite->anim(0)->dir(Graphics::DIR_DOWN));
}

TEST_F(SpriteManagerTest, AnimationsWithoutDefaultFramesAreReported) {
    writeFile("gaps.xml", "<sprite><image>n.png</image><anim name='ok'><dir><frame/></dir></anim>"
                          "<anim name='hollow'/><anim><dir value='left'/></anim></sprite>");
    writeFile("broken.xml", "<sprite><image>n.png</image><anim");
    Graphics::Sprite* sprite = nullptr;
    const std::string log = logOf([&] { sprite = SpriteManager::get("gaps.xml"); });
    ASSERT_NE(sprite, nullptr);
    EXPECT_FALSE(contains(log, "animacja 0 nie ma klatek"));
    EXPECT_TRUE(contains(log, "SpriteManager.get: Sprite \"gaps.xml\" animacja 1 nie ma klatek w domyslnej animacji"));
    EXPECT_TRUE(contains(log, "SpriteManager.get: Sprite \"gaps.xml\" animacja 2 nie ma klatek w domyslnej animacji"));
    // A document that doesn't parse has no sprites; no crash, no entry.
    EXPECT_EQ(SpriteManager::get("broken.xml"), nullptr);
}

TEST_F(SpriteManagerTest, ExtensionMustMatchExactly) {
    writeFile("a.XML", "<sprite><image>n.png</image></sprite>");
    Graphics::Sprite* loaded[2] = {};
    const std::string log = logOf([&] {
        loaded[0] = SpriteManager::get("a.XML");
        loaded[1] = SpriteManager::get("a.PNG");
    });
    EXPECT_EQ(loaded[0], nullptr);
    EXPECT_EQ(loaded[1], nullptr);
    EXPECT_TRUE(contains(log, "SpriteManager.loadImg: Nie udalo sie wczytac grafiki \"a.XML\""));
    EXPECT_TRUE(contains(log, "SpriteManager.loadImg: Nie znaleziono pliku \"a.PNG\""));
}

TEST_F(SpriteManagerTest, SpriteDiesWithItsLastInstanceAndNotBefore) {
    writeFile("s.spr", "none.png;s.txt;-");
    writeFile("s.txt", "anim 1 0\nframe 1 0 0 1 1\n");
    Graphics::Sprite* sprite = SpriteManager::get("s.spr");
    ASSERT_NE(sprite, nullptr);
    EXPECT_EQ(sprite->refs(), 0);
    {
        Graphics::SpriteInstance first(sprite);
        Graphics::SpriteInstance second(first);
        EXPECT_EQ(sprite->refs(), 2);
        first.setSprite(static_cast<Graphics::Sprite*>(nullptr));
        EXPECT_EQ(sprite->refs(), 1);
        // Held: the map still gives the same, live sprite.
        SpriteManager::flush();
        EXPECT_EQ(SpriteManager::get("s.spr"), sprite);
        EXPECT_EQ(defaultFrames(sprite, 0), 1);
        writeFile("s.txt", "anim 1 0\nframe 4 0 0 1 1\n");
    }
    // The last holder is gone: the next get reads the file again.
    EXPECT_EQ(defaultFrames(SpriteManager::get("s.spr"), 0), 4);
}

TEST_F(SpriteManagerTest, ClearForgetsAllButHeldSpritesLiveOnWithTheirHolders) {
    writeFile("s.spr", "none.png;s.txt;-");
    writeFile("s.txt", "anim 1 0\nframe 1 0 0 1 1\n");
    writeFile("t.xml", "<sprite><image>n.png</image></sprite>");
    Graphics::SpriteInstance held("s.spr");
    ASSERT_NE(held.sprite, nullptr);
    ASSERT_NE(SpriteManager::get("t.xml"), nullptr);
    SpriteManager::clear();
    // Still usable; ASan would catch a freed one.
    EXPECT_EQ(held.frameCount(), 1);
    Graphics::Sprite* reloaded = SpriteManager::get("s.spr");
    EXPECT_NE(reloaded, nullptr);
    held.setSprite(static_cast<Graphics::Sprite*>(nullptr));
    EXPECT_EQ(SpriteManager::get("s.spr"), reloaded);
}

}  // namespace
