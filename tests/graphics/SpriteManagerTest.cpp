#include "GraphicsTest.h"
#include "graphics/SpriteInstance.h"

namespace {

using TestSupport::writeFile;

int defaultFrames(const Graphics::Sprite* sprite, int anim) {
    const Graphics::Anim* found = sprite ? sprite->anim(anim) : nullptr;
    const Graphics::Dir* dir = found ? found->dir(Graphics::DIR_DOWN) : nullptr;
    return dir ? dir->frameCount() : -1;
}

// Sprites here have no picture: all but drawing works without one.
class SpriteManagerTest : public ::testing::Test {
protected:
    SpriteManagerTest() {
        writeFile("s.spr", "none.png;s.txt;-");
        writeFile("s.txt", "anim 5 0 idle\nframe 2 0 0 8 8\n3 0 8 8 8 4 4\n");
    }
    ~SpriteManagerTest() override { SpriteManager::clear(); }

    Graphics::Sprite* get(const std::string& name) {
        Graphics::Sprite* sprite = nullptr;
        log += logOf([&] { sprite = SpriteManager::get(name); });
        return sprite;
    }

    TestSupport::ScopedTempDir dir;
    std::string log;
};

TEST_F(SpriteManagerTest, SprFileIsReadOnceAndAFailureLeavesNoEntry) {
    EXPECT_EQ(get(""), nullptr);
    EXPECT_EQ(log, "") << "an empty name is no error";
    Graphics::Sprite* sprite = get("s.spr");
    ASSERT_NE(sprite, nullptr);
    EXPECT_EQ(defaultFrames(sprite, 1), 3);
    writeFile("s.txt", "anim 5 0 idle\nframe 9 0 0 8 8\n");
    EXPECT_EQ(get("s.spr"), sprite);
    EXPECT_EQ(defaultFrames(sprite, 0), 2);

    // Two fields: the file itself is taken as the list, and holds no animation.
    writeFile("short.spr", "a.png;b.txt");
    writeFile("empty.spr", "none.png;empty.txt;-");
    writeFile("empty.txt", "anim 1 0 idle\n");
    EXPECT_EQ(get("short.spr"), nullptr);
    EXPECT_EQ(get("empty.spr"), nullptr);
    EXPECT_TRUE(contains(log, "SpriteManager.loadTxt: Nie udalo sie wczytac animacji \"short.spr\":\"short.spr\""));
    EXPECT_TRUE(contains(log, "FAIL: SpriteManager.get: Nie udalo sie wczytac \"empty.spr\""));
    writeFile("empty.txt", "anim 1 0 idle\nframe 1 0 0 1 1\n");
    EXPECT_NE(get("empty.spr"), nullptr);
}

TEST_F(SpriteManagerTest, XmlFilesRegisterNamedSpritesAndReportAnimationsWithoutFrames) {
    writeFile("fx.xml", "<sprite name='bubble'><image>b.png</image><anim><dir><frame w='3'/></dir></anim></sprite>"
                        "<sprite><image>m.png</image><anim name='ok'><dir><frame/></dir></anim>"
                        "<anim name='hollow'/><anim><dir value='left'/></anim></sprite>");
    writeFile("named.xml", "<sprite name='spark'><image>s.png</image></sprite>");
    writeFile("broken.xml", "<sprite><image>n.png</image><anim");
    writeFile("a.XML", "<sprite><image>n.png</image></sprite>");
    Graphics::Sprite* main = get("fx.xml");
    ASSERT_NE(main, nullptr);
    EXPECT_EQ(main->name, "fx.xml");
    EXPECT_FALSE(contains(log, "animacja 0 nie ma"));
    EXPECT_TRUE(contains(log, "SpriteManager.get: Sprite \"fx.xml\" animacja 1 nie ma klatek w domyslnej animacji"));
    EXPECT_TRUE(contains(log, "SpriteManager.get: Sprite \"fx.xml\" animacja 2 nie ma klatek"));
    ASSERT_NE(get("bubble"), nullptr);
    EXPECT_EQ(get("bubble")->anim(0)->dir(Graphics::DIR_DOWN)->frame(0)->w, 3);

    EXPECT_EQ(get("named.xml"), nullptr) << "the path stands for the sprite without a name";
    EXPECT_EQ(defaultFrames(get("spark"), 0), 1) << "no animation: the whole image";
    EXPECT_EQ(get("broken.xml"), nullptr);
    // The extension compare is exact: these go to the picture loader.
    EXPECT_EQ(get("a.XML"), nullptr);
    EXPECT_TRUE(contains(log, "SpriteManager.loadImg: Nie udalo sie wczytac grafiki \"a.XML\""));
    EXPECT_EQ(get("a.PNG"), nullptr);
    EXPECT_TRUE(contains(log, "SpriteManager.loadImg: Nie znaleziono pliku \"a.PNG\""));
}

TEST_F(SpriteManagerTest, SpriteDiesWithItsLastInstanceAndNotBefore) {
    Graphics::Sprite* sprite = get("s.spr");
    ASSERT_NE(sprite, nullptr);
    {
        Graphics::SpriteInstance first(sprite), second("s.spr");
        first.setSprite(static_cast<Graphics::Sprite*>(nullptr));
        SpriteManager::flush();
        EXPECT_EQ(get("s.spr"), sprite) << "held: not flushed";
        writeFile("s.txt", "anim 1 0\nframe 4 0 0 1 1\n");
    }
    EXPECT_EQ(defaultFrames(get("s.spr"), 0), 4) << "gone with its last holder: read again";

    // clear() forgets all; a held sprite lives on until its holder lets go.
    Graphics::SpriteInstance held("s.spr");
    SpriteManager::clear();
    EXPECT_EQ(held.frameCount(), 4);
    EXPECT_NE(get("s.spr"), held.sprite);
}

}  // namespace
