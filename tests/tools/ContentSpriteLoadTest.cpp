// Every sprite file under data/ loads through the game's own SpriteManager,
// into a window's textures, without a failure in the log.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "ContentList.h"
#include "TestSupport.h"
#include "graphics/Image.h"
#include "graphics/Render.h"
#include "graphics/Sprite.h"
#include "graphics/SpriteManager.h"

namespace fs = std::filesystem;

namespace {

class ContentSpriteLoad : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        static const bool opened = Render::init(800, 600, false);
        ASSERT_TRUE(opened) << "no window under this display";
    }
    void TearDown() override { SpriteManager::clear(); }
};

}  // namespace

TEST_F(ContentSpriteLoad, EverySpriteFileLoadsWithItsTexture) {
    ContentList::InDataFolder here;
    TestSupport::CapturedStdout log;
    int files = 0;
    for (const auto& entry : fs::recursive_directory_iterator(ContentList::DATA)) {
        if (entry.path().extension() != ".xml") continue;
        const std::string name = fs::relative(entry.path(), ContentList::DATA).generic_string();
        Graphics::Sprite* sprite = SpriteManager::get(name);
        ASSERT_NE(sprite, nullptr) << name;
        ASSERT_NE(sprite->image, nullptr) << name;
        EXPECT_NE(sprite->image->texture, 0u) << name;
        // Bubbles are made again from this name for every word.
        EXPECT_EQ(sprite->name, name);
        ++files;
    }
    EXPECT_GT(files, 10);
    const std::string text = log.text();
    EXPECT_EQ(text.find("FAIL"), std::string::npos) << text;
}

TEST_F(ContentSpriteLoad, FighterAnimationsAreFoundByTheirNames) {
    ContentList::InDataFolder here;
    for (const std::string& fighter : ContentList::names("character/list.txt")) {
        Graphics::Sprite* body = SpriteManager::get("character/" + fighter + "/character.xml");
        ASSERT_NE(body, nullptr) << fighter;
        EXPECT_EQ(body->anim("idle"), body->anim(0)) << fighter;
        for (const char* name : {"defending", "speaking", "moving", "falling", "dead"})
            EXPECT_GT(body->indexOf(name), 0) << fighter << " " << name;
    }
    Graphics::Sprite* font = SpriteManager::get("font/font_02.xml");
    ASSERT_NE(font, nullptr);
    EXPECT_EQ(font->animCount(), 224);
}
