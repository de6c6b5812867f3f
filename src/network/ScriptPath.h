#pragma once
#include <string>

// Script paths that arrive over the network name files of the game's own
// content: relative, inside the given folder ("character/", "arena/"), and
// never climbing out of it through "..".
namespace ScriptPath {

bool isInside(const std::string& path, const std::string& folder);

}  // namespace ScriptPath
