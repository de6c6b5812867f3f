#pragma once
#include <cstdint>
#include <fstream>
#include <map>
#include <string>
#include <vector>

// One entry of an archive's table, as held in memory.
struct ResfileEntry {
    uint32_t offset;        // absolute position in the file
    uint32_t storedSize;
    uint32_t unpackedSize;  // equals storedSize for a plain entry
    uint8_t flags;
};

// Reader of one CRES archive: the table is read once at open, the entries'
// bytes are read from the open file on every load. Loaded arrays carry a zero
// byte behind their content and belong to the caller (delete[]).
class Resfile {
public:
    static const uint8_t FLAG_COMPRESSED = 1;

    Resfile() = default;
    ~Resfile() = default;
    Resfile(const Resfile&) = delete;
    Resfile& operator=(const Resfile&) = delete;

    bool open(const std::string& path);
    bool exists(const std::string& entryName) const;
    uint32_t size(const std::string& entryName) const;
    uint32_t size(uint32_t i) const;
    bool isIndex(uint32_t i) const;
    std::string name(uint32_t i) const;
    // Table record i for tools that show the archive; null outside the table.
    const ResfileEntry* entry(uint32_t i) const;
    uint32_t count(const std::string& path);
    char* load(const std::string& entryName);
    char* load(const std::string& path, const std::string& entryName);
    char* load(const std::string& path, uint32_t i);
    char* loadAll(const std::string& path);

private:
    bool readTable(uint32_t dataStart, uint32_t entryCount);
    bool readBytes(void* out, uint32_t length);
    bool readU32(uint32_t& out);
    bool openForLoad(const std::string& archivePath);
    char* loadEntry(ResfileEntry& entry);
    char* readStored(const ResfileEntry& entry);
    void forget();

    std::ifstream file;
    std::string path;
    uint32_t fileSize = 0;
    uint8_t version = 0;
    std::map<std::string, ResfileEntry*> index;
    std::vector<ResfileEntry> entries;
};
