#pragma once
#include <string>

class TiXmlElement;

namespace Graphics {
class Sprite;
}

// The XML sprite format: <sprite> elements holding an <image> and <anim>s
// made of <dir>s made of <frame>s.
namespace SpriteXmlFormat {

// Reads one <sprite> element into the sprite's animations. Returns the
// resource name of its image, resolved against sprite.name when the image is
// marked relative; empty when the element names none.
std::string parseSprite(Graphics::Sprite& sprite, const TiXmlElement& element);

// The directory of spritePath with imageName behind it; imageName alone when
// the path is empty.
std::string relativeName(const std::string& spritePath, const std::string& imageName);

}  // namespace SpriteXmlFormat
