#include "GraphicsTest.h"
#include "graphics/Camera.h"

namespace {

using RenderBatchTest = RenderTest;

TEST_F(RenderBatchTest, QuadLandsWhereItsPositionTurnAndOriginPutIt) {
    Graphics::Image* strip = stripImage();
    struct Case {
        int tx, tw;
        float x, y, angle, ox, oy;
        int left, top, right, bottom;
        uint32_t topLeft, bottomRight;
    } const cases[] = {
        {0, 16, 100, 50, 0, 0, 0, 100, 50, 115, 57, RED, GREEN},
        {0, 16, 300, 200, 0, 5, 3, 295, 197, 310, 204, RED, GREEN},  // the origin lands on x, y
        {16, 8, 40, 40, 0, 0, 0, 40, 40, 47, 47, BLUE, BLUE},         // a part of the image
        {0, 16, 300, 300, 90, 0, 0, 292, 300, 299, 315, RED, GREEN},  // degrees, clockwise with y down
    };
    Render::setColor(0, 0, 0, 0);  // every frame starts white
    for (const Case& c : cases) {
        Render::flip();
        Render::drawImage(strip, c.x, c.y, 0, c.tx, 0, c.tw, 8, c.angle, c.ox, c.oy);
        expectBox(c.left, c.top, c.right, c.bottom, c.topLeft, c.bottomRight);
    }
}

TEST_F(RenderBatchTest, ColourGoesWithEachQuadShapesTakeItWithoutTextureAndOnlyTextureOrModeChangesCutTheBatch) {
    Graphics::Image* white = blockImage("white", {WHITE});
    Graphics::Image* strip = stripImage();
    Render::setColor(255, 0, 0, 255);
    Render::drawImage(white, 10, 10, 0, 0, 0, 0);
    Render::setColor(0, 255, 0, 128);
    Render::drawImage(white, 30, 10, 0, 0, 0, 0);
    Render::setAlpha(0);                          // dropped by the alpha test
    Render::setMode(Render::MODE_WORLD_IMAGES);  // the mode in force: keeps the colour
    Render::drawImage(white, 50, 10, 0, 0, 0, 0);
    EXPECT_EQ(rgbAt(15, 15), RED);
    EXPECT_NEAR(rgbAt(35, 15), 0x00bf7f, 0x0202) << "half green over the sky";
    EXPECT_EQ(rgbAt(55, 15), SKY);

    Render::drawImage(white, 10, 30, 0, 0, 0, 0);
    Render::drawImage(strip, 20, 30, 0, 0, 0, 0);
    Render::drawImage(white, 60, 30, 0, 0, 0, 0);
    Render::setMode(Render::MODE_SCREEN_IMAGES);  // also resets the colour to opaque white
    EXPECT_EQ(Render::frameStats().drawCalls, 4u);
    Render::drawImage(white, 10, 50, 0, 0, 0, 0);
    EXPECT_EQ(rgbAt(10, 50), WHITE);
    // Shapes take the current colour, without texture; the change of mode draws the batch.
    Render::setMode(Render::MODE_SCREEN_SHAPES);
    Render::setColor(0, 255, 0, 255);
    Render::drawRect(500, 400, 30, 20);
    Render::drawLine(600, 450.5f, 650, 450.5f);
    Render::setMode(Render::MODE_WORLD_IMAGES);
    expectBox(500, 400, 529, 419, GREEN, GREEN);
    EXPECT_EQ(rgbAt(620, 450), GREEN);
    EXPECT_EQ(rgbAt(10, 50), WHITE);
    Render::flip();
    EXPECT_EQ(Render::lastFrameStats().drawCalls, 7u);
    EXPECT_EQ(Render::lastFrameStats().quads, 7u);  // shapes are no quads
    EXPECT_EQ(Render::getMode(), Render::MODE_WORLD_IMAGES);
    EXPECT_EQ(rgbAt(15, 15), SKY) << "a flip clears the frame";
}

TEST_F(RenderBatchTest, CameraShiftsWorldModesByWholePixelsAndCentresInCentredMode) {
    Graphics::Image* red = blockImage("red", {RED});
    Render::Camera camera;
    camera.init(0, 0, 800, 600, Vector(10.7f, 20.2f, 0, 0));
    Render::setCamera(&camera);
    Render::flip();
    Render::drawImage(red, 100, 100, 0, 0, 0, 0);
    expectBox(90, 80, 97, 87, RED, RED);
    Render::setMode(Render::MODE_SCREEN_IMAGES);
    Render::applyCamera();
    Render::drawImage(red, 200, 200, 0, 0, 0, 0);
    expectBox(200, 200, 207, 207, RED, RED);
    camera.init(0, 0, 800, 600, Vector(49.75f, 49.75f, 0, 0));
    Render::setMode(Render::MODE_CENTRED);
    Render::applyCamera();
    Render::drawImage(red, 50, 50, 0, 0, 0, 0);
    expectBox(400, 300, 407, 307, RED, RED);
    Render::setCamera(nullptr);
}

}  // namespace
