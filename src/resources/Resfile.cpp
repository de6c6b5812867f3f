#include "resources/Resfile.h"

#include <zlib.h>

#include <cstdio>
#include <cstring>
#include <new>

#include "resources/LittleEndian.h"

namespace {

const char MAGIC[4] = {'C', 'R', 'E', 'S'};
const uint8_t VERSION = 2;
const uint32_t HEADER_SIZE = 13;
// The smallest table entry: offset, storedSize, flags, nameLength, no name.
const uint32_t MIN_ENTRY_SIZE = 13;
// Nothing the game ships comes near this; it keeps a lying table from
// making us allocate gigabytes.
const uint64_t MAX_UNPACKED_SIZE = 256u << 20;
// deflate cannot do better than about 1032:1, so a larger claim is a lie.
const uint64_t MAX_DEFLATE_RATIO = 1032;
const uint64_t DEFLATE_SLACK = 64;

}  // namespace

bool Resfile::open(const std::string& newPath) {
    if (file.is_open() && newPath == path) return true;
    if (file.is_open()) file.close();
    forget();
    file.clear();
    file.open(newPath, std::ios::in | std::ios::binary);
    if (!file.is_open()) return false;
    path = newPath;

    file.seekg(0, std::ios::end);
    std::streamoff end = file.tellg();
    file.seekg(0, std::ios::beg);
    fileSize = (end > 0 && end <= std::streamoff(UINT32_MAX)) ? uint32_t(end) : 0;

    char magic[4];
    uint32_t dataStart = 0, entryCount = 0;
    bool headerOk = fileSize > 4 && readBytes(magic, 4) && readBytes(&version, 1);
    if (headerOk && (memcmp(magic, MAGIC, 4) != 0 || version != VERSION)) {
        printf("FAIL: Resfile.open: Nieobslugiwana wersja resfile \"%s\"\n", path.c_str());
        file.close();
        return false;
    }
    if (!headerOk || !readU32(dataStart) || !readU32(entryCount)) {
        printf("FAIL: Resfile.open: Brak naglowka \"%s\"\n", path.c_str());
        file.close();
        return false;
    }
    if (!readTable(dataStart, entryCount)) {
        forget();
        file.close();
        return false;
    }
    return true;
}

// A table that breaks off or claims more than the file can hold is refused as
// a whole: entries made of whatever bytes follow would only mislead.
bool Resfile::readTable(uint32_t dataStart, uint32_t entryCount) {
    const char* const tableFailure =
        "FAIL: Resfile.open: Nie udalo sie dodac info o pliku do tablicy \"%s\"\n";
    if (entryCount > (fileSize - HEADER_SIZE) / MIN_ENTRY_SIZE) {
        printf(tableFailure, path.c_str());
        return false;
    }
    try {
        entries.reserve(entryCount);
    } catch (const std::bad_alloc&) {
        printf(tableFailure, path.c_str());
        return false;
    }
    // Counted here rather than asked of the stream, which costs a system call.
    uint64_t position = HEADER_SIZE;
    for (uint32_t i = 0; i < entryCount; ++i) {
        ResfileEntry entry{};
        uint32_t offset = 0, nameLength = 0;
        bool fieldsRead = readU32(offset) && readU32(entry.storedSize) && readBytes(&entry.flags, 1);
        if (fieldsRead && (entry.flags & FLAG_COMPRESSED))
            fieldsRead = readU32(entry.unpackedSize);
        else
            entry.unpackedSize = entry.storedSize;
        if (!fieldsRead || !readU32(nameLength)) {
            printf(tableFailure, path.c_str());
            return false;
        }
        uint64_t absolute = uint64_t(offset) + dataStart;
        // Past any file we can read, so a load of it is refused.
        entry.offset = absolute > UINT32_MAX ? UINT32_MAX : uint32_t(absolute);

        position += MIN_ENTRY_SIZE + ((entry.flags & FLAG_COMPRESSED) ? 4 : 0);
        if (nameLength > fileSize - position) {
            printf("FAIL: Resfile.open: Nie udalo sie zajac miejsca na nazwe pliku \"%s\" (%u)\n",
                   path.c_str(), nameLength);
            return false;
        }
        std::string entryName(nameLength, '\0');
        if (!readBytes(&entryName[0], nameLength)) {
            printf(tableFailure, path.c_str());
            return false;
        }
        // The name ends at its first zero byte; a later duplicate wins the name.
        position += nameLength;
        entryName.resize(strlen(entryName.c_str()));
        entries.push_back(entry);
        index[entryName] = &entries.back();
    }
    return true;
}

bool Resfile::readBytes(void* out, uint32_t length) {
    file.read(static_cast<char*>(out), length);
    return file.gcount() == std::streamsize(length);
}

bool Resfile::readU32(uint32_t& out) {
    uint8_t bytes[4];
    if (!readBytes(bytes, 4)) return false;
    out = LittleEndian::readU32(bytes);
    return true;
}

