#include "GraphicsTest.h"
#include "graphics/SpriteInstance.h"

namespace {

using Graphics::Frame;
using TestSupport::writeFile;

// "idle": 4 frames at 8 a second, its left slot 2 frames at 2 a second;
// "walk": 3 frames at 1 a second in every slot. Frame widths tell them apart.
Graphics::Sprite* makeSprite() {
    Graphics::Anim* idle = animOf({Frame{0, 0, 10}, Frame{0, 0, 11}, Frame{0, 0, 12}, Frame{0, 0, 13}}, 8);
    auto* left = new Graphics::Dir{2, 0, {Frame{0, 0, 20}, Frame{0, 0, 21}}};
    idle->setDir(Graphics::DIR_LEFT, left);
    idle->setDir(Graphics::DIR_LEFT, left);  // the same again must not free it
    auto* sprite = new Graphics::Sprite;
    sprite->addAnim(idle, "idle");
    sprite->addAnim(animOf({Frame{0, 0, 30}, Frame{0, 0, 31}, Frame{0, 0, 32}}, 1), "walk");
    return sprite;
}

TEST(SpriteTest, TimeLoopsAtTheFrameCountANewAnimationRestartsInTheSameSlotAndCopiesStartAnew) {
    Graphics::SpriteInstance instance(makeSprite());
    instance.update(0.625f);  // 5 frames of 4: back to 1
    EXPECT_EQ(instance.getW(), 11);
    instance.update(0.375f);  // exactly 4: back to 0
    EXPECT_EQ(instance.time, 0.0f);
    instance.update(0.25f);
    instance.setAnim("idle");
    EXPECT_EQ(instance.time, 2.0f) << "the running animation runs on";
    instance.setDir(Graphics::DIR_LEFT);
    instance.update(0.75f);
    EXPECT_EQ(instance.getW(), 21);
    instance.setAnim("walk");
    EXPECT_EQ(instance.getW(), 30) << "at its first frame; its one dir serves the left slot";
    Graphics::SpriteInstance copy(instance);
    EXPECT_EQ(copy.getW(), 10) << "a copy shares the sprite, not the playback";
    copy = instance;
    instance.setSprite(instance.sprite);  // its own sprite again must not free it on the way
    EXPECT_EQ(instance.sprite->refs(), 2);
    instance.setAnim("nothing");
    EXPECT_EQ(instance.getW(), 20) << "an unknown name is the first animation";
    instance.setAnim(7);
    EXPECT_EQ(instance.frameCount(), 0);
    EXPECT_EQ(instance.sprite->anim(0)->dir(Graphics::DIR_SLOTS), nullptr);
}

int framesOf(const Graphics::Sprite* sprite, int anim) {
    const Graphics::Anim* found = sprite ? sprite->anim(anim) : nullptr;
    return found && found->dir(Graphics::DIR_DOWN) ? found->dir(Graphics::DIR_DOWN)->frameCount() : -1;
}

// Sprites from files without a picture: all but drawing works without one.
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
    EXPECT_EQ(framesOf(sprite, 1), 3);
    writeFile("s.txt", "anim 5 0 idle\nframe 9 0 0 8 8\n");
    EXPECT_EQ(get("s.spr"), sprite);
    EXPECT_EQ(framesOf(sprite, 0), 2);

    // With two fields the file is its own list, and holds no animation.
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
    EXPECT_EQ(get("fx.xml")->name, "fx.xml");
    EXPECT_FALSE(contains(log, "animacja 0 nie ma"));
    EXPECT_TRUE(contains(log, "SpriteManager.get: Sprite \"fx.xml\" animacja 1 nie ma klatek w domyslnej animacji"));
    EXPECT_TRUE(contains(log, "SpriteManager.get: Sprite \"fx.xml\" animacja 2 nie ma klatek"));
    EXPECT_EQ(get("bubble")->anim(0)->dir(Graphics::DIR_DOWN)->frame(0)->w, 3);
    EXPECT_EQ(get("named.xml"), nullptr) << "the path stands for the sprite without a name";
    EXPECT_EQ(framesOf(get("spark"), 0), 1) << "no animation: the whole image";
    EXPECT_EQ(get("broken.xml"), nullptr);
    // The extension compare is exact: this goes to the picture loader.
    EXPECT_EQ(get("a.XML"), nullptr);
    EXPECT_TRUE(contains(log, "SpriteManager.loadImg: Nie udalo sie wczytac grafiki \"a.XML\""));
}

TEST_F(SpriteManagerTest, SpriteDiesWithItsLastInstanceAndNotBefore) {
    Graphics::Sprite* sprite = get("s.spr");
    {
        Graphics::SpriteInstance first(sprite), second("s.spr");
        first.setSprite(static_cast<Graphics::Sprite*>(nullptr));
        SpriteManager::flush();
        EXPECT_EQ(get("s.spr"), sprite) << "held: not flushed";
        writeFile("s.txt", "anim 1 0\nframe 4 0 0 1 1\n");
    }
    EXPECT_EQ(framesOf(get("s.spr"), 0), 4) << "gone with its last holder: read again";
    // clear() forgets all; a held sprite lives on until its holder lets go.
    Graphics::SpriteInstance held("s.spr");
    SpriteManager::clear();
    EXPECT_EQ(held.frameCount(), 4);
    EXPECT_NE(get("s.spr"), held.sprite);
}

}  // namespace
