#include <GL/glew.h>

#include "WorldFixture.h"
#include "graphics/Render.h"

namespace {

// A local fighter drawn into the real window: its body is a red 16 x 16
// square standing on its bottom middle, its shadow a blue 16 x 8 one centred
// on the floor point (400, 450).
TEST(CharacterDrawTest, TheBodyRisesWithTheHeightAndTheShadowFadesOutBy256) {
    ASSERT_TRUE(Render::init(800, 600, false)) << "no window under this display";
    Render::setCamera(nullptr);
    Character fighter;
    ASSERT_TRUE(fighter.init(dataPath("fighter.lua")));
    fighter.sprite.setSprite(dataPath("body.xml"));
    fighter.shadow.setSprite(dataPath("shadow.xml"));
    // Red and green at (400, y) with the fighter at that height; nothing drawn below 0.
    auto drawnAt = [&](float height, int y) {
        Render::flip();
        fighter.position = Vector(400.0f, 450.0f, height, 0.0f);
        if (height >= 0.0f) fighter.draw();
        Render::flush();
        uint8_t rgba[4];
        glReadPixels(400, Render::getHeight() - 1 - y, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, rgba);
        return std::vector<int>{rgba[0], rgba[1]};
    };
    EXPECT_EQ(drawnAt(100.0f, 342), (std::vector<int>{255, 0}));  // 350 - 8: the middle of the lifted body
    EXPECT_NE(drawnAt(100.0f, 440)[0], 255);  // under it: neither body nor shadow
    // The blue shadow over the background, whose green shows through as it fades.
    std::vector<int> empty = drawnAt(-1.0f, 452);
    EXPECT_EQ(drawnAt(0.0f, 452)[1], 0);
    EXPECT_NEAR(drawnAt(128.0f, 452)[1], empty[1] * 128 / 255, 2);
    EXPECT_EQ(drawnAt(256.0f, 452), empty);
}

}  // namespace
