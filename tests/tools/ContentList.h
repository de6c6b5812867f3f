#pragma once
#include <sstream>
#include <string>
#include <vector>

#include "TestSupport.h"

// The content under data/ as the selection screens see it.
namespace ContentList {

inline const std::string DATA = std::string(KORVANE_SOURCE_DIR) + "/data";

// The folder names of a list file, one a line.
inline std::vector<std::string> names(const std::string& listFile) {
    std::vector<std::string> out;
    std::istringstream in(TestSupport::readFile(DATA + "/" + listFile));
    for (std::string line; std::getline(in, line);) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (!line.empty()) out.push_back(line);
    }
    return out;
}

}  // namespace ContentList
