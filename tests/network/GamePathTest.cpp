#include <gtest/gtest.h>

#include "network/GamePath.h"

TEST(GamePath, OnlyRelativePathsInsideTheFolderThatNeverClimbOut) {
    // A name that starts or ends with two dots climbs nowhere.
    for (const char* path : {"character/default/init.lua", "character/x", "character/..a/init.lua", "character/a../x"})
        EXPECT_TRUE(GamePath::isInside(path, "character/")) << path;
    // The folder itself names no script.
    for (const char* path : {"character/", "character", "characters/default/init.lua", "/character/default/init.lua",
                             "arena/osmiornica/init.lua", "character/../arena/osmiornica/init.lua",
                             "character/default/..", "character//../x", ""})
        EXPECT_FALSE(GamePath::isInside(path, "character/")) << path;
    // Anywhere in the game's folder, as sounds are.
    EXPECT_TRUE(GamePath::isInside("a", ""));
    for (const char* path : {"/dev/zero", "../a.ogg", ""}) EXPECT_FALSE(GamePath::isInside(path, "")) << path;
}
