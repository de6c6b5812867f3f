#include "graphics/EffectSlide.h"

#include "graphics/EffectFade.h"
#include "graphics/Render.h"

namespace Effects {

void Slide::init(const std::string& spriteName, int32_t ms) {
    Effect::init(spriteName, ms);
    if (!sprite.sprite) return;
    float w = static_cast<float>(sprite.getW());
    float h = static_cast<float>(sprite.getH());
    float sx = static_cast<float>(sprite.getSX());
    float sy = static_cast<float>(sprite.getSY());
    float screenW = static_cast<float>(Render::getWidth());
    float screenH = static_cast<float>(Render::getHeight());
    // Start and end just outside the window, so the picture crosses it whole.
    switch (direction) {
        case LEFT_TO_RIGHT:
            from = Vector(sx - w, sy, 0, 0);
            to = Vector(sx + screenW, sy, 0, 0);
            break;
        case RIGHT_TO_LEFT:
            from = Vector(sx + screenW, sy, 0, 0);
            to = Vector(sx - w, sy, 0, 0);
            break;
        case TOP_TO_BOTTOM:
            from = Vector(sx, sy - h, 0, 0);
            to = Vector(sx, sy + screenH, 0, 0);
            break;
        case BOTTOM_TO_TOP:
            from = Vector(sx, sy + screenH, 0, 0);
            to = Vector(sx, sy - h, 0, 0);
            break;
        default:
            break;
    }
}

Vector Slide::positionAt(float t) const {
    return from + (to - from) * Vector(slideProgress(t, eased != 0));
}

void Slide::draw() {
    Vector at = positionAt(1.0f - remaining / lifetime);
    Render::drawSprite(&sprite, at.x, at.y, at.z, 0.0f);
}

}  // namespace Effects
