#pragma once
#include "graphics/Effect.h"
#include "graphics/Vector.h"

namespace Effects {

// A picture that crosses the whole window once over its lifetime.
class Slide : public Effect {
public:
    enum : int32_t {
        LEFT_TO_RIGHT = 0,
        RIGHT_TO_LEFT = 1,
        TOP_TO_BOTTOM = 2,
        BOTTOM_TO_TOP = 3,
    };

    // direction must be set before; it fixes from and to.
    void init(const std::string& spriteName, int32_t ms) override;
    void draw() override;

    // Where the picture stands at this share (0 to 1) of its life.
    Vector positionAt(float t) const;

    int32_t direction = LEFT_TO_RIGHT;
    int32_t eased = 0;  // 0 is linear
    Vector from;
    Vector to;
};

}  // namespace Effects
