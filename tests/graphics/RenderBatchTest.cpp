#include "GraphicsTest.h"
#include "graphics/Camera.h"

namespace {

using RenderBatchTest = RenderTest;

TEST_F(RenderBatchTest, QuadLandsWhereItsPositionTurnAndOriginPutIt) {
    Graphics::Image* strip = stripImage();
    ASSERT_NE(strip, nullptr);
    struct Case {
        int tx, tw;
        float x, y, angle, ox, oy;
        int left, top, right, bottom;
        uint32_t topLeft, bottomRight;
    };
    const Case cases[] = {
        {0, 16, 100, 50, 0, 0, 0, 100, 50, 115, 57, RED, GREEN},
        {0, 16, 300, 200, 0, 5, 3, 295, 197, 310, 204, RED, GREEN},  // the origin lands on x, y
        {16, 8, 40, 40, 0, 0, 0, 40, 40, 47, 47, BLUE, BLUE},         // a part of the image
        {0, 16, 300, 300, 90, 0, 0, 292, 300, 299, 315, RED, GREEN},  // degrees, clockwise with y down
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.left);
        Render::flip();
        Render::drawImage(strip, c.x, c.y, 0, c.tx, 0, c.tw, 8, c.angle, c.ox, c.oy);
        expectBox(c.left, c.top, c.right, c.bottom, c.topLeft, c.bottomRight);
    }
}

TEST_F(RenderBatchTest, ColourGoesWithEachQuadAndOnlyTextureOrModeChangesCutTheBatch) {
    Graphics::Image* white = solidImage("white", 8, 8, WHITE);
    Graphics::Image* strip = stripImage();
    Render::setColor(255, 0, 0, 255);
    Render::drawImage(white, 10, 10, 0, 0, 0, 0);
    Render::setColor(0, 255, 0, 128);
    Render::drawImage(white, 30, 10, 0, 0, 0, 0);
    Render::setAlpha(0);                          // dropped by the alpha test
    Render::setMode(Render::MODE_WORLD_IMAGES);  // the mode in force: keeps the colour
    Render::drawImage(white, 50, 10, 0, 0, 0, 0);
    EXPECT_EQ(Render::frameStats().drawCalls, 0u);
    EXPECT_EQ(rgbAt(15, 15), RED);
    const uint32_t half = rgbAt(35, 15);  // half green over the sky
    EXPECT_EQ(half >> 16, 0u);
    EXPECT_NEAR(half >> 8 & 0xff, 191, 2);
    EXPECT_NEAR(half & 0xff, 127, 2);
    EXPECT_EQ(rgbAt(55, 15), SKY);

    Render::drawImage(white, 10, 30, 0, 0, 0, 0);
    Render::drawImage(strip, 20, 30, 0, 0, 0, 0);
    Render::drawImage(white, 60, 30, 0, 0, 0, 0);
    Render::setMode(Render::MODE_SCREEN_IMAGES);  // also resets the colour to opaque white
    EXPECT_EQ(Render::frameStats().drawCalls, 4u);
    Render::drawImage(white, 10, 50, 0, 0, 0, 0);
    EXPECT_EQ(rgbAt(10, 50), WHITE);

    Render::flip();
    EXPECT_EQ(Render::lastFrameStats().drawCalls, 5u);
    EXPECT_EQ(Render::lastFrameStats().quads, 7u);
    EXPECT_EQ(Render::getMode(), Render::MODE_WORLD_IMAGES);
    EXPECT_EQ(rgbAt(15, 15), SKY) << "a flip clears the frame";
}

TEST_F(RenderBatchTest, CameraShiftsWorldModesByWholePixelsAndCentresInCentredMode) {
    Graphics::Image* red = solidImage("red", 4, 4, RED);
    Render::Camera camera;
    camera.init(0, 0, 800, 600, Vector(10.7f, 20.2f, 0, 0));
    Render::setCamera(&camera);
    Render::flip();
    Render::drawImage(red, 100, 100, 0, 0, 0, 0);
    expectBox(90, 80, 93, 83, RED, RED);

    Render::setMode(Render::MODE_SCREEN_IMAGES);
    Render::applyCamera();
    Render::drawImage(red, 200, 200, 0, 0, 0, 0);
    expectBox(200, 200, 203, 203, RED, RED);

    camera.init(0, 0, 800, 600, Vector(49.75f, 49.75f, 0, 0));
    Render::setMode(Render::MODE_CENTRED);
    Render::applyCamera();
    Render::drawImage(red, 50, 50, 0, 0, 0, 0);
    expectBox(400, 300, 403, 303, RED, RED);

    // A moving camera records where to go and leaves the picture as it is.
    Render::MovingCamera moving;
    moving.init(0, 0, 800, 600, Vector());
    moving.setPosition(Vector(100, 100, 0, 0));
    Render::setCamera(&moving);
    Render::flip();
    Render::drawImage(red, 10, 10, 0, 0, 0, 0);
    expectBox(10, 10, 13, 13, RED, RED);
    Render::setCamera(nullptr);
}

TEST_F(RenderBatchTest, ShapesTakeTheCurrentColourWithoutTexture) {
    Render::drawImage(solidImage("red", 4, 4, RED), 0, 0, 0, 0, 0, 0);
    Render::setMode(Render::MODE_SCREEN_SHAPES);
    EXPECT_EQ(Render::frameStats().drawCalls, 1u) << "the mode change drew the batch";
    Render::setColor(0, 255, 0, 255);
    Render::drawRect(500, 400, 30, 20);
    Render::drawLine(600, 450.5f, 650, 450.5f);
    Render::setMode(Render::MODE_WORLD_IMAGES);
    expectBox(500, 400, 529, 419, GREEN, GREEN);
    EXPECT_EQ(rgbAt(620, 450), GREEN);
    EXPECT_EQ(rgbAt(2, 2), RED);
}

}  // namespace
