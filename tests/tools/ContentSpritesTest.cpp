// The sprite files, pictures and words under data/: every frame lies inside
// its image, fighters have every animation the game asks for in both
// directions, the font covers every byte it may be asked to show.
#include <gtest/gtest.h>

#include <tinyxml.h>

#include <cstdint>
#include <filesystem>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "ContentList.h"
#include "TestSupport.h"

namespace fs = std::filesystem;

namespace {

const fs::path DATA = fs::path(KORVANE_SOURCE_DIR) / "data";

struct Size {
    int w = 0, h = 0;
};

uint32_t bigEndian32(const std::string& b, size_t at) {
    return (uint32_t(uint8_t(b[at])) << 24) | (uint32_t(uint8_t(b[at + 1])) << 16) |
           (uint32_t(uint8_t(b[at + 2])) << 8) | uint32_t(uint8_t(b[at + 3]));
}

Size pngSize(const std::string& file) {
    const std::string bytes = TestSupport::readFile(file);
    if (bytes.size() < 24 || bytes.compare(1, 3, "PNG") != 0) return {};
    return {int(bigEndian32(bytes, 16)), int(bigEndian32(bytes, 20))};
}

Size jpegSize(const std::string& file) {
    const std::string b = TestSupport::readFile(file);
    for (size_t i = 2; i + 9 < b.size();) {
        if (uint8_t(b[i]) != 0xFF) return {};
        const uint8_t marker = uint8_t(b[i + 1]);
        const size_t length = (uint8_t(b[i + 2]) << 8) | uint8_t(b[i + 3]);
        if (marker == 0xC0 || marker == 0xC2)
            return {(uint8_t(b[i + 7]) << 8) | uint8_t(b[i + 8]), (uint8_t(b[i + 5]) << 8) | uint8_t(b[i + 6])};
        i += 2 + length;
    }
    return {};
}

struct Frame {
    int x, y, w, h, sx, sy, ax, ay;
};

struct Anim {
    std::string name;
    std::map<std::string, std::vector<Frame>> dirs;  // by the dir's value, "down" when absent
};

struct SpriteFile {
    bool parsed = false;
    bool named = false;
    std::string image;
    Size imageSize;
    std::vector<Anim> anims;
};

int intAttribute(const TiXmlElement* e, const char* name) {
    int v = 0;
    e->QueryIntAttribute(name, &v);
    return v;
}

SpriteFile loadSprite(const std::string& resource) {
    SpriteFile sprite;
    TiXmlDocument doc;
    const std::string text = TestSupport::readFile((DATA / resource).string());
    doc.Parse(text.c_str());
    const TiXmlElement* root = doc.FirstChildElement("sprite");
    if (!root) return sprite;
    sprite.parsed = true;
    sprite.named = root->Attribute("name") != nullptr;
    if (const TiXmlElement* image = root->FirstChildElement("image"); image && image->GetText()) {
        sprite.image = (fs::path(resource).parent_path() / image->GetText()).generic_string();
        sprite.imageSize = pngSize((DATA / sprite.image).string());
    }
    for (const TiXmlElement* a = root->FirstChildElement("anim"); a; a = a->NextSiblingElement("anim")) {
        Anim anim;
        anim.name = a->Attribute("name") ? a->Attribute("name") : "";
        for (const TiXmlElement* d = a->FirstChildElement("dir"); d; d = d->NextSiblingElement("dir")) {
            std::vector<Frame>& frames = anim.dirs[d->Attribute("value") ? d->Attribute("value") : "down"];
            for (const TiXmlElement* fr = d->FirstChildElement("frame"); fr; fr = fr->NextSiblingElement("frame"))
                frames.push_back({intAttribute(fr, "x"), intAttribute(fr, "y"), intAttribute(fr, "w"), intAttribute(fr, "h"),
                                  intAttribute(fr, "sx"), intAttribute(fr, "sy"), intAttribute(fr, "ax"), intAttribute(fr, "ay")});
        }
        sprite.anims.push_back(anim);
    }
    return sprite;
}

std::vector<std::string> spriteFiles() {
    std::vector<std::string> names;
    for (const auto& entry : fs::recursive_directory_iterator(DATA))
        if (entry.path().extension() == ".xml") names.push_back(fs::relative(entry.path(), DATA).generic_string());
    return names;
}

}  // namespace

TEST(ContentSprites, EveryFrameLiesInsideItsImage) {
    const std::vector<std::string> files = spriteFiles();
    ASSERT_FALSE(files.empty());
    for (const std::string& file : files) {
        SCOPED_TRACE(file);
        const SpriteFile sprite = loadSprite(file);
        ASSERT_TRUE(sprite.parsed);
        // The speech bubble is found by the file's path, which a name would replace.
        EXPECT_FALSE(sprite.named);
        ASSERT_GT(sprite.imageSize.w, 0) << "image " << sprite.image;
        ASSERT_FALSE(sprite.anims.empty());
        for (const Anim& anim : sprite.anims) {
            ASSERT_FALSE(anim.dirs.empty()) << anim.name;
            for (const auto& [dir, frames] : anim.dirs) {
                ASSERT_FALSE(frames.empty()) << anim.name << " " << dir;
                for (const Frame& f : frames) {
                    EXPECT_TRUE(f.x >= 0 && f.y >= 0 && f.w > 0 && f.h > 0 && f.x + f.w <= sprite.imageSize.w &&
                                f.y + f.h <= sprite.imageSize.h)
                        << anim.name << " " << dir << " frame at " << f.x << "," << f.y;
                }
            }
        }
    }
}

