#pragma once
#include <cstdint>

#include "graphics/Vector.h"

namespace Render {

// Which part of the world the window shows: a viewport on the window and the
// world point that comes to its top left corner.
class Camera {
public:
    Camera() = default;
    virtual ~Camera() = default;
    virtual void update() {}
    virtual void setPosition(Vector position) { this->position = position; }

    void init(float x, float y, float width, float height, Vector position);

    float getX() const { return position.x; }
    float getY() const { return position.y; }
    float getZ() const { return position.z; }
    // Truncated, so that a picture never stands between two pixels.
    int32_t getIntX() const { return static_cast<int32_t>(position.x); }
    int32_t getIntY() const { return static_cast<int32_t>(position.y); }
    int32_t getIntZ() const { return static_cast<int32_t>(position.z); }
    float getViewX() const { return viewX; }
    float getViewY() const { return viewY; }
    float getViewWidth() const { return viewWidth; }
    float getViewHeight() const { return viewHeight; }

    Vector position;
    float viewX = 0, viewY = 0, viewWidth = 0, viewHeight = 0;
};

// A camera meant to glide towards a target. How it should move has never been
// settled (update() gets no frame time), so for now setPosition only records
// the target and the picture stays where it is.
class MovingCamera : public Camera {
public:
    MovingCamera() = default;
    void setPosition(Vector position) override { target = position; }

    Vector target;
    float speed = 100.0f;
    int32_t state = 0;
};

}  // namespace Render
