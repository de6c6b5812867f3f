#pragma once
#include <gtest/gtest.h>

#include <string>

#include "TestSupport.h"
#include "script/Lua.h"

// Runs a chunk in a script state, reports any pending error as the game
// would, and returns what the log got meanwhile.
inline std::string runLogged(Lua& lua, const std::string& chunk) {
    TestSupport::CapturedStdout out;
    EXPECT_TRUE(lua.run(chunk));
    lua.update();
    return out.text();
}
