#pragma once
#include <map>
#include <string>

// Reads one section of a text file of "key=value" lines under "[section]"
// heads. Keys and values are kept byte for byte, untrimmed.
class IniFile {
public:
    bool load(const std::string& path, const std::string& section);
    // An unknown key gives the empty string and is remembered with it.
    void get(const std::string& key, std::string& out);
    std::string get(const std::string& key);

private:
    void addLine(const std::string& line);

    std::map<std::string, std::string> values;
};
