#pragma once
#include <GL/glew.h>
#include <SDL/SDL.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>

#include "graphics/Image.h"
#include "graphics/ImageManager.h"
#include "graphics/Render.h"

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

    // Tests hold no image past their end.
    void TearDown() override { ImageManager::clear(); }

    // RGBA bytes of one window pixel, y downwards, from the frame being drawn.
    static std::array<uint8_t, 4> pixelAt(int x, int y) {
        Render::flush();
        std::array<uint8_t, 4> rgba{};
        glReadPixels(x, Render::getHeight() - 1 - y, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, rgba.data());
        return rgba;
    }

    static bool isBackground(const std::array<uint8_t, 4>& p) {
        return p[0] == 0 && p[1] >= 126 && p[1] <= 129 && p[2] == 255;
    }

    // A picture of one colour, registered under `name`.
    static Graphics::Image* solidImage(const std::string& name, int w, int h, uint8_t r, uint8_t g,
                                       uint8_t b, uint8_t a = 255) {
        SDL_Surface* s = SDL_CreateRGBSurface(SDL_SWSURFACE, w, h, 32, 0x000000ff, 0x0000ff00,
                                              0x00ff0000, 0xff000000);
        SDL_FillRect(s, nullptr, SDL_MapRGBA(s->format, r, g, b, a));
        Graphics::Image* image = ImageManager::load(name, s);
        SDL_FreeSurface(s);
        return image;
    }
};
