#include <gtest/gtest.h>

#include "network/GamePath.h"

TEST(GamePath, OnlyRelativePathsInsideTheFolderThatNeverClimbOut) {
    const struct {
        const char* path;
        bool inside;
    } cases[] = {
        {"character/default/init.lua", true},
        {"character/x", true},
        {"character/..a/init.lua", true},  // a name that starts with two dots climbs nowhere
        {"character/a../init.lua", true},
        {"character/", false},             // the folder itself names no script
        {"character", false},
        {"characters/default/init.lua", false},
        {"/character/default/init.lua", false},
        {"arena/osmiornica/init.lua", false},
        {"character/../arena/osmiornica/init.lua", false},
        {"character/default/..", false},
        {"character//../x", false},
        {"", false},
    };
    for (const auto& c : cases) EXPECT_EQ(GamePath::isInside(c.path, "character/"), c.inside) << c.path;
    // Anywhere in the game's folder, as sounds are.
    EXPECT_TRUE(GamePath::isInside("a", ""));
    EXPECT_FALSE(GamePath::isInside("/dev/zero", ""));
    EXPECT_FALSE(GamePath::isInside("../a.ogg", ""));
    EXPECT_FALSE(GamePath::isInside("", ""));
}
