#pragma once
#include <cstdint>

namespace Graphics {
class Image;
class Sprite;
class SpriteInstance;
}  // namespace Graphics

// The one window, the OpenGL state and the batch of textured quads. Quads
// wait in the batch until the texture or the mode changes, a buffer is drawn
// or the frame ends, so a run of quads from one image is one draw call.
namespace Render {

class Buffer;
class Camera;

// Handed to OpenGL as it stands: the layout is a format (stride 32).
struct Vertex {
    float x, y, z;
    float u, v;
    uint8_t r, g, b, a;
    uint8_t reserved[8];

    Vertex() : x(0), y(0), z(0), u(0), v(0), r(0), g(0), b(0), a(0), reserved{} {}
    // Alpha comes before red in the argument list.
    Vertex(float x, float y, float z, float u, float v, uint8_t a, uint8_t r, uint8_t g, uint8_t b)
        : x(x), y(y), z(z), u(u), v(v), r(r), g(g), b(b), a(a), reserved{} {}
};
static_assert(sizeof(Vertex) == 32, "Render::Vertex must keep its 32-byte stride");

enum Mode : int32_t {
    MODE_WORLD_SHAPES = 0,
    MODE_SCREEN_SHAPES = 1,
    MODE_WORLD_IMAGES = 2,
    MODE_SCREEN_IMAGES = 3,
    // Any other value behaves as this one.
    MODE_CENTRED = 4,
};

// Work of the frame in progress; flip() moves it to the last frame's record.
struct Stats {
    uint32_t drawCalls = 0;
    uint32_t quads = 0;
};

// Window and frame.
void setCaption(const char* text);
bool init(int32_t width, int32_t height, bool fullscreen);
bool init(bool fullscreen);
bool initSDL();
bool initOGL();
void flip();
void clear();
int32_t getWidth();
int32_t getHeight();

// State.
void setMode(int32_t mode);
int32_t getMode();
void setColor(uint8_t r, uint8_t g, uint8_t b, uint8_t a);
void setAlpha(uint8_t a);
void bindTexture(uint32_t name);
void setCamera(Camera* camera);
Camera* getCamera();
void applyCamera();

// The batch.
void flush();
void drawImage(const Graphics::Image* image, float x, float y, float z, int32_t tx, int32_t ty,
               int32_t tw, int32_t th, float angle, float ox, float oy);
void drawImage(const Graphics::Image* image, float x, float y, float z, float angle, float ox,
               float oy);
void drawFrame(Graphics::Sprite* sprite, float x, float y, float z, float angle, int32_t anim,
               int32_t dir, int32_t frame);
void drawSprite(Graphics::SpriteInstance* instance, float x, float y, float z, float angle);

// Prepared buffers.
void drawBuffer(Buffer* buffer, float x, float y, float z, float alpha);
void drawVertices(Buffer* buffer);

// Immediate shapes in the current colour; switch to a shapes mode first.
void drawLine(float x0, float y0, float x1, float y1);
void drawRect(float x, float y, float w, float h);

const Stats& frameStats();
const Stats& lastFrameStats();

}  // namespace Render
