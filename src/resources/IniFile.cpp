#include "resources/IniFile.h"

#include <fstream>

namespace {

// The separator is looked for only this far into a line; a longer line is
// cut at this position whatever stands there.
const std::string::size_type SEPARATOR_LIMIT = 1024;

}  // namespace

bool IniFile::load(const std::string& path, const std::string& section) {
    std::ifstream in(path);
    if (!in.is_open()) return false;
    values.clear();
    bool inSection = false;
    std::string line;
    while (std::getline(in, line)) {
        if (!line.empty() && line[0] == ';') continue;
        bool head = !line.empty() && line[0] == '[';
        if (inSection) {
            if (head) break;
            addLine(line);
        } else if (head) {
            std::string::size_type close = line.find(']', 1);
            inSection = line.compare(1, close == std::string::npos ? std::string::npos : close - 1,
                                     section) == 0;
        }
    }
    return true;
}

void IniFile::addLine(const std::string& line) {
    std::string::size_type separator = line.find('=', 1);
    if (separator == std::string::npos || separator >= SEPARATOR_LIMIT) {
        if (line.size() <= SEPARATOR_LIMIT) return;
        separator = SEPARATOR_LIMIT;
    }
    values[line.substr(0, separator)] = line.substr(separator + 1);
}

void IniFile::get(const std::string& key, std::string& out) {
    out = values[key];
}

std::string IniFile::get(const std::string& key) {
    return values[key];
}
