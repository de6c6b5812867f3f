#pragma once
#include <cstdint>
#include <istream>
#include <map>
#include <string>

// The player's settings: a map of strings and a map of integers, kept in one
// small binary file. Every part of the game that names the same file shares
// one object through the registry, so they see each other's changes.
// Nothing reaches the disk unless a caller saves.
class Database {
public:
    // The game's own settings: controllers, volumes, the last address joined.
    static constexpr const char* SETTINGS_FILE = "config.nvo";

    // The shared object of a file, loaded on first use. A missing or broken
    // file still gives an object under that path, which a save then creates.
    static Database* get(const std::string& path);
    static void saveAll();
    // Destroys every object of the registry; unsaved changes are lost.
    static void clearAll();

    // Replaces the contents by those of the file.
    bool load(const std::string& path);
    // Replaces the contents by those of a seekable stream; what load does
    // after opening the file.
    bool loadFrom(std::istream& in);
    // Writes beside the file and renames into place, so the old settings
    // survive a crash in the middle of writing.
    bool save(const std::string& path);
    // Empties both maps; the path stays.
    void clear();

    int32_t getVal(const std::string& key) const;
    std::string getStr(const std::string& key) const;
    void setVal(const std::string& key, int32_t value);
    void setStr(const std::string& key, const std::string& value);

    const std::string& getPath() const { return path; }
    const std::map<std::string, std::string>& strings() const { return str; }
    const std::map<std::string, int32_t>& values() const { return val; }

private:
    std::string path;
    std::map<std::string, std::string> str;
    std::map<std::string, int32_t> val;
};
