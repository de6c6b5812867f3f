// Animation lists are content: any bytes must parse without reading out of
// range, and every frame the result offers must be readable.
#include <cstdint>
#include <cstdio>
#include <string>

#include "graphics/Sprite.h"
#include "graphics/SpriteInstance.h"
#include "graphics/SpriteListFormat.h"
#include "shell/Log.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    // The tokeniser reports every missing word on standard output.
    static FILE* quiet = freopen("/dev/null", "w", stdout);
    (void)quiet;
    Log::setFlags(0);

    auto* sprite = new Graphics::Sprite;
    SpriteListFormat::parse(*sprite, std::string(reinterpret_cast<const char*>(data), size), "fuzz.txt");
    // The instance deletes the sprite when it goes.
    Graphics::SpriteInstance instance(sprite);
    // Unsigned so that huge sizes from the file wrap instead of overflowing.
    uint32_t sum = 0;
    for (int32_t anim = 0; anim <= instance.animCount(); ++anim) {
        instance.setAnim(anim);
        for (int32_t slot = 0; slot < Graphics::DIR_SLOTS; ++slot) {
            instance.setDir(slot);
            for (int32_t step = 0; step < 3; ++step) {
                instance.update(0.4f);
                sum += static_cast<uint32_t>(instance.getW()) + static_cast<uint32_t>(instance.getSY());
            }
        }
    }
    (void)sum;
    return 0;
}
