#include "graphics/SpriteXmlFormat.h"

#include <cfloat>
#include <cstring>
#include <memory>
#include <tinyxml.h>

#include "graphics/Sprite.h"
#include "resources/Parser.h"
#include "shell/Log.h"

namespace SpriteXmlFormat {

namespace {

using Graphics::Anim;
using Graphics::Dir;
using Graphics::Frame;

int32_t slotOf(const char* value) {
    if (!value) return Graphics::DIR_DOWN;
    if (strcmp(value, "right") == 0) return Graphics::DIR_RIGHT;
    if (strcmp(value, "left") == 0) return Graphics::DIR_LEFT;
    if (strcmp(value, "up") == 0) return Graphics::DIR_UP;
    return Graphics::DIR_DOWN;
}

int32_t intAttribute(const TiXmlElement& element, const char* name) {
    int value = 0;
    element.Attribute(name, &value);
    return value;
}

float speedOf(const TiXmlElement& element) {
    double spd = 1.0;
    element.Attribute("spd", &spd);
    // Out of float's range the conversion would be undefined.
    if (!(spd <= FLT_MAX)) return spd != spd ? 0.0f : FLT_MAX;
    if (spd < -FLT_MAX) return -FLT_MAX;
    return static_cast<float>(spd);
}

Dir* readDir(const TiXmlElement& element) {
    std::unique_ptr<Dir> dir(new Dir);
    dir->spd = speedOf(element);
    for (const TiXmlElement* child = element.FirstChildElement("frame"); child;
         child = child->NextSiblingElement("frame")) {
        Frame frame;
        frame.x = intAttribute(*child, "x");
        frame.y = intAttribute(*child, "y");
        frame.w = intAttribute(*child, "w");
        frame.h = intAttribute(*child, "h");
        frame.sx = intAttribute(*child, "sx");
        frame.sy = intAttribute(*child, "sy");
        frame.ax = intAttribute(*child, "ax");
        frame.ay = intAttribute(*child, "ay");
        dir->addFrame(frame);
    }
    return dir.release();
}

Anim* readAnim(const TiXmlElement& element) {
    std::unique_ptr<Anim> anim(new Anim);
    for (const TiXmlElement* child = element.FirstChildElement("dir"); child;
         child = child->NextSiblingElement("dir")) {
        const int32_t slot = slotOf(child->Attribute("value"));
        anim->setDir(slot, readDir(*child));
    }
    return anim.release();
}

}  // namespace

std::string relativeName(const std::string& spritePath, const std::string& imageName) {
    Parser path(spritePath, "/\\");
    if (path.count() == 0) return imageName;
    path.del(path.count() - 1);
    path.add(path.count(), imageName);
    return path.text();
}

std::string parseSprite(Graphics::Sprite& sprite, const TiXmlElement& element) {
    std::string imageName;
    const TiXmlElement* image = element.FirstChildElement("image");
    const char* imageText = image ? image->GetText() : nullptr;
    // An <image> without text names no file, as if it were missing.
    if (!imageText || !*imageText)
        Log::fail("SpriteManager.xmlParseSprite: Nie ustawiono obrazka");
    else
        imageName = image->Attribute("relative") ? relativeName(sprite.name, imageText) : imageText;

    for (const TiXmlElement* child = element.FirstChildElement("anim"); child;
         child = child->NextSiblingElement("anim")) {
        const char* name = child->Attribute("name");
        sprite.addAnim(readAnim(*child), name ? name : "");
    }
    return imageName;
}

}  // namespace SpriteXmlFormat
