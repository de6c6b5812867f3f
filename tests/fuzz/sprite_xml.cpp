// XML sprite files are content: any document must load into a sprite tree
// whose every frame is readable, without touching memory it doesn't own.
#include <cstdint>
#include <cstdio>
#include <string>
#include <tinyxml.h>

#include "graphics/Sprite.h"
#include "graphics/SpriteInstance.h"
#include "graphics/SpriteXmlFormat.h"
#include "shell/Log.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static FILE* quiet = freopen("/dev/null", "w", stdout);
    (void)quiet;
    Log::setFlags(0);

    const std::string text(reinterpret_cast<const char*>(data), size);
    TiXmlDocument document;
    document.Parse(text.c_str());
    size_t imageNames = 0;
    for (const TiXmlElement* element = document.FirstChildElement("sprite"); element;
         element = element->NextSiblingElement("sprite")) {
        auto* sprite = new Graphics::Sprite;
        sprite->name = "character/fuzz/sprite.xml";
        imageNames += SpriteXmlFormat::parseSprite(*sprite, *element).size();
        Graphics::SpriteInstance instance(sprite);
        for (int32_t anim = 0; anim <= instance.animCount(); ++anim) {
            instance.setAnim(anim);
            for (int32_t slot = 0; slot < Graphics::DIR_SLOTS; ++slot) {
                instance.setDir(slot);
                instance.update(0.7f);
                imageNames += static_cast<size_t>(instance.getH() & 1);
            }
        }
        for (const auto& named : sprite->names) imageNames += static_cast<size_t>(sprite->indexOf(named.first));
    }
    (void)imageNames;
    return 0;
}
