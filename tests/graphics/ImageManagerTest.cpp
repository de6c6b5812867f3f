#include <GL/glew.h>
#include <SDL/SDL.h>

#include "RenderTestSupport.h"
#include "TestSupport.h"
#include "shell/Log.h"

namespace {

using TestSupport::CapturedStdout;
using TestSupport::ScopedTempDir;

class ImageManagerTest : public RenderTest {
protected:
    // A 2x1 picture file: a red pixel and a blue one.
    static void writeBmp(const std::string& path) {
        SDL_Surface* s = SDL_CreateRGBSurface(SDL_SWSURFACE, 2, 1, 24, 0xff, 0xff00, 0xff0000, 0);
        SDL_Rect right = {1, 0, 1, 1};
        SDL_FillRect(s, nullptr, SDL_MapRGB(s->format, 255, 0, 0));
        SDL_FillRect(s, &right, SDL_MapRGB(s->format, 0, 0, 255));
        SDL_SaveBMP(s, path.c_str());
        SDL_FreeSurface(s);
    }
};

TEST_F(ImageManagerTest, PictureFileBecomesASharedTextureInItsOwnColours) {
    ScopedTempDir dir;
    writeBmp("two.bmp");
    Graphics::Image* image = ImageManager::load("two.bmp");
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->width, 2);
    EXPECT_EQ(image->height, 1);
    EXPECT_EQ(image->refs(), 0);
    EXPECT_EQ(image->surface, nullptr);
    EXPECT_TRUE(glIsTexture(image->texture));

    // The second load doesn't read the file again: it's gone and still works.
    remove("two.bmp");
    EXPECT_EQ(ImageManager::load("two.bmp"), image);

    // Channels arrive in their places: red left, blue right.
    Render::drawImage(image, 20, 20, 0, 0, 0, 0);
    auto left = pixelAt(20, 20), right = pixelAt(21, 20);
    EXPECT_EQ(left[0], 255);
    EXPECT_EQ(left[2], 0);
    EXPECT_EQ(right[0], 0);
    EXPECT_EQ(right[2], 255);
    ImageManager::flush();
}

TEST_F(ImageManagerTest, MissingOrBrokenPictureGivesNullAndTheReason) {
    ScopedTempDir dir;
    TestSupport::writeFile("broken.png", "\x89PNG not really a picture");
    CapturedStdout out;
    EXPECT_EQ(ImageManager::load("absent.png"), nullptr);
    EXPECT_EQ(ImageManager::load("broken.png"), nullptr);
    std::string log = out.text();
    EXPECT_NE(log.find("ImageManager.loadGfx: Nie udalo sie wczytac grafiki \"absent.png\""),
              std::string::npos);
    EXPECT_NE(log.find("ImageManager.load: Nie udalo sie wczytac grafiki \"absent.png\""),
              std::string::npos);
    EXPECT_NE(log.find("ImageManager.loadGfx: Nie udalo sie zdekompresowac grafiki \"broken.png\"\n\terr: "),
              std::string::npos);

    // A failed name isn't remembered: once the file is there, it loads.
    writeBmp("absent.png");
    Graphics::Image* late = ImageManager::load("absent.png");
    EXPECT_NE(late, nullptr);
    ImageManager::flush();
}

TEST_F(ImageManagerTest, ImageLivesExactlyAsLongAsItsHolders) {
    Graphics::Image* image = solidImage("held", 4, 4, 1, 2, 3);
    ASSERT_NE(image, nullptr);
    const GLuint texture = image->texture;

    image->addRef();
    image->addRef();
    image->release();
    ImageManager::free(image);
    ImageManager::flush();
    ImageManager::clear();
    EXPECT_TRUE(glIsTexture(texture)) << "freed while held";
    EXPECT_EQ(solidImage("held", 4, 4, 0, 0, 0), image);

    // Not the map's: nothing happens.
    Graphics::Image stranger;
    ImageManager::free(&stranger);

    image->release();
    ImageManager::free(image);
    EXPECT_FALSE(glIsTexture(texture)) << "outlived its last holder";
}

TEST_F(ImageManagerTest, FlushAndClearDeleteOnlyUnheldImages) {
    Graphics::Image* kept = solidImage("kept", 2, 2, 0, 0, 0);
    Graphics::Image* loose = solidImage("loose", 2, 2, 0, 0, 0);
    ASSERT_NE(kept, nullptr);
    ASSERT_NE(loose, nullptr);
    const GLuint keptTexture = kept->texture, looseTexture = loose->texture;
    kept->addRef();

    ImageManager::flush();
    EXPECT_TRUE(glIsTexture(keptTexture));
    EXPECT_FALSE(glIsTexture(looseTexture));

    const uint32_t flags = Log::getFlags();
    Log::setFlags(15);
    {
        CapturedStdout out;
        ImageManager::clear();
        EXPECT_NE(out.text().find("ImageManager.clear: Obrazek \"kept\" ma 1 referencji"),
                  std::string::npos);
    }
    Log::setFlags(flags);
    EXPECT_TRUE(glIsTexture(keptTexture));

    kept->release();
    ImageManager::clear();
    EXPECT_FALSE(glIsTexture(keptTexture));
    // Nothing left: clearing again says nothing at all.
    CapturedStdout out;
    ImageManager::clear();
    EXPECT_EQ(out.text(), "");
}

TEST_F(ImageManagerTest, SurfacePathKeepsTheFirstImageOfAName) {
    CapturedStdout out;
    EXPECT_EQ(ImageManager::load("nothing", static_cast<SDL_Surface*>(nullptr)), nullptr);
    EXPECT_EQ(out.text(), "");

    Graphics::Image* first = solidImage("same", 2, 2, 0, 0, 0);
    ASSERT_NE(first, nullptr);
    EXPECT_NE(first->surface, nullptr);
    EXPECT_EQ(solidImage("same", 8, 8, 0, 0, 0), first);
    EXPECT_EQ(first->width, 2);

    const uint32_t pixels[4] = {};
    EXPECT_EQ(ImageManager::load("raw", pixels, 2, 2, 0), nullptr);
    EXPECT_NE(out.text().find("ImageManager.load(pixs): Nie udalo sie wygenerowac bitmapy \"raw\""),
              std::string::npos);
    ImageManager::flush();
}

TEST_F(ImageManagerTest, DeletingTheBoundTextureFirstDrawsWhatWasBatchedWithIt) {
    Graphics::Image* red = solidImage("doomed", 4, 4, 255, 0, 0);
    ASSERT_NE(red, nullptr);
    Render::drawImage(red, 30, 30, 0, 0, 0, 0);
    ImageManager::flush();
    auto p = pixelAt(31, 31);
    EXPECT_EQ(p[0], 255);
    EXPECT_EQ(p[1], 0);
}

}  // namespace
