#include "GraphicsTest.h"
#include "graphics/Buffer2D.h"

namespace {

using BufferTest = RenderTest;

// Quads of the strip from x 20, their point at (1, 1): four blue columns, then four yellow.
TEST_F(BufferTest, FrameQuadsUploadOnceAndDrawAtAnyOffsetOverWhatWasBatched) {
    Graphics::Image* strip = stripImage();
    Render::Buffer2D buffer;
    const Graphics::SpriteInstance quads(spriteOf(strip, {animOf({{20, 0, 8, 4, 1, 1}})}));
    buffer.setSprite(quads);
    ASSERT_TRUE(buffer.init());
    Render::drawBuffer(&buffer, 0, 0, 0, 255);
    EXPECT_EQ(Render::frameStats().drawCalls, 0u) << "a buffer never filled draws nothing";

    // The frame's point is added, turns are in radians, the colour comes as a, r, g, b.
    buffer.addFrame(0, Graphics::DIR_DOWN, 0, 0, 0, 0, 255, 255, 255, 255);
    buffer.addFrame(0, Graphics::DIR_DOWN, 0, 50, 50, 1.5707964f, 255, 255, 255, 255);
    buffer.addFrame(0, Graphics::DIR_DOWN, 0, 0, 20, 0, 255, 0, 255, 0);
    buffer.addFrame(3, Graphics::DIR_DOWN, 0, 0, 30, 0, 255, 255, 255, 255);  // no such animation
    Render::drawImage(strip, 101, 121, 0, 16, 0, 8, 8, 0, 0, 0);                // blue, under the buffer
    Render::drawBuffer(&buffer, 100, 100, 0, 255);
    EXPECT_TRUE(buffer.vertices.empty()) << "uploaded: the copy in memory goes";
    Render::drawBuffer(&buffer, 300, 100, 0, 255);
    EXPECT_EQ(Render::frameStats().drawCalls, 3u);
    for (int x : {100, 300}) {
        expectBox(x + 1, 101, x + 8, 104, BLUE, YELLOW);
        expectBox(x + 45, 151, x + 48, 158, BLUE, YELLOW);
        EXPECT_EQ(rgbAt(x + 1, 121), BLACK);
        EXPECT_EQ(rgbAt(x + 8, 124), GREEN);
    }
    EXPECT_EQ(rgbAt(101, 125), BLUE);

    // init on a ready buffer gives the old name back; without buffer objects
    // the quads come from memory every time.
    const GLuint first = buffer.id;
    const auto savedGen = glGenBuffers;
    glGenBuffers = nullptr;
    const std::string log = logOf([&] { EXPECT_FALSE(buffer.init()); });
    glGenBuffers = savedGen;
    EXPECT_FALSE(glIsBuffer(first));
    EXPECT_TRUE(contains(log, "Buffer.init: Nie udalo sie dostac bufora (0, 0)")) << log;
    Render::flip();
    buffer.setSprite(quads);
    buffer.addFrame(0, Graphics::DIR_DOWN, 0, 0, 0, 0, 255, 255, 255, 255);
    Render::drawBuffer(&buffer, 40, 40, 0, 255);
    Render::drawBuffer(&buffer, 60, 40, 0, 255);
    expectBox(41, 41, 48, 44, BLUE, YELLOW);
    expectBox(61, 41, 68, 44, BLUE, YELLOW);
}

}  // namespace
