#include <GL/glew.h>
#include <SDL/SDL.h>

#include "graphics/RenderState.h"

namespace Render {

namespace {

bool drawsShapes(int32_t mode) { return mode == MODE_WORLD_SHAPES || mode == MODE_SCREEN_SHAPES; }

bool drawsOnScreen(int32_t mode) { return mode == MODE_SCREEN_SHAPES || mode == MODE_SCREEN_IMAGES; }

bool followsCamera(int32_t mode) { return mode == MODE_WORLD_SHAPES || mode == MODE_WORLD_IMAGES; }

void setTexturing(bool on) {
    const GLenum arrays[] = {GL_VERTEX_ARRAY, GL_TEXTURE_COORD_ARRAY, GL_COLOR_ARRAY};
    if (on) {
        glEnable(GL_TEXTURE_2D);
        for (GLenum a : arrays) glEnableClientState(a);
    } else {
        glDisable(GL_TEXTURE_2D);
        for (GLenum a : arrays) glDisableClientState(a);
    }
}

}  // namespace

void setMode(int32_t mode) {
    State& s = state();
    if (mode == s.mode) return;
    flush();
    setColor(255, 255, 255, 255);
    s.mode = mode;
    setTexturing(!drawsShapes(mode));
    glLoadIdentity();
    if (drawsOnScreen(mode) && s.screen) glViewport(0, 0, s.screen->w, s.screen->h);
}

int32_t getMode() { return state().mode; }

void setColor(uint8_t r, uint8_t g, uint8_t b, uint8_t a) {
    uint8_t* color = state().color;
    color[0] = r;
    color[1] = g;
    color[2] = b;
    color[3] = a;
}

void setAlpha(uint8_t a) { state().color[3] = a; }

// Null stands for the module's own camera, so that flip() always has one.
void setCamera(Camera* camera) {
    State& s = state();
    s.camera = camera ? camera : &s.defaultCamera;
}

Camera* getCamera() { return state().camera; }

void applyCamera() {
    State& s = state();
    const Camera& c = *s.camera;
    glLoadIdentity();
    glViewport(static_cast<GLint>(c.getViewX()), static_cast<GLint>(c.getViewY()),
               static_cast<GLsizei>(c.getViewWidth()), static_cast<GLsizei>(c.getViewHeight()));
    if (drawsOnScreen(s.mode)) return;
    if (followsCamera(s.mode)) {
        glTranslatef(static_cast<float>(-c.getIntX()), static_cast<float>(-c.getIntY()),
                     static_cast<float>(-c.getIntZ()));
        return;
    }
    // Centred: the camera's point goes to the middle of an 800 by 600 screen.
    glTranslatef(400, 300, 0);
    glTranslatef(-c.getX(), -c.getY(), -c.getZ());
}

}  // namespace Render
