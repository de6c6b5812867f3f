#pragma once

namespace UI {

// A bar that shows a value between two limits.
class Counter {
public:
    virtual ~Counter() = default;
    virtual void set(float newMin, float newMax, float newValue);
    virtual void update(float dt) = 0;
    virtual void draw(float x, float y) = 0;
    virtual void clear() {}

    float min = 0.0f;
    float max = 100.0f;
    float value = 50.0f;
};

}  // namespace UI
