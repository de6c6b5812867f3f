#include "graphics/Buffer.h"

#include <GL/glew.h>

#include "shell/Log.h"

namespace Render {

// Base-class calls, not virtual ones: the derived part is gone by now.
Buffer::~Buffer() { Buffer::free(); }

bool Buffer::init() {
    if (ready) free();
    GLuint name = 0;
    if (glGenBuffers) glGenBuffers(1, &name);
    id = name;
    GLenum error = glGetError();
    if (id == 0 || error != GL_NO_ERROR) {
        Log::fail("Buffer.init: Nie udalo sie dostac bufora (%d, %d)", static_cast<int>(id),
                  static_cast<int>(error));
        ready = false;
        return false;
    }
    ready = true;
    return true;
}

void Buffer::free() {
    clear();
    ready = false;
    if (id != 0 && glDeleteBuffers) glDeleteBuffers(1, &id);
    id = 0;
}

void Buffer::clear() { vertices.clear(); }

}  // namespace Render
