#include <GL/glew.h>
#include <gtest/gtest.h>

#include <array>
#include <string>

#include "gameplay/Arena.h"
#include "gameplay/Character.h"
#include "graphics/Render.h"

namespace {

const std::string DATA = std::string(KORVANE_SOURCE_DIR) + "/tests/data/gameplay/";

// A local world drawn into the real window: the body is a red 16 x 16
// square standing on its bottom middle, the shadow a blue 16 x 8 one centred
// on the floor point.
class CharacterDrawTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        static const bool opened = Render::init(800, 600, false);
        ASSERT_TRUE(opened) << "no window under this display";
    }

    void SetUp() override {
        Render::setCamera(nullptr);
        Render::flip();
        ASSERT_TRUE(arena.init(DATA + "arena.lua"));
        ASSERT_TRUE(fighter.init(DATA + "fighter.lua"));
        fighter.sprite.setSprite(DATA + "body.xml");
        fighter.shadow.setSprite(DATA + "shadow.xml");
        arena.addCharacter(&fighter);
        fighter.position = Vector(400.0f, 450.0f, 0.0f, 0.0f);
    }

    static std::array<uint8_t, 4> pixelAt(int x, int y) {
        Render::flush();
        std::array<uint8_t, 4> rgba{};
        glReadPixels(x, Render::getHeight() - 1 - y, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, rgba.data());
        return rgba;
    }

    std::array<uint8_t, 4> backgroundAt(int x, int y) {
        Render::flip();
        return pixelAt(x, y);
    }

    Arena arena;
    Character fighter;
};

TEST_F(CharacterDrawTest, BodyIsLiftedByTheHeightAndTheShadowStaysOnTheFloor) {
    fighter.position.z = 100.0f;
    arena.draw();
    std::array<uint8_t, 4> body = pixelAt(400, 342);  // 350 - 8: the middle of the body
    EXPECT_EQ(body[0], 255);
    EXPECT_EQ(body[1], 0);
    std::array<uint8_t, 4> onFloor = pixelAt(400, 450);
    EXPECT_EQ(onFloor[2], 255);
    EXPECT_NE(onFloor[0], 255);
    std::array<uint8_t, 4> belowBody = pixelAt(400, 440);  // neither body nor shadow
    EXPECT_NE(belowBody[0], 255);
}

TEST_F(CharacterDrawTest, ShadowFadesWithHeightAndIsGoneAt256) {
    std::array<uint8_t, 4> empty = backgroundAt(400, 450);

    fighter.position.z = 0.0f;
    arena.draw();
    std::array<uint8_t, 4> full = pixelAt(400, 452);
    Render::flip();
    fighter.position.z = 128.0f;
    arena.draw();
    std::array<uint8_t, 4> half = pixelAt(400, 452);
    Render::flip();
    fighter.position.z = 256.0f;
    arena.draw();
    std::array<uint8_t, 4> gone = pixelAt(400, 452);

    // Blue over the background: the green of the background shows through
    // in proportion to the shadow's transparency.
    EXPECT_EQ(full[1], 0);
    EXPECT_NEAR(half[1], empty[1] * 128 / 255, 2);
    EXPECT_EQ(gone, empty);
}

TEST_F(CharacterDrawTest, ServerWorldsDrawNothing) {
    std::array<uint8_t, 4> empty = backgroundAt(400, 445);
    Character serverFighter;
    serverFighter.objectType = OBJECT_SERVER;
    ASSERT_TRUE(serverFighter.init(DATA + "fighter.lua"));
    serverFighter.sprite.setSprite(DATA + "body.xml");
    serverFighter.position = Vector(400.0f, 450.0f, 0.0f, 0.0f);
    serverFighter.draw();
    EXPECT_EQ(pixelAt(400, 445), empty);
}

TEST_F(CharacterDrawTest, BackLayersStandBehindTheFightersAndFrontLayersBeforeThem) {
    // The blue shadow picture as a layer over the middle of the red body.
    arena.addLayer(Vector(400.0f, 442.0f, -1.0f, 0.0f), DATA + "shadow.xml");
    arena.draw();
    std::array<uint8_t, 4> behind = pixelAt(400, 442);
    EXPECT_GT(behind[0], 200);
    EXPECT_LT(behind[2], 50);

    Render::flip();
    arena.layers.back()->position.z = 1.0f;
    arena.draw();
    std::array<uint8_t, 4> before = pixelAt(400, 442);
    EXPECT_LT(before[0], 50);
    EXPECT_GT(before[2], 200);
}

}  // namespace
