// The content under data/, through the game's own classes and loaders.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "TestSupport.h"
#include "audio/Sound.h"
#include "gameplay/Arena.h"
#include "gameplay/Character.h"
#include "gameplay/ControllerDummy.h"
#include "graphics/Image.h"
#include "graphics/Render.h"
#include "graphics/Sprite.h"
#include "graphics/SpriteManager.h"
#include "resources/Parser.h"

namespace fs = std::filesystem;
using Graphics::Frame;

namespace {

const std::string DATA = KORVANE_SOURCE_DIR "/data";
const float FRAME = 1.0f / 60.0f;

std::vector<std::string> listed(const std::string& kind) {
    Parser lines(TestSupport::readFile(DATA + "/" + kind + "/list.txt"), "\r\n");
    std::vector<std::string> names;
    for (int32_t i = 0; i < lines.count(); ++i) names.push_back(lines[i]);
    return names;
}

const std::vector<Frame>& frames(const Graphics::Sprite& sprite, int32_t anim, int32_t slot) {
    return sprite.anim(anim)->dir(slot)->frames;
}

// Walks, speaks and defends by turns, so that every callback runs.
void steer(ControllerDummy& pad, int frame, int who) {
    const int phase = (frame / 25 + who) % 4;
    pad.pressed[ACTION_A] = phase < 2;
    pad.pressed[ACTION_B] = phase == 3;
    pad.pressed[who ? ACTION_RIGHT : ACTION_LEFT] = phase == 2;
    pad.pressed[ACTION_UP] = (frame / 40) % 2 == 0;
    pad.pressed[ACTION_DOWN] = !pad.pressed[ACTION_UP];
}

// Scripts name their files relative to the data folder, so the tests stand there, with a
// window and sound, and fail on any failure in the log.
class Content : public ::testing::Test {
protected:
    Content() { fs::current_path(DATA); }
    ~Content() override { fs::current_path(previous); }
    void SetUp() override {
        static const bool opened = Render::init(800, 600, false);
        ASSERT_TRUE(opened && Sound::init(16)) << "no window or no sound under this display";
    }
    void TearDown() override {
        SpriteManager::clear();
        Sound::clear();
        EXPECT_EQ(log.text().find("FAIL"), std::string::npos) << log.text();
    }
    const fs::path previous = fs::current_path();
    TestSupport::CapturedStdout log;
};

// A listed entry is described, and loads on the server's side too, where nothing is drawn.
bool describedAndLoadsOnTheServer(const std::string& kind, const std::string& name) {
    Arena arena;
    Character fighter;
    arena.objectType = fighter.objectType = OBJECT_SERVER;
    const std::string script = kind + "/" + name + "/init.lua";
    const bool loads = kind == "arena" ? arena.init(script) : fighter.init(script) && !fighter.name.empty();
    arena.clear();
    fighter.clear();
    return loads && !TestSupport::readFile(DATA + "/" + kind + "/" + name + "/desc.txt").empty();
}

}  // namespace

TEST_F(Content, EveryListedEntryLoadsEveryArenaHasRoomToFightAndEveryFighterFightsInIt) {
    const std::vector<std::string> arenas = listed("arena"), characters = listed("character");
    ASSERT_TRUE(arenas.size() >= 2 && arenas[0] == "osmiornica" && characters.size() >= 2 && characters[0] == "default");
    for (const std::string& arenaName : arenas) {
        for (const std::string& fighterName : characters) {
            SCOPED_TRACE(arenaName + ", " + fighterName);
            EXPECT_TRUE(describedAndLoadsOnTheServer("arena", arenaName));
            EXPECT_TRUE(describedAndLoadsOnTheServer("character", fighterName));
            Arena arena;
            Character fighters[2];
            ASSERT_TRUE(arena.init("arena/" + arenaName + "/init.lua"));
            // Fighters stand about 90 pixels tall: the floor's far edge leaves room for heads.
            EXPECT_TRUE(arena.min.x >= 0 && arena.min.y >= 90 && arena.max.x <= 800 && arena.max.y <= 600);
            EXPECT_TRUE(arena.max.x > arena.min.x && arena.max.y > arena.min.y && arena.noise >= 0.0f);
            ASSERT_GE(arena.startPositions.size(), 2u);
            for (const Vector& start : arena.startPositions) EXPECT_FALSE(arena.collides(start));

            ControllerDummy pads[2];
            for (int i = 0; i < 2; ++i) {
                ASSERT_TRUE(fighters[i].init("character/" + (i ? "default" : fighterName) + "/init.lua"));
                fighters[i].id = i;
                fighters[i].controller = &pads[i];
                arena.addCharacter(&fighters[i]);
            }
            for (int frame = 0; frame < 60 * 20; ++frame) {
                for (int i = 0; i < 2; ++i) {
                    steer(pads[i], frame, i);
                    if (fighters[i].hp <= 0.0f) fighters[i].restart();
                }
                arena.update(FRAME);
                // Drawing is slow in a software-rendered window; a few frames show the effects load.
                if (frame % 10 == 0) arena.draw();
            }
            // A combo runs in place of update until the script calls endCombo.
            Character& fighter = fighters[0];
            EXPECT_FALSE(fighter.comboManager.combos.empty());
            for (const Combo& combo : fighter.comboManager.combos) {
                fighter.restart();
                fighter.state |= Character::COMBO;
                fighter.comboRef = combo.ref;
                for (int frame = 0; frame < 60 * 10 && (fighter.state & Character::COMBO); ++frame) arena.update(FRAME);
                EXPECT_FALSE(fighter.state & Character::COMBO) << "a combo never ends";
            }
            // The arena's effects may point at the fighters: it goes first.
            arena.clear();
            for (Character& each : fighters) each.clear();
        }
    }
}

