#include <GL/glew.h>

#include "graphics/Buffer.h"
#include "graphics/RenderState.h"

namespace Render {

void drawVertices(Buffer* buffer) {
    if (buffer->count <= 0) return;
    if (buffer->id == 0) {
        // No buffer object: the vertices never leave memory.
        if (buffer->vertices.size() < static_cast<size_t>(buffer->count)) return;
        pointArraysAt(buffer->vertices.data());
        glDrawArrays(GL_QUADS, 0, buffer->count);
        state().frame.drawCalls++;
        return;
    }
    glBindBuffer(GL_ARRAY_BUFFER, buffer->id);
    // An empty array means the card already holds the quads.
    if (!buffer->vertices.empty()) {
        glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(buffer->vertices.size() * sizeof(Vertex)),
                     buffer->vertices.data(), GL_STATIC_DRAW);
        buffer->clear();
    }
    pointArraysAt(nullptr);
    glDrawArrays(GL_QUADS, 0, buffer->count);
    state().frame.drawCalls++;
    glBindBuffer(GL_ARRAY_BUFFER, 0);
}

void drawBuffer(Buffer* buffer, float x, float y, float z, float alpha) {
    if (!buffer) return;
    flush();
    buffer->bind();
    glPushMatrix();
    glMatrixMode(GL_MODELVIEW);
    glTranslatef(x, y, z);
    // The colour array stays on, so the vertex colours are what shows.
    glColor4f(1, 1, 1, alpha / 255);
    drawVertices(buffer);
    glColor4f(1, 1, 1, 1);
    glPopMatrix();
}

}  // namespace Render
