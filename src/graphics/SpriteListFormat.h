#pragma once
#include <string>

namespace Graphics {
class Sprite;
}

// The animation list of "spr" sprites: one line per animation, frame or
// strip, words separated by blanks and tabs.
namespace SpriteListFormat {

// Appends the animations the text describes to the sprite. `path` only names
// the file in messages. False when memory ran out; what was read stands.
bool parse(Graphics::Sprite& sprite, const std::string& text, const std::string& path);

// More frames than this in one direction are dropped: counts in the file are
// not trusted with memory.
const int MAX_FRAMES_PER_DIR = 4096;

}  // namespace SpriteListFormat
