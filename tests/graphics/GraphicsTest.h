#pragma once
#include <GL/glew.h>
#include <SDL/SDL.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "TestSupport.h"
#include "graphics/Image.h"
#include "graphics/ImageManager.h"
#include "graphics/Render.h"
#include "graphics/Sprite.h"
#include "graphics/SpriteManager.h"

using TestSupport::logOf;

inline bool contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

// An animation showing these frames in every direction slot.
inline Graphics::Anim* animOf(std::vector<Graphics::Frame> frames, float spd = 0) {
    auto* anim = new Graphics::Anim;
    anim->setDir(Graphics::DIR_DOWN, new Graphics::Dir{spd, 0, std::move(frames)});
    return anim;
}

// A sprite outside SpriteManager: the last instance that lets go deletes it.
inline Graphics::Sprite* spriteOf(Graphics::Image* image, std::vector<Graphics::Anim*> anims) {
    auto* sprite = new Graphics::Sprite;
    sprite->setImage(image);
    for (Graphics::Anim* anim : anims) sprite->addAnim(anim, "");
    return sprite;
}

const uint32_t RED = 0xff0000, GREEN = 0x00ff00, BLUE = 0x0000ff, YELLOW = 0xffff00, WHITE = 0xffffff,
               BLACK = 0, SKY = 0x0080ff;

// Drawing tests share one window per process and start every test from the
// state a frame starts in: mode 2, white, camera at the origin, screen cleared.
class RenderTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        static const bool opened = Render::init(800, 600, false);
        ASSERT_TRUE(opened) << "no window: " << SDL_GetError();
    }
    void SetUp() override {
        Render::setCamera(nullptr);
        Render::flip();
    }
    void TearDown() override {
        SpriteManager::clear();
        ImageManager::clear();
    }

    // 0xRRGGBB of one window pixel, y downwards; the clear colour reads as SKY.
    static uint32_t rgbAt(int x, int y) {
        Render::flush();
        uint8_t p[4] = {};
        glReadPixels(x, Render::getHeight() - 1 - y, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, p);
        if (p[0] == 0 && p[1] >= 126 && p[1] <= 129 && p[2] == 255) return SKY;
        return uint32_t(p[0]) << 16 | uint32_t(p[1]) << 8 | p[2];
    }

    // A picture covers exactly the pixels from (left, top) to (right, bottom).
    static void expectBox(int left, int top, int right, int bottom, uint32_t topLeft, uint32_t bottomRight) {
        SCOPED_TRACE(::testing::Message() << "box " << left << "," << top << " to " << right << "," << bottom);
        EXPECT_EQ(rgbAt(left, top), topLeft);
        EXPECT_EQ(rgbAt(right, bottom), bottomRight);
        EXPECT_EQ(rgbAt(left - 1, top), SKY);
        EXPECT_EQ(rgbAt(left, top - 1), SKY);
        EXPECT_EQ(rgbAt(right + 1, bottom), SKY);
        EXPECT_EQ(rgbAt(right, bottom + 1), SKY);
    }

    // 8 by 8 blocks side by side in these colours.
    static Graphics::Image* blockImage(const std::string& name, const std::vector<uint32_t>& colours) {
        SDL_Surface* s = SDL_CreateRGBSurface(SDL_SWSURFACE, 8 * int(colours.size()), 8, 32, 0xff0000, 0xff00, 0xff, 0);
        for (size_t i = 0; i < colours.size(); ++i) {
            SDL_Rect block = {Sint16(i * 8), 0, 8, 8};
            SDL_FillRect(s, &block, colours[i]);
        }
        Graphics::Image* image = ImageManager::load(name, s);
        SDL_FreeSurface(s);
        return image;
    }
    static Graphics::Image* stripImage() { return blockImage("strip", {RED, GREEN, BLUE, YELLOW}); }
};
