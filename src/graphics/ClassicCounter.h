#pragma once
#include <cstdint>
#include <string>

#include "graphics/Counter.h"
#include "graphics/SpriteInstance.h"

// A bar cut from a sprite: frame 0 of slot 0 of animation 0 is the empty
// bar, frame 0 of slot 2 of animation 1 the full one. A faint "ghost" part
// trails behind a value that has dropped.
class ClassicCounter : public UI::Counter {
public:
    void update(float dt) override;
    void draw(float x, float y) override;
    void clear() override;
    virtual void setSprite(const std::string& name);

    Graphics::SpriteInstance sprite;
    int32_t reversed = 0;  // not 0: the bar fills from the right
    float ghost = 0.0f;
};
