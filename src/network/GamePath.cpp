#include "network/GamePath.h"

namespace GamePath {

bool isInside(const std::string& path, const std::string& folder) {
    if (path.empty() || path[0] == '/') return false;
    if (path.compare(0, folder.size(), folder) != 0) return false;
    // The folder itself names no file.
    if (path.size() == folder.size()) return false;
    std::size_t start = 0;
    while (start <= path.size()) {
        std::size_t end = path.find('/', start);
        if (end == std::string::npos) end = path.size();
        if (path.compare(start, end - start, "..") == 0) return false;
        start = end + 1;
    }
    return true;
}

}  // namespace GamePath
