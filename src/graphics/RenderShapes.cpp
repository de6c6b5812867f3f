#include <GL/glew.h>

#include "graphics/RenderState.h"

namespace Render {

namespace {

void applyColor() {
    const uint8_t* c = state().color;
    glColor4f(c[0] / 255.0f, c[1] / 255.0f, c[2] / 255.0f, c[3] / 255.0f);
}

}  // namespace

void drawLine(float x0, float y0, float x1, float y1) {
    glBegin(GL_LINES);
    applyColor();
    glVertex2f(x0, y0);
    glVertex2f(x1, y1);
    glEnd();
    state().frame.drawCalls++;
}

void drawRect(float x, float y, float w, float h) {
    glBegin(GL_QUADS);
    applyColor();
    glVertex2f(x, y);
    glVertex2f(x + w, y);
    glVertex2f(x + w, y + h);
    glVertex2f(x, y + h);
    glEnd();
    state().frame.drawCalls++;
}

}  // namespace Render
