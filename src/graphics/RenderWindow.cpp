#include <GL/glew.h>
#include <SDL/SDL.h>

#include "graphics/RenderState.h"
#include "resources/Resource.h"
#include "shell/Log.h"

namespace Render {

namespace {

const char* const ICON_FILE = "icon.bmp";

// A missing or broken icon is no error: the window keeps the default one.
void loadIcon() {
    State& s = state();
    char* bytes = Resource::read(ICON_FILE);
    if (!bytes) return;
    SDL_RWops* stream = SDL_RWFromMem(bytes, static_cast<int>(Resource::lastSize()));
    s.icon = stream ? SDL_LoadBMP_RW(stream, 1) : nullptr;
    delete[] bytes;
    if (s.icon) SDL_WM_SetIcon(s.icon, nullptr);
}

}  // namespace

void setCaption(const char* text) { state().caption = text; }

bool init(int32_t width, int32_t height, bool fullscreen) {
    state().width = width;
    state().height = height;
    return init(fullscreen);
}

bool init(bool fullscreen) {
    State& s = state();
    Log::debug("Render.init: Startowanie... (fullscreen: %d)", fullscreen ? 1 : 0);
    if (fullscreen)
        s.videoFlags |= SDL_FULLSCREEN;
    else
        s.videoFlags &= ~static_cast<uint32_t>(SDL_FULLSCREEN);
    if (!initSDL() || !initOGL()) return false;
    s.defaultCamera.init(0, 0, static_cast<float>(s.width), static_cast<float>(s.height), Vector());
    return true;
}

bool initSDL() {
    State& s = state();
    if (SDL_Init(SDL_INIT_VIDEO) < 0) {
        Log::fail("Render.initSDL: Nie udalo sie zainicjowac sdl'a");
        return false;
    }
    SDL_WM_SetCaption(s.caption, nullptr);
    // SDL wants the icon before the video mode.
    loadIcon();
    SDL_GL_SetAttribute(SDL_GL_SWAP_CONTROL, 1);
    s.screen = SDL_SetVideoMode(s.width, s.height, 32, s.videoFlags | SDL_OPENGL);
    if (!s.screen) return false;
    s.width = s.screen->w;
    s.height = s.screen->h;
    // The buffer object entry points need a current context to be found.
    glewInit();
    return true;
}

bool initOGL() {
    State& s = state();
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glOrtho(0, s.width, s.height, 0, -1000, 10000);
    glClearColor(0, 0.5f, 1, 0);
    glDisable(GL_CULL_FACE);
    glEnable(GL_TEXTURE_2D);
    glEnable(GL_BLEND);
    glDisable(GL_DEPTH_TEST);
    glEnable(GL_ALPHA_TEST);
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    glEnableClientState(GL_COLOR_ARRAY);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glAlphaFunc(GL_GREATER, 0);
    glViewport(0, 0, s.width, s.height);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    GLenum error = glGetError();
    if (error != GL_NO_ERROR) {
        Log::fail("Render.initOGL: Nie udalo sie wystartowac OpenGl'a (%d)", static_cast<int>(error));
        return false;
    }
    return true;
}

void flip() {
    State& s = state();
    flush();
    SDL_GL_SwapBuffers();
    s.lastFrame = s.frame;
    s.frame = Stats();
    glLoadIdentity();
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    setColor(255, 255, 255, 255);
    if (s.mode != MODE_WORLD_IMAGES) setMode(MODE_WORLD_IMAGES);
    s.camera->update();
    applyCamera();
}

void clear() {
    State& s = state();
    s.batch.clear();
    if (s.icon) {
        SDL_FreeSurface(s.icon);
        s.icon = nullptr;
    }
    // The context dies with SDL: no name bound in it is bound any more.
    s.boundTexture = 0;
    s.screen = nullptr;
    SDL_Quit();
}

int32_t getWidth() { return state().width; }
int32_t getHeight() { return state().height; }

}  // namespace Render
