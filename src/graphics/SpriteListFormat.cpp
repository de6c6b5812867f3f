#include "graphics/SpriteListFormat.h"

#include <algorithm>
#include <memory>
#include <new>

#include "graphics/Sprite.h"
#include "resources/Parser.h"
#include "shell/Log.h"

namespace SpriteListFormat {

namespace {

using Graphics::Anim;
using Graphics::Dir;
using Graphics::Frame;

// The animation being built, added to the sprite when the next one starts
// or the list ends.
class AnimBuilder {
public:
    explicit AnimBuilder(Graphics::Sprite& target) : sprite(target) {}

    void start(float spd, int32_t ret, const std::string& animName) {
        close();
        std::unique_ptr<Anim> anim(new Anim);
        Dir* dir = new Dir;
        dir->spd = spd;
        dir->ret = ret;
        anim->setDir(Graphics::DIR_DOWN, dir);
        building = std::move(anim);
        name = animName;
    }

    bool active() const { return building != nullptr; }

    // Up to `copies` more frames, stepping x by `stepX` after each; stops at
    // the per-direction limit.
    void append(Frame frame, int32_t copies, int32_t stepX) {
        Dir* dir = building->dir(Graphics::DIR_DOWN);
        const int32_t room = MAX_FRAMES_PER_DIR - dir->frameCount();
        copies = std::min(copies, room);
        for (int32_t i = 0; i < copies; ++i) {
            dir->addFrame(frame);
            // Wraps rather than overflowing on absurd numbers.
            frame.x = static_cast<int32_t>(static_cast<uint32_t>(frame.x) + static_cast<uint32_t>(stepX));
        }
    }

    void close() {
        if (!building) return;
        // The sprite owns it from here on, also if adding its name runs out of memory.
        sprite.addAnim(building.release(), name);
    }

private:
    Graphics::Sprite& sprite;
    std::unique_ptr<Anim> building;
    std::string name;
};

void readFrameLine(AnimBuilder& builder, Parser& words) {
    // A frame before any "anim" line has no direction to go to.
    if (!builder.active()) return;
    Frame frame;
    frame.x = words.val(2);
    frame.y = words.val(3);
    frame.w = words.val(4);
    frame.h = words.val(5);
    if (words.count() >= 8) {
        frame.sx = words.val(6);
        frame.sy = words.val(7);
    }
    if (words.count() >= 10) {
        frame.ax = words.val(8);
        frame.ay = words.val(9);
    }
    builder.append(frame, words.val(1), 0);
}

void readStripLine(AnimBuilder& builder, Parser& words) {
    if (words.count() < 7) return;
    builder.start(0.0f, 0, std::string());
    Frame frame;
    frame.x = words.val(1);
    frame.y = words.val(2);
    frame.w = words.val(3);
    frame.h = words.val(4);
    frame.sx = words.val(5);
    frame.sy = words.val(6);
    builder.append(frame, words.val(0), frame.w);
}

// False when the line ends the reading.
bool readLine(AnimBuilder& builder, const std::string& line) {
    Parser words(line, " \t");
    if (words.count() == 0) return true;
    const std::string first = words.show(0);
    if (first == "--") return true;
    if (first == "anim") {
        if (words.count() < 2) {
            Log::fail("SpriteManager.txtParseAnim: Brak wymaganych informacji (\"%s\")", line.c_str());
            return false;
        }
        builder.start(words.val<float>(1), words.val(2), words.count() >= 4 ? words.show(3) : std::string());
    } else if (first == "frame") {
        readFrameLine(builder, words);
    } else if (words.isVal(0)) {
        readStripLine(builder, words);
    }
    return true;
}

}  // namespace

bool parse(Graphics::Sprite& sprite, const std::string& text, const std::string& path) {
    try {
        AnimBuilder builder(sprite);
        Parser lines(text, "\n\r");
        for (int32_t i = 0; i < lines.count(); ++i)
            if (!readLine(builder, lines.show(i))) break;
        builder.close();
    } catch (const std::bad_alloc&) {
        Log::fail("SpriteManager.txtParseAnim: Nie udalo sie zajac miejsca na animacje/kierunek \"%s\"", path.c_str());
        return false;
    }
    return true;
}

}  // namespace SpriteListFormat
