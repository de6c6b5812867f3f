#include <gtest/gtest.h>

#include "network/ScriptPath.h"

TEST(GameScriptPath, OnlyRelativePathsInsideTheFolderThatNeverClimbOut) {
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
    for (const auto& c : cases) EXPECT_EQ(ScriptPath::isInside(c.path, "character/"), c.inside) << c.path;
}
