#include "GraphicsTest.h"
#include "graphics/ClassicCounter.h"

namespace {

using CounterTest = RenderTest;

// Empty bar: blue and yellow; full bar: red and green, each 16 pixels.
TEST_F(CounterTest, ClassicCounterShowsTheValuesShareOfTheFullBarOverTheEmptyOne) {
    ClassicCounter counter;
    counter.sprite.setSprite(spriteOf(stripImage(), {animOf({{16, 0, 16, 8}}), animOf({{0, 0, 16, 8}})}));
    counter.set(0, 100, 0);
    counter.update(0.1f);
    counter.draw(50, 50);
    counter.value = 150;  // clamped to the maximum
    counter.update(0.1f);
    counter.draw(50, 60);
    counter.value = 50;
    counter.update(0.1f);
    counter.draw(50, 70);
    expectBox(50, 50, 65, 57, BLUE, YELLOW);
    expectBox(50, 60, 65, 67, RED, GREEN);
    EXPECT_EQ(rgbAt(57, 70), RED);
    EXPECT_EQ(rgbAt(65, 70), YELLOW);
    // A drop leaves a ghost that falls by half the scale a second.
    EXPECT_FLOAT_EQ(counter.ghost, 95.0f);
}

}  // namespace