void Resfile::forget() {
    path.clear();
    fileSize = 0;
    version = 0;
    index.clear();
    entries.clear();
}

bool Resfile::exists(const std::string& entryName) const {
    return index.count(entryName) != 0;
}

uint32_t Resfile::size(const std::string& entryName) const {
    auto it = index.find(entryName);
    return it == index.end() ? 0 : it->second->unpackedSize;
}

uint32_t Resfile::size(uint32_t i) const {
    return isIndex(i) ? entries[i].unpackedSize : 0;
}

bool Resfile::isIndex(uint32_t i) const {
    return i < entries.size();
}

std::string Resfile::name(uint32_t i) const {
    if (!isIndex(i)) return std::string();
    for (const auto& named : index)
        if (named.second == &entries[i]) return named.first;
    return std::string();
}

const ResfileEntry* Resfile::entry(uint32_t i) const {
    return isIndex(i) ? &entries[i] : nullptr;
}

uint32_t Resfile::count(const std::string& archivePath) {
    return open(archivePath) ? uint32_t(entries.size()) : 0;
}

bool Resfile::openForLoad(const std::string& archivePath) {
    if (open(archivePath)) return true;
    printf("FAIL: Resfile.load: Nie udalo sie otworzyc pliku \"%s\"\n", archivePath.c_str());
    return false;
}

char* Resfile::load(const std::string& entryName) {
    if (entryName.size() < 2) {
        printf("FAIL: Resfile.load: Zla nazwa pliku (\"%s\")\n", entryName.c_str());
        return nullptr;
    }
    return load(std::string(path), entryName);
}

char* Resfile::load(const std::string& archivePath, const std::string& entryName) {
    if (!openForLoad(archivePath)) return nullptr;
    auto it = index.find(entryName);
    if (it == index.end()) {
        printf("FAIL: Resfile.load: Nie znaleziono pliku \"%s\"\n", entryName.c_str());
        return nullptr;
    }
    return loadEntry(*it->second);
}

char* Resfile::load(const std::string& archivePath, uint32_t i) {
    if (!openForLoad(archivePath)) return nullptr;
    if (!isIndex(i)) {
        printf("FAIL: Resfile.load: Nie znaleziono pliku %u\n", i);
        return nullptr;
    }
    return loadEntry(entries[i]);
}

char* Resfile::loadAll(const std::string& archivePath) {
    if (!openForLoad(archivePath)) return nullptr;
    char* whole = new (std::nothrow) char[fileSize];
    if (!whole) {
        printf("FAIL: Resfile.load: Nie udalo sie zajac miejsca na bufor (%u)\n", fileSize);
        return nullptr;
    }
    file.clear();
    file.seekg(0, std::ios::beg);
    file.read(whole, fileSize);
    memset(whole + file.gcount(), 0, fileSize - size_t(file.gcount()));
    return whole;
}

// The entry's bytes as they lie in the file, with a zero byte behind them.
char* Resfile::readStored(const ResfileEntry& entry) {
    bool inFile = entry.offset <= fileSize && entry.storedSize <= fileSize - entry.offset;
    char* stored = inFile ? new (std::nothrow) char[size_t(entry.storedSize) + 1] : nullptr;
    if (!stored) {
        printf("FAIL: Resfile.load: Nie udalo sie zajac pamieci na plik (%u)\n", entry.storedSize + 1);
        return nullptr;
    }
    file.clear();
    file.seekg(entry.offset, std::ios::beg);
    file.read(stored, entry.storedSize);
    // The file may have shrunk since open; never hand out unread bytes.
    memset(stored + file.gcount(), 0, size_t(entry.storedSize) + 1 - size_t(file.gcount()));
    return stored;
}

char* Resfile::loadEntry(ResfileEntry& entry) {
    char* stored = readStored(entry);
    if (!stored || !(entry.flags & FLAG_COMPRESSED)) return stored;

    bool plausible = entry.unpackedSize <= MAX_UNPACKED_SIZE &&
                     entry.unpackedSize <= entry.storedSize * MAX_DEFLATE_RATIO + DEFLATE_SLACK;
    char* unpacked = plausible ? new (std::nothrow) char[size_t(entry.unpackedSize) + 1] : nullptr;
    if (!unpacked) {
        printf("FAIL: Resfile.load: Nie udalo sie zajac pamieci na bufor (%u)\n", entry.unpackedSize + 1);
        delete[] stored;
        return nullptr;
    }
    uLongf length = entry.unpackedSize;
    int result = uncompress(reinterpret_cast<Bytef*>(unpacked), &length,
                            reinterpret_cast<const Bytef*>(stored), entry.storedSize);
    delete[] stored;
    if (result != Z_OK) {
        printf("FAIL: Resfile.load: Nie udalo sie rozpakowac pliku (%d)\n", result);
        delete[] unpacked;
        return nullptr;
    }
    // A stream that inflates short is kept; its true length counts from now on.
    entry.unpackedSize = uint32_t(length);
    unpacked[length] = 0;
    return unpacked;
}
