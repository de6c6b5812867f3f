#include "GraphicsTest.h"
#include "shell/Log.h"

namespace {

using TestSupport::ScopedTempDir;

class ImageManagerTest : public RenderTest {
protected:
    static void saveStrip(const std::string& path) {
        SDL_Surface* s = stripSurface();
        SDL_SaveBMP(s, path.c_str());
        SDL_FreeSurface(s);
    }
};

TEST_F(ImageManagerTest, PictureFileBecomesOneSharedTextureInItsOwnColours) {
    ScopedTempDir dir;
    saveStrip("strip.bmp");
    Graphics::Image* image = ImageManager::load("strip.bmp");
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->refs(), 0);
    EXPECT_EQ(image->surface, nullptr) << "the card has the pixels";
    remove("strip.bmp");
    EXPECT_EQ(ImageManager::load("strip.bmp"), image) << "read once";
    Render::drawImage(image, 20, 20, 0, 0, 0, 0);
    expectBox(20, 20, 51, 27, RED, YELLOW);
    EXPECT_EQ(rgbAt(36, 20), BLUE);
}

TEST_F(ImageManagerTest, MissingOrUndecodablePictureGivesNullAndTheReasonAndIsTriedAgain) {
    ScopedTempDir dir;
    TestSupport::writeFile("broken.png", "\x89PNG not really a picture");
    Graphics::Image *absent = nullptr, *broken = nullptr, *none = nullptr;
    const std::string log = logOf([&] {
        absent = ImageManager::load("absent.bmp");
        broken = ImageManager::load("broken.png");
    });
    EXPECT_EQ(absent, nullptr);
    EXPECT_EQ(broken, nullptr);
    EXPECT_TRUE(contains(log, "FAIL: ImageManager.load: Nie udalo sie wczytac grafiki \"absent.bmp\"")) << log;
    EXPECT_TRUE(contains(log, "ImageManager.loadGfx: Nie udalo sie zdekompresowac grafiki \"broken.png\"\n\terr: "));
    EXPECT_EQ(logOf([&] { none = ImageManager::load("none", static_cast<SDL_Surface*>(nullptr)); }), "");
    EXPECT_EQ(none, nullptr);
    saveStrip("absent.bmp");
    EXPECT_NE(ImageManager::load("absent.bmp"), nullptr);
}

TEST_F(ImageManagerTest, OnlyImagesWithoutHoldersAreDeleted) {
    Graphics::Image* held = solidImage("held", 2, 2, 0);
    Graphics::Image* loose = solidImage("loose", 2, 2, RED);
    const GLuint heldTexture = held->texture, looseTexture = loose->texture;
    held->addRef();
    held->addRef();
    held->release();
    Graphics::Image stranger;
    ImageManager::free(&stranger);
    ImageManager::free(held);
    Render::drawImage(loose, 30, 30, 0, 0, 0, 0);
    ImageManager::flush();
    EXPECT_EQ(rgbAt(30, 30), RED) << "quads batched with a texture are drawn before it goes";
    EXPECT_TRUE(glIsTexture(heldTexture));
    EXPECT_FALSE(glIsTexture(looseTexture));

    const uint32_t flags = Log::getFlags();
    Log::setFlags(flags | Log::LOG_DEBUG);
    const std::string log = logOf([] { ImageManager::clear(); });
    Log::setFlags(flags);
    EXPECT_TRUE(contains(log, "ImageManager.clear: Obrazek \"held\" ma 1 referencji")) << log;
    EXPECT_EQ(solidImage("held", 8, 8, RED), held) << "a known name keeps its image";
    held->release();
    ImageManager::free(held);
    EXPECT_FALSE(glIsTexture(heldTexture));
    EXPECT_EQ(logOf([] { ImageManager::clear(); }), "") << "nothing left, nothing said";
}

}  // namespace
