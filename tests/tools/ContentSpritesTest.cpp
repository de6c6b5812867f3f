// The sprite files, pictures and words under data/, read through the game's
// own loaders: every sprite loads into a texture with every frame inside its
// image, fighters have every animation facing both ways with the mouth
// marked, the font covers every byte, and the screens find all their words.
#include <gtest/gtest.h>

#include <SDL_image.h>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "ContentList.h"
#include "TestSupport.h"
#include "graphics/Image.h"
#include "graphics/Render.h"
#include "graphics/Sprite.h"
#include "graphics/SpriteManager.h"
#include "resources/IniFile.h"

namespace fs = std::filesystem;
using Graphics::Frame;

namespace {

class ContentSprites : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        static const bool opened = Render::init(800, 600, false);
        ASSERT_TRUE(opened) << "no window under this display";
    }
    void TearDown() override { SpriteManager::clear(); }

    const Frame& firstFrame(const Graphics::Sprite& sprite, int32_t anim, int32_t slot) {
        return sprite.anim(anim)->dir(slot)->frames.at(0);
    }

    ContentList::InDataFolder here;
};

// Width and height of a picture as SDL_image decodes it; 0 by 0 when it can't.
std::pair<int, int> pictureSize(const std::string& file) {
    SDL_Surface* surface = IMG_Load(file.c_str());
    if (!surface) return {0, 0};
    std::pair<int, int> size{surface->w, surface->h};
    SDL_FreeSurface(surface);
    return size;
}

}  // namespace

TEST_F(ContentSprites, EverySpriteLoadsWithItsTextureAndFramesInsideItsImage) {
    TestSupport::CapturedStdout log;
    int files = 0;
    for (const auto& entry : fs::recursive_directory_iterator(ContentList::DATA)) {
        if (entry.path().extension() != ".xml") continue;
        const std::string name = fs::relative(entry.path(), ContentList::DATA).generic_string();
        SCOPED_TRACE(name);
        Graphics::Sprite* sprite = SpriteManager::get(name);
        ASSERT_NE(sprite, nullptr);
        ASSERT_NE(sprite->image, nullptr);
        EXPECT_NE(sprite->image->texture, 0u);
        // Bubbles are made again from this name for every word, so the file names no sprite.
        EXPECT_EQ(sprite->name, name);
        ASSERT_GT(sprite->animCount(), 0);
        for (int32_t a = 0; a < sprite->animCount(); ++a)
            for (int32_t slot = 0; slot < Graphics::DIR_SLOTS; ++slot)
                for (const Frame& f : sprite->anim(a)->dir(slot)->frames)
                    EXPECT_TRUE(f.x >= 0 && f.y >= 0 && f.w > 0 && f.h > 0 && f.x + f.w <= sprite->image->width &&
                                f.y + f.h <= sprite->image->height)
                        << "anim " << a << " frame at " << f.x << "," << f.y;
        ++files;
    }
    EXPECT_GT(files, 10);
    const std::string text = log.text();
    EXPECT_EQ(text.find("FAIL"), std::string::npos) << text;
}

TEST_F(ContentSprites, FightersHaveEveryAnimationFacingBothWaysWithTheMouthMarked) {
    for (const std::string& fighter : ContentList::names("character/list.txt")) {
        SCOPED_TRACE(fighter);
        Graphics::Sprite* body = SpriteManager::get("character/" + fighter + "/character.xml");
        ASSERT_NE(body, nullptr);
        EXPECT_EQ(body->anim("idle"), body->anim(0));
        for (const char* name : {"defending", "speaking", "moving", "falling", "dead"})
            EXPECT_GT(body->indexOf(name), 0) << name;
        for (int32_t a = 0; a < body->animCount(); ++a) {
            const Graphics::Dir* right = body->anim(a)->dir(Graphics::DIR_RIGHT);
            const Graphics::Dir* left = body->anim(a)->dir(Graphics::DIR_LEFT);
            // The game never mirrors a picture: both ways are drawn.
            ASSERT_NE(right, left) << "anim " << a;
            ASSERT_EQ(right->frames.size(), left->frames.size()) << "anim " << a;
            for (size_t i = 0; i < right->frames.size(); ++i) {
                // The mouth sits above the feet, on the side the fighter faces.
                EXPECT_GT(-right->frames[i].ay, right->frames[i].h / 4) << "anim " << a;
                EXPECT_EQ(left->frames[i].ax, -right->frames[i].ax) << "anim " << a;
                EXPECT_EQ(left->frames[i].ay, right->frames[i].ay) << "anim " << a;
            }
        }
        // About 64 to 112 pixels tall on screen.
        EXPECT_GE(firstFrame(*body, 0, Graphics::DIR_RIGHT).h, 64);
        EXPECT_LE(firstFrame(*body, 0, Graphics::DIR_RIGHT).h, 112);
        Graphics::Sprite* speech = SpriteManager::get("character/" + fighter + "/speech.xml");
        ASSERT_NE(speech, nullptr);
        EXPECT_GE(speech->animCount(), 4) << "a bubble needs several scribbles";
    }
}

TEST_F(ContentSprites, FontHasOneGlyphPerByteOnOneLineHeight) {
    Graphics::Sprite* font = SpriteManager::get("font/font_02.xml");
    ASSERT_NE(font, nullptr);
    ASSERT_EQ(font->animCount(), 224);  // the space and bytes 33 to 255
    const int32_t lineHeight = firstFrame(*font, 0, Graphics::DIR_DOWN).h;
    EXPECT_GE(lineHeight, 12);
    for (int32_t glyph = 0; glyph < font->animCount(); ++glyph) {
        EXPECT_EQ(font->anim(glyph)->dir(Graphics::DIR_DOWN)->frames.size(), 1u) << "glyph " << glyph + 32;
        EXPECT_EQ(firstFrame(*font, glyph, Graphics::DIR_DOWN).h, lineHeight) << "glyph " << glyph + 32;
        EXPECT_GT(firstFrame(*font, glyph, Graphics::DIR_DOWN).w, 1) << "glyph " << glyph + 32;
    }
    // A wide letter is wider than a narrow one: the glyphs are not cells.
    EXPECT_GT(firstFrame(*font, 'W' - 32, Graphics::DIR_DOWN).w, firstFrame(*font, 'i' - 32, Graphics::DIR_DOWN).w);
}

TEST(ContentPictures, ScreenSizedPicturesAndIcon) {
    const std::string data = ContentList::DATA + "/";
    for (const char* picture : {"bg.jpg", "arena/default/bg.png", "arena/osmiornica/bg.png"})
        EXPECT_EQ(pictureSize(data + picture), std::make_pair(800, 600)) << picture;
    SDL_Surface* icon = SDL_LoadBMP((data + "icon.bmp").c_str());
    ASSERT_NE(icon, nullptr) << SDL_GetError();
    EXPECT_TRUE(icon->w == 32 && icon->h == 32);
    SDL_FreeSurface(icon);
}

TEST(ContentWords, LangIniHasEveryKeyTheScreensAskFor) {
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
    ASSERT_EQ(TestSupport::readFile(ContentList::DATA + "/lang.ini").find('\r'), std::string::npos)
        << "a carriage return would end up in the labels";
    for (const auto& [section, keys] : wanted) {
        IniFile words;
        ASSERT_TRUE(words.load(ContentList::DATA + "/lang.ini", section)) << section;
        for (const std::string& key : keys) EXPECT_FALSE(words.get(key).empty()) << "[" << section << "] " << key;
    }
}
