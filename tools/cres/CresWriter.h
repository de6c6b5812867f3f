#pragma once
#include <cstdint>
#include <string>
#include <vector>

// Builds CRES archives: a 13-byte header, the table, then every entry's bytes
// in table order. The game only reads archives; this is their one writer.
namespace CresWriter {

struct Entry {
    std::string name;
    std::string stored;  // the bytes as they lie in the archive
    bool compressed = false;
    uint32_t unpackedSize = 0;  // written only for a compressed entry
};

// Compresses the content with zlib when that makes it smaller.
Entry packEntry(const std::string& name, const std::string& content);
std::string serialize(const std::vector<Entry>& entries);
bool write(const std::string& path, const std::vector<Entry>& entries);

}  // namespace CresWriter
