#include <GL/glew.h>

#include "graphics/Image.h"
#include "graphics/RenderState.h"
#include "graphics/Vector.h"

namespace Render {

namespace {

const float DEGREES_TO_RADIANS = 0.017453292f;

}  // namespace

void bindTexture(uint32_t name) {
    State& s = state();
    if (name == s.boundTexture) return;
    // Quads already batched belong to the old texture.
    flush();
    s.boundTexture = name;
    glBindTexture(GL_TEXTURE_2D, name);
}

void flush() {
    State& s = state();
    if (s.batch.empty()) return;
    pointArraysAt(s.batch.data());
    glDrawArrays(GL_QUADS, 0, static_cast<GLsizei>(s.batch.size()));
    s.frame.drawCalls++;
    s.frame.quads += static_cast<uint32_t>(s.batch.size() / 4);
    // clear() keeps the capacity for the next frame.
    s.batch.clear();
}

void drawImage(const Graphics::Image* image, float x, float y, float z, int32_t tx, int32_t ty,
               int32_t tw, int32_t th, float angle, float ox, float oy) {
    if (!image || image->width <= 0 || image->height <= 0) return;
    State& s = state();
    bindTexture(image->texture);
    float sn, cs;
    sinCos(angle * DEGREES_TO_RADIANS, sn, cs);
    const float iw = static_cast<float>(image->width);
    const float ih = static_cast<float>(image->height);
    const float corners[4][2] = {{0, 0},
                                 {static_cast<float>(tw), 0},
                                 {static_cast<float>(tw), static_cast<float>(th)},
                                 {0, static_cast<float>(th)}};
    const uint8_t* c = s.color;
    for (const auto& corner : corners) {
        const float dx = corner[0], dy = corner[1];
        const float px = dx - ox, py = dy - oy;
        s.batch.emplace_back(cs * px - sn * py + x, cs * py + sn * px + y, z, (tx + dx) / iw,
                             (ty + dy) / ih, c[3], c[0], c[1], c[2]);
    }
}

void drawImage(const Graphics::Image* image, float x, float y, float z, float angle, float ox,
               float oy) {
    if (!image) return;
    drawImage(image, x, y, z, 0, 0, image->width, image->height, angle, ox, oy);
}

const Stats& frameStats() { return state().frame; }

const Stats& lastFrameStats() { return state().lastFrame; }

}  // namespace Render
