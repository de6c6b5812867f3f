#include "graphics/SpriteManager.h"

#include <map>
#include <memory>
#include <new>
#include <tinyxml.h>

#include "graphics/Image.h"
#include "graphics/ImageManager.h"
#include "graphics/Sprite.h"
#include "graphics/SpriteListFormat.h"
#include "graphics/SpriteXmlFormat.h"
#include "resources/Parser.h"
#include "resources/Resource.h"
#include "shell/Log.h"

using Graphics::Sprite;

namespace {

std::map<std::string, Sprite*> sprites;

// Reads a whole resource as text; false when it can't be read.
bool readText(const std::string& name, std::string& text) {
    char* buffer = Resource::read(name);
    if (!buffer) return false;
    const uint32_t size = Resource::lastSize();
    try {
        text.assign(buffer, size);
    } catch (const std::bad_alloc&) {
        delete[] buffer;
        return false;
    }
    delete[] buffer;
    return true;
}

// A sprite that someone still holds can't be deleted under them: it leaves
// the map and dies with its last holder.
void store(const std::string& key, Sprite* sprite) {
    auto found = sprites.find(key);
    if (found != sprites.end() && found->second != sprite && found->second->refs() < 1)
        delete found->second;
    sprites[key] = sprite;
}

// One animation with one frame over the whole image, for every direction.
void addWholeImageAnim(Sprite& sprite) {
    std::unique_ptr<Graphics::Anim> anim(new Graphics::Anim);
    Graphics::Dir* dir = new Graphics::Dir;
    Graphics::Frame frame;
    if (sprite.image) {
        frame.w = sprite.image->width;
        frame.h = sprite.image->height;
    }
    dir->addFrame(frame);
    anim->setDir(Graphics::DIR_DOWN, dir);
    sprite.addAnim(anim.release(), std::string());
}

bool hasFramesInDefaultSlot(const Graphics::Anim* anim) {
    const Graphics::Dir* dir = anim ? anim->dir(Graphics::DIR_DOWN) : nullptr;
    return dir && dir->frameCount() > 0;
}

void reportGaps(const std::string& name, const Sprite& sprite) {
    if (sprite.animCount() == 0)
        Log::fail("SpriteManager.get: Sprite \"%s\" nie ma animacji", name.c_str());
    for (int32_t i = 0; i < sprite.animCount(); ++i)
        if (!hasFramesInDefaultSlot(sprite.anim(i)))
            Log::fail("SpriteManager.get: Sprite \"%s\" animacja %u nie ma klatek w domyslnej animacji",
                      name.c_str(), static_cast<unsigned>(i));
}

std::string extensionOf(const std::string& name) {
    Parser parts(name, ".");
    return parts.count() > 0 ? parts.show(parts.count() - 1) : std::string();
}

}  // namespace

