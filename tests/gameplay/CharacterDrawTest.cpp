#include <GL/glew.h>

#include <array>

#include "WorldFixture.h"
#include "graphics/Render.h"

namespace {

using Pixel = std::array<uint8_t, 4>;

Pixel readAt(int x, int y) {
    Render::flush();
    Pixel rgba{};
    glReadPixels(x, Render::getHeight() - 1 - y, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, rgba.data());
    return rgba;
}

// A local world drawn into the real window: the body is a red 16 x 16 square
// standing on its bottom middle, the shadow a blue 16 x 8 one centred on the
// floor point (400, 450). A blue layer goes behind the body, then before it.
TEST(CharacterDrawTest, TheBodyRisesTheShadowFadesOutBy256AndLayersStandBehindOrBefore) {
    ASSERT_TRUE(Render::init(800, 600, false)) << "no window under this display";
    Render::setCamera(nullptr);
    Arena arena;
    Character fighter;
    ASSERT_TRUE(arena.init(dataPath("arena.lua")));
    ASSERT_TRUE(fighter.init(dataPath("fighter.lua")));
    fighter.sprite.setSprite(dataPath("body.xml"));
    fighter.shadow.setSprite(dataPath("shadow.xml"));
    arena.addCharacter(&fighter);
    auto drawnAt = [&](float height, int x, int y) {
        Render::flip();
        fighter.position = Vector(400.0f, 450.0f, height, 0.0f);
        arena.draw();
        return readAt(x, y);
    };
    Pixel body = drawnAt(100.0f, 400, 342);  // 350 - 8: the middle of the lifted body
    EXPECT_EQ(body[0], 255);
    EXPECT_EQ(body[1], 0);
    EXPECT_NE(drawnAt(100.0f, 400, 440)[0], 255);  // under it: neither body nor shadow

    // Blue over the background, whose green shows through as the shadow fades.
    Render::flip();
    Pixel empty = readAt(400, 452);
    EXPECT_EQ(drawnAt(0.0f, 400, 452)[1], 0);
    EXPECT_NEAR(drawnAt(128.0f, 400, 452)[1], empty[1] * 128 / 255, 2);
    EXPECT_EQ(drawnAt(256.0f, 400, 452), empty);

    arena.addLayer(Vector(400.0f, 442.0f, -1.0f, 0.0f), dataPath("shadow.xml"));
    EXPECT_GT(drawnAt(0.0f, 400, 442)[0], 200);
    arena.layers.back()->position.z = 1.0f;
    EXPECT_LT(drawnAt(0.0f, 400, 442)[0], 50);
}

}  // namespace