TEST(ContentSprites, FightersHaveEveryAnimationFacingBothWays) {
    for (const std::string& fighter : ContentList::names("character/list.txt")) {
        SCOPED_TRACE(fighter);
        const SpriteFile body = loadSprite("character/" + fighter + "/character.xml");
        ASSERT_TRUE(body.parsed);
        ASSERT_FALSE(body.anims.empty());
        EXPECT_EQ(body.anims[0].name, "idle");
        std::set<std::string> names;
        for (const Anim& anim : body.anims) {
            names.insert(anim.name);
            ASSERT_TRUE(anim.dirs.count("right") && anim.dirs.count("left")) << anim.name;
            const std::vector<Frame>& right = anim.dirs.at("right");
            const std::vector<Frame>& left = anim.dirs.at("left");
            ASSERT_EQ(right.size(), left.size()) << anim.name;
            for (size_t i = 0; i < right.size(); ++i) {
                // The mouth sits above the feet, on the side the fighter faces.
                EXPECT_LT(right[i].ay, 0) << anim.name;
                EXPECT_GT(-right[i].ay, right[i].h / 4) << anim.name;
                EXPECT_EQ(left[i].ax, -right[i].ax) << anim.name;
                EXPECT_EQ(left[i].ay, right[i].ay) << anim.name;
            }
        }
        for (const char* needed : {"defending", "speaking", "moving", "falling", "dead"})
            EXPECT_TRUE(names.count(needed)) << needed;
        // The height on screen: about 64 to 96 pixels of frame.
        EXPECT_GE(body.anims[0].dirs.at("right")[0].h, 64);
        EXPECT_LE(body.anims[0].dirs.at("right")[0].h, 112);

        const SpriteFile speech = loadSprite("character/" + fighter + "/speech.xml");
        EXPECT_GE(speech.anims.size(), 4u) << "a bubble needs several scribbles";
        EXPECT_TRUE(loadSprite("character/" + fighter + "/shadow.xml").parsed);
    }
}

TEST(ContentSprites, FontHasOneGlyphPerByteOnOneLineHeight) {
    const SpriteFile font = loadSprite("font/font_02.xml");
    ASSERT_EQ(font.anims.size(), 224u);  // the space and bytes 33 to 255
    const int lineHeight = font.anims[0].dirs.at("down")[0].h;
    EXPECT_GE(lineHeight, 12);
    for (size_t i = 0; i < font.anims.size(); ++i) {
        const std::vector<Frame>& frames = font.anims[i].dirs.at("down");
        ASSERT_EQ(frames.size(), 1u) << "glyph " << i + 32;
        EXPECT_EQ(frames[0].h, lineHeight) << "glyph " << i + 32;
        EXPECT_GT(frames[0].w, 1) << "glyph " << i + 32;
    }
    // A wide letter is wider than a narrow one: the glyphs are not cells.
    EXPECT_GT(font.anims['W' - 32].dirs.at("down")[0].w, font.anims['i' - 32].dirs.at("down")[0].w);
}

TEST(ContentPictures, ScreenSizedPicturesAndIcon) {
    const Size menu = jpegSize((DATA / "bg.jpg").string());
    EXPECT_EQ(menu.w, 800);
    EXPECT_EQ(menu.h, 600);
    for (const char* bg : {"arena/default/bg.xml", "arena/osmiornica/bg.xml"}) {
        const SpriteFile sprite = loadSprite(bg);
        EXPECT_EQ(sprite.imageSize.w, 800) << bg;
        EXPECT_EQ(sprite.imageSize.h, 600) << bg;
    }
    const std::string icon = TestSupport::readFile((DATA / "icon.bmp").string());
    ASSERT_GE(icon.size(), 54u);
    EXPECT_EQ(icon.substr(0, 2), "BM");
    EXPECT_EQ(uint8_t(icon[18]), 32);  // width and height, little-endian
    EXPECT_EQ(uint8_t(icon[22]), 32);
}

TEST(ContentWords, LangIniHasEveryKeyTheScreensAskFor) {
    std::map<std::string, std::map<std::string, std::string>> sections;
    std::istringstream in(TestSupport::readFile((DATA / "lang.ini").string()));
    std::string section;
    for (std::string line; std::getline(in, line);) {
        ASSERT_TRUE(line.empty() || line.back() != '\r') << "a carriage return would end up in the label";
        if (line.empty() || line[0] == ';') continue;
        if (line[0] == '[') {
            section = line.substr(1, line.find(']') - 1);
            continue;
        }
        const size_t eq = line.find('=');
        if (eq != std::string::npos && eq > 0) sections[section][line.substr(0, eq)] = line.substr(eq + 1);
    }
    const std::map<std::string, std::vector<std::string>> wanted = {
        {"demo_menu", {"host", "host_players", "host_bots", "host_start", "host_exit", "join", "join_ip", "join_ip_a",
                       "join_ip_b", "join_ip_c", "join_ip_d", "join_exit", "join_players", "join_start", "exit"}},
        {"demo_game", {"disconnected2"}},
        {"menu_main", {"start", "return", "options", "options_controls", "options_player", "options_sound",
                       "options_music", "exit"}},
        {"game_classic", {"menu_start", "menu_no_start", "menu_select_arena", "menu_select_char_1",
                          "menu_select_char_2", "menu_rounds", "menu_time", "menu_return"}},
        {"character_select", {"return", "random", "title", "title_single"}},
        {"arena_select", {"return", "random"}},
    };
    for (const auto& [name, keys] : wanted)
        for (const std::string& key : keys) EXPECT_FALSE(sections[name][key].empty()) << "[" << name << "] " << key;
}
