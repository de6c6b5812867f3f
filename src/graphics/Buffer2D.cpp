#include "graphics/Buffer2D.h"

#include "graphics/Image.h"
#include "graphics/Sprite.h"
#include "graphics/Vector.h"

namespace Render {

void Buffer2D::free() {
    sprite.setSprite(static_cast<Graphics::Sprite*>(nullptr));
    Buffer::free();
}

void Buffer2D::bind() {
    const Graphics::Sprite* shared = sprite.sprite;
    if (shared && shared->image) bindTexture(shared->image->texture);
}

void Buffer2D::setSprite(const std::string& name) { sprite.setSprite(name); }

void Buffer2D::setSprite(const Graphics::SpriteInstance& instance) { sprite.setSprite(instance); }

void Buffer2D::addFrame(int32_t anim, int32_t dir, int32_t frame, float x, float y, float angle, uint8_t a,
                        uint8_t r, uint8_t g, uint8_t b) {
    const Graphics::Sprite* shared = sprite.sprite;
    if (!shared) return;
    const Graphics::Anim* animation = shared->anim(anim);
    const Graphics::Dir* direction = animation ? animation->dir(dir) : nullptr;
    const Graphics::Frame* f = direction ? direction->frame(frame) : nullptr;
    if (!f) return;
    // Without a picture the coordinates have no divisor; the quads still count.
    const float iw = shared->image && shared->image->width > 0 ? static_cast<float>(shared->image->width) : 1.0f;
    const float ih = shared->image && shared->image->height > 0 ? static_cast<float>(shared->image->height) : 1.0f;
    float s = 0.0f, c = 1.0f;
    sinCos(angle, s, c);
    const float corners[4][2] = {{0, 0}, {static_cast<float>(f->w), 0},
                                 {static_cast<float>(f->w), static_cast<float>(f->h)}, {0, static_cast<float>(f->h)}};
    for (const auto& corner : corners) {
        const float px = corner[0] + static_cast<float>(f->sx);
        const float py = corner[1] + static_cast<float>(f->sy);
        vertices.emplace_back(c * px - s * py + x, c * py + s * px + y, 0.0f, (static_cast<float>(f->x) + corner[0]) / iw,
                              (static_cast<float>(f->y) + corner[1]) / ih, a, r, g, b);
    }
    count = static_cast<int32_t>(vertices.size());
}

void Buffer2D::addVertex(float x, float y, float z, float u, float v, uint8_t a, uint8_t r, uint8_t g, uint8_t b) {
    addVertex(Vertex(x, y, z, u, v, a, r, g, b));
}

void Buffer2D::addVertex(const Vertex& vertex) {
    vertices.push_back(vertex);
    count = static_cast<int32_t>(vertices.size());
}

}  // namespace Render
