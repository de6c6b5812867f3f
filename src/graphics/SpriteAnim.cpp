#include "graphics/SpriteAnim.h"

#include <cstddef>

namespace Graphics {

const Frame* Dir::frame(int32_t number) const {
    if (number < 0 || number >= frameCount()) return nullptr;
    return &frames[static_cast<size_t>(number)];
}

Anim::Anim() : dirs{} {}

Anim::~Anim() {
    for (int32_t slot = 0; slot < DIR_SLOTS; ++slot) {
        Dir* dir = dirs[slot];
        if (!dir) continue;
        // Empty every slot that shares it before deleting, so it goes once.
        for (Dir*& other : dirs)
            if (other == dir) other = nullptr;
        delete dir;
    }
}

bool Anim::holds(const Dir* dir) const {
    for (const Dir* held : dirs)
        if (held == dir) return true;
    return false;
}

void Anim::setDir(int32_t slot, Dir* dir) {
    if (slot < 0 || slot >= DIR_SLOTS) {
        if (!holds(dir)) delete dir;
        return;
    }
    Dir* old = dirs[slot];
    if (old == dir) return;
    if (!dirs[DIR_DOWN]) {
        for (Dir*& each : dirs) each = dir;
    } else if (slot == DIR_DOWN) {
        for (Dir*& each : dirs)
            if (!each) each = dir;
    }
    dirs[slot] = dir;
    if (old && !holds(old)) delete old;
}

Dir* Anim::dir(int32_t slot) const {
    if (slot < 0 || slot >= DIR_SLOTS) return nullptr;
    return dirs[slot];
}

}  // namespace Graphics
