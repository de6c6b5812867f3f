// Sprites through the quad batch: a frame is a rectangle of the sprite's
// image, placed with its (sx, sy) point on the drawing position.
#include "graphics/Render.h"
#include "graphics/Sprite.h"
#include "graphics/SpriteAnim.h"
#include "graphics/SpriteInstance.h"

namespace Render {

namespace {

void drawFrameOf(const Graphics::Sprite* sprite, const Graphics::Frame* frame, float x, float y, float z,
                 float angle) {
    if (!sprite || !frame || !sprite->image) return;
    drawImage(sprite->image, x, y, z, frame->x, frame->y, frame->w, frame->h, angle, static_cast<float>(frame->sx),
              static_cast<float>(frame->sy));
}

}  // namespace

void drawFrame(Graphics::Sprite* sprite, float x, float y, float z, float angle, int32_t anim, int32_t dir,
               int32_t frame) {
    if (!sprite) return;
    const Graphics::Anim* animation = sprite->anim(anim);
    const Graphics::Dir* direction = animation ? animation->dir(dir) : nullptr;
    drawFrameOf(sprite, direction ? direction->frame(frame) : nullptr, x, y, z, angle);
}

void drawSprite(Graphics::SpriteInstance* instance, float x, float y, float z, float angle) {
    if (!instance) return;
    drawFrameOf(instance->sprite, instance->currentFrame(), x, y, z, angle);
}

}  // namespace Render
