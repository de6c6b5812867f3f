#include <GL/glew.h>

#include "RenderTestSupport.h"
#include "TestSupport.h"
#include "graphics/Buffer.h"

namespace {

// A buffer over one test image, filled with whole-image quads by hand.
class ImageBuffer : public Render::Buffer {
public:
    explicit ImageBuffer(const Graphics::Image* image) : image(image) {}
    void bind() override { Render::bindTexture(image->texture); }
    void addQuad(float x, float y, uint8_t alpha) {
        const float w = static_cast<float>(image->width), h = static_cast<float>(image->height);
        vertices.emplace_back(x, y, 0, 0, 0, alpha, 255, 255, 255);
        vertices.emplace_back(x + w, y, 0, 1, 0, alpha, 255, 255, 255);
        vertices.emplace_back(x + w, y + h, 0, 1, 1, alpha, 255, 255, 255);
        vertices.emplace_back(x, y + h, 0, 0, 1, alpha, 255, 255, 255);
        count = static_cast<int32_t>(vertices.size());
    }

private:
    const Graphics::Image* image;
};

class BufferTest : public RenderTest {
protected:
    void SetUp() override {
        RenderTest::SetUp();
        red = solidImage("buffer_red", 4, 4, 255, 0, 0);
        ASSERT_NE(red, nullptr);
    }
    bool isRed(int x, int y) {
        auto p = pixelAt(x, y);
        return p[0] == 255 && p[1] == 0 && p[2] == 0;
    }
    Graphics::Image* red = nullptr;
};

TEST_F(BufferTest, UploadsOnceAndDrawsAtAnyOffset) {
    ImageBuffer buffer(red);
    ASSERT_TRUE(buffer.init());
    EXPECT_TRUE(buffer.ready);
    buffer.addQuad(0, 0, 255);
    buffer.addQuad(10, 0, 255);

    Render::drawBuffer(&buffer, 100, 100, 0, 255);
    EXPECT_TRUE(buffer.vertices.empty()) << "the copy in memory should go once uploaded";
    EXPECT_EQ(buffer.count, 8);
    Render::drawBuffer(&buffer, 200, 150, 0, 255);
    EXPECT_TRUE(isRed(100, 100));
    EXPECT_TRUE(isRed(111, 103));
    EXPECT_TRUE(isRed(200, 150));
    EXPECT_TRUE(isRed(213, 153));
    EXPECT_TRUE(isBackground(pixelAt(105, 100)));
    EXPECT_EQ(Render::frameStats().drawCalls, 2u);

    // A rebuild replaces what the card holds.
    buffer.clear();
    buffer.addQuad(50, 0, 255);
    Render::drawBuffer(&buffer, 0, 300, 0, 255);
    EXPECT_TRUE(isRed(50, 300));
    EXPECT_EQ(buffer.count, 4);
}

TEST_F(BufferTest, DrawingABufferEndsTheBatch) {
    ImageBuffer buffer(red);
    ASSERT_TRUE(buffer.init());
    buffer.addQuad(0, 0, 255);
    Graphics::Image* blue = solidImage("buffer_blue", 4, 4, 0, 0, 255);
    Render::drawImage(blue, 0, 0, 0, 0, 0, 0);
    Render::drawBuffer(&buffer, 0, 0, 0, 255);
    // The buffer is drawn on top of what was batched before it.
    EXPECT_TRUE(isRed(1, 1));
    EXPECT_EQ(Render::frameStats().drawCalls, 2u);
}

TEST_F(BufferTest, NeverFilledBufferDrawsNothing) {
    ImageBuffer buffer(red);
    ASSERT_TRUE(buffer.init());
    Render::drawBuffer(&buffer, 0, 0, 0, 255);
    EXPECT_EQ(Render::frameStats().drawCalls, 0u);
}

TEST_F(BufferTest, WithoutBufferObjectsQuadsComeFromMemory) {
    const auto savedGen = glGenBuffers;
    glGenBuffers = nullptr;
    ImageBuffer buffer(red);
    bool gotOne;
    std::string log;
    {
        TestSupport::CapturedStdout out;
        gotOne = buffer.init();
        log = out.text();
    }
    glGenBuffers = savedGen;
    EXPECT_FALSE(gotOne);
    EXPECT_FALSE(buffer.ready);
    EXPECT_NE(log.find("Buffer.init: Nie udalo sie dostac bufora (0, 0)"), std::string::npos);

    buffer.addQuad(0, 0, 255);
    Render::drawBuffer(&buffer, 40, 40, 0, 255);
    Render::drawBuffer(&buffer, 60, 40, 0, 255);
    EXPECT_TRUE(isRed(40, 40));
    EXPECT_TRUE(isRed(60, 40));
    EXPECT_EQ(buffer.vertices.size(), 4u);
}

TEST_F(BufferTest, InitAgainGivesTheOldNameBack) {
    ImageBuffer buffer(red);
    ASSERT_TRUE(buffer.init());
    buffer.addQuad(0, 0, 255);
    Render::drawBuffer(&buffer, 0, 0, 0, 255);
    const GLuint first = buffer.id;
    ASSERT_TRUE(glIsBuffer(first));
    ASSERT_TRUE(buffer.init());
    EXPECT_TRUE(first == buffer.id || !glIsBuffer(first));
    buffer.free();
    EXPECT_EQ(buffer.id, 0u);
    EXPECT_FALSE(buffer.ready);
}

}  // namespace
