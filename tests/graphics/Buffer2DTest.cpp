#include <gtest/gtest.h>

#include "graphics/Buffer2D.h"
#include "graphics/Image.h"
#include "graphics/Sprite.h"

namespace {

// One frame 4 by 2 at (8, 0) of a 16 by 4 picture, its (sx, sy) at (1, 1).
Graphics::Sprite* makeSprite(Graphics::Image& image) {
    image.width = 16;
    image.height = 4;
    auto* sprite = new Graphics::Sprite;
    sprite->image = &image;  // not counted: the picture is the test's
    auto* dir = new Graphics::Dir;
    Graphics::Frame frame;
    frame.x = 8;
    frame.w = 4;
    frame.h = 2;
    frame.sx = frame.sy = 1;
    dir->addFrame(frame);
    auto* anim = new Graphics::Anim;
    anim->setDir(Graphics::DIR_DOWN, dir);
    sprite->addAnim(anim, "");
    return sprite;
}

TEST(Buffer2DTest, FrameQuadAddsItsPointAndTurnsInRadians) {
    Graphics::Image image;
    Graphics::Sprite* sprite = makeSprite(image);
    Render::Buffer2D buffer;
    buffer.setSprite(Graphics::SpriteInstance(sprite));
    buffer.addFrame(0, Graphics::DIR_DOWN, 0, 10, 20, 0.0f, 200, 1, 2, 3);
    buffer.addFrame(0, Graphics::DIR_DOWN, 0, 10, 20, 1.5707964f, 255, 255, 255, 255);
    buffer.addFrame(3, Graphics::DIR_DOWN, 0, 0, 0, 0.0f, 255, 255, 255, 255);  // no such animation
    ASSERT_EQ(buffer.count, 8);
    const Render::Vertex& first = buffer.vertices[0];
    EXPECT_FLOAT_EQ(first.x, 11.0f);
    EXPECT_FLOAT_EQ(first.y, 21.0f);
    EXPECT_EQ(first.a * 1000 + first.r * 100 + first.g * 10 + first.b, 200123);
    EXPECT_FLOAT_EQ(buffer.vertices[2].x, 15.0f);
    EXPECT_FLOAT_EQ(buffer.vertices[2].y, 23.0f);
    EXPECT_FLOAT_EQ(buffer.vertices[2].u, 0.75f);
    EXPECT_FLOAT_EQ(buffer.vertices[2].v, 0.5f);
    // A quarter turn maps (px, py) = (5, 3) to (-3, 5) about the position.
    EXPECT_NEAR(buffer.vertices[6].x, 7.0f, 1e-4);
    EXPECT_NEAR(buffer.vertices[6].y, 25.0f, 1e-4);

    buffer.free();
    EXPECT_EQ(buffer.sprite.sprite, nullptr);
}

}  // namespace
