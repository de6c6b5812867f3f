#include "graphics/ClassicCounter.h"

#include <cstdint>

#include "graphics/Render.h"
#include "graphics/Sprite.h"

namespace {

// The ghost falls by this share of the scale per second.
const float GHOST_FALL_RATE = 0.5f;
const uint8_t GHOST_ALPHA = 64;

const Graphics::Frame* firstFrame(const Graphics::Sprite* sprite, int32_t anim, int32_t slot) {
    const Graphics::Anim* found = sprite ? sprite->anim(anim) : nullptr;
    const Graphics::Dir* dir = found ? found->dir(slot) : nullptr;
    return dir ? dir->frame(0) : nullptr;
}

// Whole pixels, and no undefined conversion for a value far out of range.
int32_t truncated(float v) {
    if (!(v > -2147483520.0f)) return v != v ? 0 : INT32_MIN;
    if (v > 2147483520.0f) return INT32_MAX;
    return static_cast<int32_t>(v);
}

}  // namespace

void ClassicCounter::setSprite(const std::string& name) { sprite.setSprite(name); }

void ClassicCounter::clear() { sprite.setSprite(static_cast<Graphics::Sprite*>(nullptr)); }

void ClassicCounter::update(float dt) {
    if (value < min) value = min;
    if (value > max) value = max;
    if (ghost > max) ghost = max;
    if (ghost <= value)
        ghost = value;
    else
        ghost -= (max - min) * dt * GHOST_FALL_RATE;
}

void ClassicCounter::draw(float x, float y) {
    Graphics::Sprite* bar = sprite.sprite;
    const Graphics::Frame* full = firstFrame(bar, 1, Graphics::DIR_DOWN);
    if (!bar || !bar->image || !full) return;
    if (firstFrame(bar, 0, Graphics::DIR_RIGHT)) Render::drawFrame(bar, x, y, 0.0f, 0.0f, 0, Graphics::DIR_RIGHT, 0);

    const float range = max - min;
    if (range == 0.0f) return;
    const float fw = static_cast<float>(full->w);
    const float part = fw * value / range;
    const float g = fw * (ghost - value) / range;
    // Rectangles stand on whole pixels of the picture.
    auto piece = [&](float tx, float tw, float px) {
        Render::drawImage(bar->image, px, y, 0.0f, truncated(static_cast<float>(full->x) + tx), full->y,
                          truncated(tw), full->h, 0.0f, static_cast<float>(full->sx),
                          static_cast<float>(full->sy));
    };
    const bool showGhost = ghost != value;
    if (reversed == 0) {
        if (showGhost) {
            Render::setColor(255, 255, 255, GHOST_ALPHA);
            piece(part, g, x + part);
        }
        Render::setColor(255, 255, 255, 255);
        piece(0.0f, part, x);
    } else {
        if (showGhost) {
            Render::setColor(255, 255, 255, GHOST_ALPHA);
            piece(fw - part - g, g, x + fw - part - g - 1.0f);
        }
        Render::setColor(255, 255, 255, 255);
        piece(fw - part, part, x + fw - part - 0.5f);
    }
}
