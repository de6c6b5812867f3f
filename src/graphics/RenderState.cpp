#include "graphics/RenderState.h"

#include <GL/glew.h>
#include <cstddef>
#include <cstdint>

namespace Render {

State& state() {
    static State s;
    return s;
}

void pointArraysAt(const Vertex* base) {
    // Integer arithmetic: with a bound buffer `base` is null and the pointers
    // are plain byte offsets.
    uintptr_t start = reinterpret_cast<uintptr_t>(base);
    auto at = [start](size_t offset) { return reinterpret_cast<const void*>(start + offset); };
    glVertexPointer(3, GL_FLOAT, sizeof(Vertex), at(offsetof(Vertex, x)));
    glTexCoordPointer(2, GL_FLOAT, sizeof(Vertex), at(offsetof(Vertex, u)));
    glColorPointer(4, GL_UNSIGNED_BYTE, sizeof(Vertex), at(offsetof(Vertex, r)));
}

}  // namespace Render
