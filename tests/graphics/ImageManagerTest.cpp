#include "GraphicsTest.h"
#include "graphics/SpriteInstance.h"

namespace {

using ImageManagerTest = RenderTest;

// A missing or undecodable picture is null and tried again; a file read once is one shared texture.
TEST_F(ImageManagerTest, PictureFileBecomesOneSharedTextureAndAFailureGivesNullAndTheReason) {
    TestSupport::ScopedTempDir dir;
    TestSupport::writeFile("broken.png", "\x89PNG not really a picture");
    Graphics::Image *absent = nullptr, *broken = nullptr, *none = nullptr;
    const std::string log = logOf([&] {
        absent = ImageManager::load("strip.bmp");
        broken = ImageManager::load("broken.png");
    });
    EXPECT_TRUE(absent == nullptr && broken == nullptr);
    EXPECT_TRUE(contains(log, "FAIL: ImageManager.load: Nie udalo sie wczytac grafiki \"strip.bmp\"")) << log;
    EXPECT_TRUE(contains(log, "ImageManager.loadGfx: Nie udalo sie zdekompresowac grafiki \"broken.png\"\n\terr: "));
    EXPECT_EQ(logOf([&] { none = ImageManager::load("none", static_cast<SDL_Surface*>(nullptr)); }), "");
    EXPECT_EQ(none, nullptr);
    SDL_SaveBMP(stripImage()->surface, "strip.bmp");
    Graphics::Image* image = ImageManager::load("strip.bmp");
    ASSERT_NE(image, nullptr);
    remove("strip.bmp");
    EXPECT_EQ(ImageManager::load("strip.bmp"), image) << "read once";
    Render::drawImage(image, 20, 20, 0, 0, 0, 0);
    expectBox(20, 20, 51, 27, RED, YELLOW);
}

TEST_F(ImageManagerTest, OnlyImagesWithoutHoldersAreDeleted) {
    Graphics::Image* held = blockImage("held", {BLACK});
    Graphics::Image* loose = blockImage("loose", {RED});
    const GLuint heldTexture = held->texture, looseTexture = loose->texture;
    Graphics::SpriteInstance holder(spriteOf(held, {}));
    ImageManager::free(held);
    Render::drawImage(loose, 30, 30, 0, 0, 0, 0);
    ImageManager::flush();
    EXPECT_EQ(rgbAt(30, 30), RED) << "quads batched with a texture are drawn before it goes";
    EXPECT_FALSE(glIsTexture(looseTexture));
    ImageManager::clear();
    EXPECT_TRUE(glIsTexture(heldTexture)) << "a held image outlives flush and clear";
    EXPECT_EQ(blockImage("held", {RED}), held) << "a known name keeps its image";
    holder.setSprite(static_cast<Graphics::Sprite*>(nullptr));
    EXPECT_FALSE(glIsTexture(heldTexture)) << "gone with its last sprite";
    EXPECT_EQ(logOf([] { ImageManager::clear(); }), "") << "nothing left, nothing said";
}

}  // namespace
