#pragma once
#include <cstdint>
#include <vector>

#include "graphics/Render.h"

namespace Render {

// Quads built once, kept in a vertex buffer object and drawn many times at
// different offsets. Vertices wait in memory until the next draw uploads them.
// Without a buffer object the draw uses the vertices in memory instead.
class Buffer {
public:
    Buffer() = default;
    Buffer(const Buffer&) = delete;
    Buffer& operator=(const Buffer&) = delete;
    virtual ~Buffer();

    virtual bool init();
    virtual void free();
    // Drops the vertices in memory; count stays, so what was uploaded still draws.
    virtual void clear();
    // Binds the texture the quads are cut from.
    virtual void bind() = 0;

    uint32_t id = 0;
    int32_t count = 0;
    bool ready = false;
    std::vector<Vertex> vertices;
};

// Kept for completeness of the family; nothing fills it.
class Buffer3D : public Buffer {
public:
    void free() override {}
    void bind() override {}
};

}  // namespace Render
