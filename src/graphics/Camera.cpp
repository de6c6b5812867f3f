#include "graphics/Camera.h"

namespace Render {

void Camera::init(float x, float y, float width, float height, Vector position) {
    viewX = x;
    viewY = y;
    viewWidth = width;
    viewHeight = height;
    this->position = position;
}

}  // namespace Render
