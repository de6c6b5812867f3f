#pragma once
#include <cstdint>
#include <string>

#include "graphics/Buffer.h"
#include "graphics/SpriteInstance.h"

namespace Render {

// Quads cut from one sprite's image. The instance keeps the sprite, and with
// it the texture, alive while the quads may still be drawn.
class Buffer2D : public Buffer {
public:
    void free() override;
    void bind() override;

    void setSprite(const std::string& name);
    void setSprite(const Graphics::SpriteInstance& instance);
    // One frame's quad with its (sx, sy) point added to x, y, turned by
    // `angle` radians about x, y. Nothing for a frame the sprite lacks.
    void addFrame(int32_t anim, int32_t dir, int32_t frame, float x, float y, float angle, uint8_t a, uint8_t r,
                  uint8_t g, uint8_t b);
    void addVertex(float x, float y, float z, float u, float v, uint8_t a, uint8_t r, uint8_t g, uint8_t b);
    void addVertex(const Vertex& vertex);

    Graphics::SpriteInstance sprite;
};

}  // namespace Render
