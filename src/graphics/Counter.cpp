#include "graphics/Counter.h"

namespace UI {

void Counter::set(float newMin, float newMax, float newValue) {
    min = newMin;
    max = newMax;
    value = newValue;
}

}  // namespace UI