namespace SpriteManager {

Sprite* get(const std::string& name) {
    if (name.empty()) return nullptr;
    auto found = sprites.find(name);
    if (found != sprites.end()) return found->second;

    const std::string extension = extensionOf(name);
    Sprite* sprite = extension == "xml" ? loadXml(name) : extension == "spr" ? loadTxt(name) : loadImg(name);
    if (!sprite) {
        Log::fail("SpriteManager.get: Nie udalo sie wczytac \"%s\"", name.c_str());
        return nullptr;
    }
    reportGaps(name, *sprite);
    return sprite;
}

void release(Sprite* sprite) {
    if (!sprite) return;
    sprite->release();
    if (sprite->refs() >= 1) return;
    for (auto it = sprites.begin(); it != sprites.end(); ++it) {
        if (it->second == sprite) {
            sprites.erase(it);
            break;
        }
    }
    delete sprite;
}

void flush() {
    Log::info("SpriteManager.flush: Czyszczenie, %u sprite'ow", static_cast<unsigned>(sprites.size()));
    for (auto it = sprites.begin(); it != sprites.end();) {
        if (it->second->refs() < 1) {
            Log::debug("SpriteManager.flush: Kasowanie sprite \"%s\", refs %d", it->first.c_str(),
                       it->second->refs());
            delete it->second;
            it = sprites.erase(it);
        } else {
            ++it;
        }
    }
}

void clear() {
    if (sprites.empty()) return;
    Log::info("SpriteManager.clear: Czyszczenie, %u sprite'ow", static_cast<unsigned>(sprites.size()));
    for (auto& entry : sprites) {
        if (entry.second->refs() < 1)
            delete entry.second;
        else
            Log::debug("SpriteManager.clear: Sprite \"%s\" ma %d referencji", entry.first.c_str(),
                       entry.second->refs());
    }
    sprites.clear();
    Log::ok("SpriteManager.clear: Wyczyszczono");
}

Sprite* loadImg(const std::string& path) {
    if (!Resource::exists(path)) {
        Log::fail("SpriteManager.loadImg: Nie znaleziono pliku \"%s\"", path.c_str());
        return nullptr;
    }
    std::unique_ptr<Sprite> sprite(new (std::nothrow) Sprite);
    if (!sprite) {
        Log::fail("SpriteManager.loadImg: Nie udalo sie zajac miejsca na sprite \"%s\"", path.c_str());
        return nullptr;
    }
    Graphics::Image* image = ImageManager::load(path);
    if (!image) {
        Log::fail("SpriteManager.loadImg: Nie udalo sie wczytac grafiki \"%s\"", path.c_str());
        return nullptr;
    }
    try {
        sprite->setImage(image);
        addWholeImageAnim(*sprite);
        store(path, sprite.get());
    } catch (const std::bad_alloc&) {
        Log::fail("SpriteManaget.loadImg: Nie udalo sie zajac miejsca na kierunek/animacje \"%s\"", path.c_str());
        return nullptr;
    }
    return sprite.release();
}

Sprite* loadTxt(const std::string& path) {
    std::string imageName = path;
    std::string listName = path;
    std::string text;
    if (readText(path, text)) {
        Parser fields(text, ";");
        if (fields.count() < 3) {
            Log::debug("SpriteManager.loadTxt: Brak wymaganych informacji o sprite \"%s\"", path.c_str());
        } else {
            imageName = fields.show(0);
            listName = fields.show(1);
        }
    }
    std::unique_ptr<Sprite> sprite(new (std::nothrow) Sprite);
    if (!sprite) {
        Log::fail("SpriteManager.loadTxt: Nie udalo sie zajac miejsca na sprite \"%s\"", path.c_str());
        return nullptr;
    }
    sprite->setImage(ImageManager::load(imageName));
    if (!txtParseAnim(sprite.get(), listName)) {
        Log::fail("SpriteManager.loadTxt: Nie udalo sie wczytac animacji \"%s\":\"%s\"", path.c_str(),
                  listName.c_str());
        return nullptr;
    }
    try {
        store(path, sprite.get());
    } catch (const std::bad_alloc&) {
        Log::fail("SpriteManager.loadTxt: Nie udalo sie zajac miejsca na sprite \"%s\"", path.c_str());
        return nullptr;
    }
    return sprite.release();
}

bool txtParseAnim(Sprite* sprite, const std::string& path) {
    if (!sprite || path.size() < 2) return false;
    std::string text;
    if (!readText(path, text)) {
        Log::debug("SpriteManager.txtParseAnim: Nie znaleziono informacji o animacjach, uzywanie calego obrazka");
        Log::debug("SpriteManager.txtParseAnim: Nope, todo");
        return false;
    }
    if (!SpriteListFormat::parse(*sprite, text, path)) return false;
    if (sprite->animCount() == 0) return false;
    for (const Graphics::Anim* anim : sprite->anims)
        if (!hasFramesInDefaultSlot(anim)) return false;
    return true;
}

void xmlParseSprite(Sprite* sprite, const TiXmlElement* element) {
    if (!sprite || !element) return;
    const std::string imageName = SpriteXmlFormat::parseSprite(*sprite, *element);
    if (!imageName.empty()) sprite->setImage(ImageManager::load(imageName));
}

Sprite* loadXml(const std::string& path) {
    std::string text;
    if (!readText(path, text)) {
        Log::fail("SpriteManager.loadXml: Nie udalo sie wczytac xml'a \"%s\"", path.c_str());
        return nullptr;
    }
    try {
        TiXmlDocument document;
        document.Parse(text.c_str());
        // A document that doesn't parse has no sprites, not even the part read before the error.
        const TiXmlElement* first = document.Error() ? nullptr : document.FirstChildElement("sprite");
        for (const TiXmlElement* element = first; element;
             element = element->NextSiblingElement("sprite")) {
            const char* key = element->Attribute("name");
            std::unique_ptr<Sprite> sprite(new Sprite);
            sprite->name = path;
            xmlParseSprite(sprite.get(), element);
            if (sprite->animCount() == 0) {
                Log::debug("SpriteManager.loadXml: Nie dodano zadnej animacji, dodawanie calego obrazka");
                addWholeImageAnim(*sprite);
            }
            store(key ? key : path, sprite.get());
            sprite.release();
        }
    } catch (const std::bad_alloc&) {
        Log::fail("SpriteManager.loadXml: Nie udalo sie zajac miejsca na sprite \"%s\"", path.c_str());
        return nullptr;
    }
    auto found = sprites.find(path);
    return found == sprites.end() ? nullptr : found->second;
}

}  // namespace SpriteManager
