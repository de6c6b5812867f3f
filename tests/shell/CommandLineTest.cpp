#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "shell/CommandLine.h"

namespace {

// The sandbox takes at most a fighter and an arena; one argument more is misuse.
TEST(CommandLineTest, NoArgumentsPlayTheSandboxFillsInTheGamesOwnScriptsAndAnythingElseIsMisuse) {
    const std::string fighter = "character/default/init.lua", arena = "arena/osmiornica/init.lua";
    const struct {
        std::vector<const char*> arguments;
        CommandLine::Action action;
        std::string fighterScript, arenaScript;
    } cases[] = {
        {{}, CommandLine::PLAY, "", ""},
        {{"--help"}, CommandLine::HELP, "", ""},
        {{"--sandbox"}, CommandLine::SANDBOX, fighter, arena},
        {{"--sandbox", "character/mine/init.lua"}, CommandLine::SANDBOX, "character/mine/init.lua", arena},
        {{"--sandbox", "f.lua", "a.lua"}, CommandLine::SANDBOX, "f.lua", "a.lua"},
        {{"--sandbox", "f.lua", "a.lua", "x"}, CommandLine::MISUSE, "", ""},
        {{"--help", "x"}, CommandLine::MISUSE, "", ""},
        {{"f.lua"}, CommandLine::MISUSE, "", ""},
        {{"--sandboxes"}, CommandLine::MISUSE, "", ""},
    };
    for (const auto& c : cases) {
        std::vector<const char*> argv{"korvane"};
        argv.insert(argv.end(), c.arguments.begin(), c.arguments.end());
        const CommandLine::Request request = CommandLine::parse(int(argv.size()), argv.data());
        SCOPED_TRACE(argv.size() > 1 ? argv[1] : "(none)");
        EXPECT_EQ(request.action, c.action);
        EXPECT_EQ(request.fighterScript, c.fighterScript);
        EXPECT_EQ(request.arenaScript, c.arenaScript);
    }
}

}  // namespace
