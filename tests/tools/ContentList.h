#pragma once
#include <gtest/gtest.h>
#include <unistd.h>

#include <climits>
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

// The scripts and sprites name their files relative to the data folder, as
// the game does from its own folder: a test that loads them stands there.
class InDataFolder {
public:
    InDataFolder() {
        if (!getcwd(previous, sizeof previous)) previous[0] = 0;
        EXPECT_EQ(chdir(DATA.c_str()), 0);
    }
    ~InDataFolder() {
        if (previous[0] && chdir(previous) != 0) ADD_FAILURE() << "cannot return to " << previous;
    }
    InDataFolder(const InDataFolder&) = delete;
    InDataFolder& operator=(const InDataFolder&) = delete;

private:
    char previous[PATH_MAX];
};

}  // namespace ContentList
