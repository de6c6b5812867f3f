#pragma once
#include <cstdint>
#include <vector>

#include "graphics/Camera.h"
#include "graphics/Render.h"

struct SDL_Surface;

// Module state of Render, shared by its source files and by nothing else.
namespace Render {

struct State {
    State() : camera(&defaultCamera) {}

    int32_t width = 800;
    int32_t height = 600;
    const char* caption = "Korvane";
    uint32_t videoFlags = 0;
    SDL_Surface* icon = nullptr;
    SDL_Surface* screen = nullptr;
    uint8_t color[4] = {255, 255, 255, 255};
    int32_t mode = MODE_WORLD_IMAGES;
    Camera* camera;
    Camera defaultCamera;
    uint32_t boundTexture = 0;
    std::vector<Vertex> batch;
    Stats frame;
    Stats lastFrame;
};

State& state();

// Points the vertex, texture coordinate and colour arrays at interleaved
// vertices starting at `base` (a pointer or a byte offset into a bound buffer).
void pointArraysAt(const Vertex* base);

}  // namespace Render
