// Animation lists are content: any bytes must parse without reading out of
// range, and every frame the result offers must be readable.
#include "FuzzSupport.h"
#include "graphics/SpriteListFormat.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    quiet();
    auto* sprite = new Graphics::Sprite;
    SpriteListFormat::parse(*sprite, std::string(reinterpret_cast<const char*>(data), size), "fuzz.txt");
    Graphics::SpriteInstance instance(sprite);  // which deletes the sprite when it goes
    walkFrames(instance, 0.4f);
    return 0;
}