TEST_F(Content, EverySpriteLoadsWithItsTextureAndFramesInsideItsImageAndTheFontHasEveryByte) {
    for (const auto& entry : fs::recursive_directory_iterator(DATA)) {
        if (entry.path().extension() != ".xml") continue;
        const std::string name = fs::relative(entry.path(), DATA).generic_string();
        Graphics::Sprite* sprite = SpriteManager::get(name);
        ASSERT_TRUE(sprite && sprite->image && sprite->image->texture && sprite->animCount() > 0) << name;
        EXPECT_EQ(sprite->name, name);  // bubbles are made again from this name for every word
        for (int32_t a = 0; a < sprite->animCount(); ++a)
            for (int32_t slot = 0; slot < Graphics::DIR_SLOTS; ++slot)
                for (const Frame& f : frames(*sprite, a, slot))
                    EXPECT_TRUE(f.x >= 0 && f.y >= 0 && f.w > 0 && f.h > 0 && f.x + f.w <= sprite->image->width &&
                                f.y + f.h <= sprite->image->height)
                        << name << " anim " << a << " frame at " << f.x << "," << f.y;
    }
    Graphics::Sprite* font = SpriteManager::get("font/font_02.xml");
    ASSERT_TRUE(font && font->animCount() == 224);  // one glyph for each byte from the space on, all one line high
    for (int32_t glyph = 0; glyph < 224; ++glyph)
        EXPECT_TRUE(frames(*font, glyph, Graphics::DIR_DOWN).size() == 1 &&
                    frames(*font, glyph, Graphics::DIR_DOWN)[0].h == frames(*font, 0, Graphics::DIR_DOWN)[0].h)
            << "byte " << glyph + 32;
}

// The game never mirrors a picture; a bubble sits at the mouth, above the feet, facing ahead.
TEST_F(Content, FightersHaveEveryAnimationFacingBothWaysWithTheMouthMarked) {
    for (const std::string& fighter : listed("character")) {
        Graphics::Sprite* body = SpriteManager::get("character/" + fighter + "/character.xml");
        Graphics::Sprite* speech = SpriteManager::get("character/" + fighter + "/speech.xml");
        ASSERT_TRUE(body && speech && body->anim("idle") == body->anim(0)) << fighter;
        EXPECT_GE(speech->animCount(), 4) << fighter << ": a bubble needs several scribbles";
        for (const char* name : {"defending", "speaking", "moving", "falling", "dead"})
            EXPECT_GT(body->indexOf(name), 0) << fighter << " " << name;
        for (int32_t a = 0; a < body->animCount(); ++a) {
            const std::vector<Frame>& right = frames(*body, a, Graphics::DIR_RIGHT);
            const std::vector<Frame>& left = frames(*body, a, Graphics::DIR_LEFT);
            ASSERT_TRUE(&right != &left && right.size() == left.size()) << fighter << " anim " << a;
            for (size_t i = 0; i < right.size(); ++i)
                EXPECT_TRUE(-right[i].ay > right[i].h / 4 && left[i].ax == -right[i].ax && left[i].ay == right[i].ay)
                    << fighter << " anim " << a << " frame " << i;
        }
    }
}
