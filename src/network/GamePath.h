#pragma once
#include <string>

// Names of files that arrive over the network must name the game's own
// content: relative, inside the given folder ("character/", "arena/", or ""
// for anywhere in the game's folder), and never climbing out through "..".
namespace GamePath {

bool isInside(const std::string& path, const std::string& folder);

}  // namespace GamePath
