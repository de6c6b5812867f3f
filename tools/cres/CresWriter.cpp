#include "CresWriter.h"

#include <zlib.h>

#include <fstream>

namespace CresWriter {

namespace {

void putU32(std::string& out, uint32_t value) {
    for (int shift = 0; shift < 32; shift += 8) out += char((value >> shift) & 0xFF);
}

}  // namespace

Entry packEntry(const std::string& name, const std::string& content) {
    Entry entry;
    entry.name = name;
    entry.unpackedSize = uint32_t(content.size());
    uLongf packedLength = compressBound(content.size());
    std::string packed(packedLength, '\0');
    if (compress(reinterpret_cast<Bytef*>(&packed[0]), &packedLength,
                 reinterpret_cast<const Bytef*>(content.data()), content.size()) == Z_OK &&
        packedLength < content.size()) {
        packed.resize(packedLength);
        entry.stored = std::move(packed);
        entry.compressed = true;
    } else {
        entry.stored = content;
    }
    return entry;
}

std::string serialize(const std::vector<Entry>& entries) {
    std::string table;
    uint32_t offset = 0;
    for (const Entry& entry : entries) {
        putU32(table, offset);
        putU32(table, uint32_t(entry.stored.size()));
        table += char(entry.compressed ? 1 : 0);
        if (entry.compressed) putU32(table, entry.unpackedSize);
        putU32(table, uint32_t(entry.name.size()));
        table += entry.name;
        offset += uint32_t(entry.stored.size());
    }
    std::string archive = "CRES";
    archive += char(2);
    putU32(archive, uint32_t(13 + table.size()));
    putU32(archive, uint32_t(entries.size()));
    archive += table;
    for (const Entry& entry : entries) archive += entry.stored;
    return archive;
}

bool write(const std::string& path, const std::vector<Entry>& entries) {
    std::string bytes = serialize(entries);
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), std::streamsize(bytes.size()));
    return bool(out.flush());
}

}  // namespace CresWriter
