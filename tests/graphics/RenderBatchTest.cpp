#include "RenderTestSupport.h"
#include "graphics/Camera.h"

namespace {

using Pixel = std::array<uint8_t, 4>;

bool isColour(const Pixel& p, uint8_t r, uint8_t g, uint8_t b) {
    return p[0] == r && p[1] == g && p[2] == b;
}

class RenderBatchTest : public RenderTest {
protected:
    // The red box covers exactly the pixels from (left, top) to (right, bottom).
    void expectRedBox(int left, int top, int right, int bottom) {
        EXPECT_TRUE(isColour(pixelAt(left, top), 255, 0, 0));
        EXPECT_TRUE(isColour(pixelAt(right, bottom), 255, 0, 0));
        EXPECT_TRUE(isBackground(pixelAt(left - 1, top)));
        EXPECT_TRUE(isBackground(pixelAt(left, top - 1)));
        EXPECT_TRUE(isBackground(pixelAt(right + 1, bottom)));
        EXPECT_TRUE(isBackground(pixelAt(right, bottom + 1)));
    }
};

TEST_F(RenderBatchTest, QuadLandsExactlyWhereItsPositionAndOriginPutIt) {
    Graphics::Image* red = solidImage("place_red", 10, 10, 255, 0, 0);
    ASSERT_NE(red, nullptr);

    Render::drawImage(red, 100, 50, 0, 0, 0, 0);
    expectRedBox(100, 50, 109, 59);

    // The origin point lands on x, y: the quad moves up and left by it.
    Render::drawImage(red, 300, 200, 0, 0, 5, 3);
    expectRedBox(295, 197, 304, 206);
}

TEST_F(RenderBatchTest, SubRectangleShowsOnlyThatPartOfTheImage) {
    SDL_Surface* s = SDL_CreateRGBSurface(SDL_SWSURFACE, 20, 10, 32, 0xff, 0xff00, 0xff0000,
                                          0xff000000);
    SDL_Rect right = {10, 0, 10, 10};
    SDL_FillRect(s, nullptr, SDL_MapRGBA(s->format, 255, 0, 0, 255));
    SDL_FillRect(s, &right, SDL_MapRGBA(s->format, 0, 255, 0, 255));
    Graphics::Image* halves = ImageManager::load("halves", s);
    SDL_FreeSurface(s);
    ASSERT_NE(halves, nullptr);

    Render::drawImage(halves, 40, 40, 0, 10, 0, 10, 10, 0, 0, 0);
    EXPECT_TRUE(isColour(pixelAt(40, 40), 0, 255, 0));
    EXPECT_TRUE(isColour(pixelAt(49, 49), 0, 255, 0));
    EXPECT_TRUE(isBackground(pixelAt(50, 45)));
}

TEST_F(RenderBatchTest, TurnsAboutTheOriginInDegrees) {
    Graphics::Image* red = solidImage("turn_red", 20, 10, 255, 0, 0);
    ASSERT_NE(red, nullptr);
    // A quarter turn clockwise (y down) about the top left corner: the wide
    // quad now hangs down and to the left of x, y.
    Render::drawImage(red, 300, 300, 0, 90, 0, 0);
    EXPECT_TRUE(isColour(pixelAt(295, 315), 255, 0, 0));
    EXPECT_TRUE(isBackground(pixelAt(305, 305)));
    EXPECT_TRUE(isBackground(pixelAt(295, 322)));
}

TEST_F(RenderBatchTest, ColourAndAlphaApplyPerQuad) {
    Graphics::Image* white = solidImage("tint_white", 10, 10, 255, 255, 255);
    ASSERT_NE(white, nullptr);

    Render::setColor(255, 0, 0, 255);
    Render::drawImage(white, 10, 10, 0, 0, 0, 0);
    Render::setColor(0, 255, 0, 128);
    Render::drawImage(white, 30, 10, 0, 0, 0, 0);
    Render::setAlpha(0);
    Render::drawImage(white, 50, 10, 0, 0, 0, 0);
    Render::setColor(255, 255, 255, 255);
    Render::drawImage(white, 70, 10, 0, 0, 0, 0);

    EXPECT_TRUE(isColour(pixelAt(15, 15), 255, 0, 0));
    // Half green over the blue-ish background.
    Pixel half = pixelAt(35, 15);
    EXPECT_EQ(half[0], 0);
    EXPECT_NEAR(half[1], 191, 2);
    EXPECT_NEAR(half[2], 127, 2);
    // Fully transparent quads are dropped by the alpha test.
    EXPECT_TRUE(isBackground(pixelAt(55, 15)));
    EXPECT_TRUE(isColour(pixelAt(75, 15), 255, 255, 255));
    // Colour changes alone don't cut the batch.
    EXPECT_EQ(Render::frameStats().drawCalls, 1u);
}

TEST_F(RenderBatchTest, OnlyATextureOrModeChangeCutsTheBatch) {
    Graphics::Image* a = solidImage("batch_a", 4, 4, 255, 0, 0);
    Graphics::Image* b = solidImage("batch_b", 4, 4, 0, 0, 255);
    ASSERT_NE(a, nullptr);
    ASSERT_NE(b, nullptr);
    Render::flip();

    Render::drawImage(a, 0, 0, 0, 0, 0, 0);
    Render::setColor(10, 20, 30, 255);
    Render::drawImage(a, 8, 0, 0, 0, 0, 0);
    Render::flush();
    EXPECT_EQ(Render::frameStats().drawCalls, 1u);
    EXPECT_EQ(Render::frameStats().quads, 2u);

    Render::drawImage(a, 0, 0, 0, 0, 0, 0);
    Render::drawImage(b, 8, 0, 0, 0, 0, 0);
    Render::drawImage(a, 16, 0, 0, 0, 0, 0);
    Render::flush();
    EXPECT_EQ(Render::frameStats().drawCalls, 4u);
    EXPECT_EQ(Render::frameStats().quads, 5u);

    // Setting the mode already in force flushes nothing and keeps the colour.
    Render::setColor(1, 2, 3, 4);
    Render::drawImage(a, 0, 0, 0, 0, 0, 0);
    Render::setMode(Render::MODE_WORLD_IMAGES);
    EXPECT_EQ(Render::frameStats().drawCalls, 4u);
    Render::setMode(Render::MODE_SCREEN_IMAGES);
    EXPECT_EQ(Render::frameStats().drawCalls, 5u);

    Render::flip();
    EXPECT_EQ(Render::lastFrameStats().drawCalls, 5u);
    EXPECT_EQ(Render::lastFrameStats().quads, 6u);
    EXPECT_EQ(Render::frameStats().drawCalls, 0u);
    EXPECT_EQ(Render::getMode(), Render::MODE_WORLD_IMAGES);
}

TEST_F(RenderBatchTest, ModeChangeResetsTheColourToOpaqueWhite) {
    Graphics::Image* white = solidImage("mode_white", 10, 10, 255, 255, 255);
    ASSERT_NE(white, nullptr);
    Render::setColor(255, 0, 0, 255);
    Render::setMode(Render::MODE_SCREEN_IMAGES);
    Render::drawImage(white, 10, 10, 0, 0, 0, 0);
    EXPECT_TRUE(isColour(pixelAt(12, 12), 255, 255, 255));
}

TEST_F(RenderBatchTest, FlipClearsTheFrameToTheSkyColour) {
    Graphics::Image* red = solidImage("flip_red", 10, 10, 255, 0, 0);
    ASSERT_NE(red, nullptr);
    Render::drawImage(red, 0, 0, 0, 0, 0, 0);
    Render::flip();
    EXPECT_TRUE(isBackground(pixelAt(5, 5)));
    Render::flip();
    EXPECT_TRUE(isBackground(pixelAt(5, 5)));
}

TEST_F(RenderBatchTest, CameraShiftsWorldModesByWholePixelsOnly) {
    Graphics::Image* red = solidImage("cam_red", 4, 4, 255, 0, 0);
    ASSERT_NE(red, nullptr);
    Render::Camera camera;
    camera.init(0, 0, 800, 600, Vector(10.7f, 20.2f, 0, 0));
    Render::setCamera(&camera);
    Render::flip();

    Render::drawImage(red, 100, 100, 0, 0, 0, 0);
    expectRedBox(90, 80, 93, 83);

    Render::setMode(Render::MODE_SCREEN_IMAGES);
    Render::drawImage(red, 200, 200, 0, 0, 0, 0);
    expectRedBox(200, 200, 203, 203);

    // Centred: the camera's point is the middle of the screen, untruncated.
    camera.init(0, 0, 800, 600, Vector(50, 50, 0, 0));
    Render::setMode(Render::MODE_CENTRED);
    Render::applyCamera();
    Render::drawImage(red, 50, 50, 0, 0, 0, 0);
    expectRedBox(400, 300, 403, 303);
    Render::setCamera(nullptr);
}

TEST_F(RenderBatchTest, MovingCameraRecordsATargetButLeavesThePicture) {
    Graphics::Image* red = solidImage("moving_red", 4, 4, 255, 0, 0);
    ASSERT_NE(red, nullptr);
    Render::MovingCamera camera;
    camera.init(0, 0, 800, 600, Vector());
    camera.setPosition(Vector(100, 100, 0, 0));
    EXPECT_FLOAT_EQ(camera.target.x, 100);
    Render::setCamera(&camera);
    Render::flip();
    Render::drawImage(red, 10, 10, 0, 0, 0, 0);
    EXPECT_TRUE(isColour(pixelAt(10, 10), 255, 0, 0));
    Render::setCamera(nullptr);
}

TEST_F(RenderBatchTest, ShapesUseTheCurrentColourWithoutTexture) {
    Graphics::Image* red = solidImage("shape_red", 4, 4, 255, 0, 0);
    ASSERT_NE(red, nullptr);
    Render::drawImage(red, 0, 0, 0, 0, 0, 0);
    Render::setMode(Render::MODE_SCREEN_SHAPES);
    EXPECT_EQ(Render::frameStats().drawCalls, 1u);
    Render::setColor(0, 255, 0, 255);
    Render::drawRect(500, 400, 30, 20);
    Render::drawLine(600, 450.5f, 650, 450.5f);
    Render::setMode(Render::MODE_WORLD_IMAGES);

    EXPECT_TRUE(isColour(pixelAt(500, 400), 0, 255, 0));
    EXPECT_TRUE(isColour(pixelAt(529, 419), 0, 255, 0));
    EXPECT_TRUE(isBackground(pixelAt(530, 419)));
    EXPECT_TRUE(isColour(pixelAt(620, 450), 0, 255, 0));
    EXPECT_TRUE(isColour(pixelAt(2, 2), 255, 0, 0));
}

}  // namespace
