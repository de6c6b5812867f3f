#pragma once

// The fighter and the arena a game has when nobody chose: every way of
// playing starts from the same two scripts.
namespace DefaultContent {

constexpr const char* FIGHTER = "character/default/init.lua";
constexpr const char* ARENA = "arena/osmiornica/init.lua";

}  // namespace DefaultContent
