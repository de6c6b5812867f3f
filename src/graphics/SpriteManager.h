#pragma once
#include <string>

class TiXmlElement;

namespace Graphics {
class Sprite;
}

// Sprites shared by name. get() takes no reference: SpriteInstance does, and
// a sprite dies when its last instance lets go.
namespace SpriteManager {

// Finds or loads; the loader follows the extension ("xml", "spr", else a
// plain picture). Null for an empty name or a file that doesn't load.
Graphics::Sprite* get(const std::string& name);
// Drops one reference; at none the sprite is deleted and forgotten.
void release(Graphics::Sprite* sprite);
// Deletes the sprites nobody holds.
void flush();
// Deletes the sprites nobody holds and forgets all; held ones live on with
// their holders.
void clear();

Graphics::Sprite* loadImg(const std::string& path);
Graphics::Sprite* loadTxt(const std::string& path);
Graphics::Sprite* loadXml(const std::string& path);
bool txtParseAnim(Graphics::Sprite* sprite, const std::string& path);
void xmlParseSprite(Graphics::Sprite* sprite, const TiXmlElement* element);

}  // namespace SpriteManager
