// XML sprite files are content: any document must load into a sprite tree
// whose every frame is readable, without touching memory it doesn't own.
#include <tinyxml.h>

#include "FuzzSupport.h"
#include "graphics/SpriteXmlFormat.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    quiet();
    TiXmlDocument document;
    document.Parse(std::string(reinterpret_cast<const char*>(data), size).c_str());
    for (const TiXmlElement* element = document.FirstChildElement("sprite"); element;
         element = element->NextSiblingElement("sprite")) {
        auto* sprite = new Graphics::Sprite;
        sprite->name = "character/fuzz/sprite.xml";
        SpriteXmlFormat::parseSprite(*sprite, *element);
        Graphics::SpriteInstance instance(sprite);
        walkFrames(instance, 0.7f);
        for (const auto& named : sprite->names) sprite->indexOf(named.first);
    }
    return 0;
}
