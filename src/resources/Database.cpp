#include "resources/Database.h"

#include <cstdio>
#include <cstring>
#include <fstream>
#include <memory>
#include <new>
#include <unistd.h>

#include "resources/LittleEndian.h"

namespace {

std::map<std::string, std::unique_ptr<Database>> registry;

// Reads the records of a settings file without ever asking the stream for
// more than it holds: a length that points past the end is a failed read,
// not an allocation.
class RecordReader {
public:
    explicit RecordReader(std::istream& stream) : in(stream) {
        std::streampos start = in.tellg();
        in.seekg(0, std::ios::end);
        std::streampos end = in.tellg();
        in.seekg(start);
        if (start < 0 || end < start || !in) {
            failed = true;
            return;
        }
        remaining = static_cast<uint64_t>(end - start);
        empty = remaining == 0;
    }

    bool good() const { return !failed; }
    bool wasEmpty() const { return empty; }
    unsigned position() const { return static_cast<unsigned>(consumed); }

    bool readU32(uint32_t& out) {
        uint8_t bytes[4];
        if (!readRaw(reinterpret_cast<char*>(bytes), 4)) return false;
        out = LittleEndian::readU32(bytes);
        return true;
    }

    // Reads `length` bytes and keeps the text up to the first zero byte.
    // Throws std::bad_alloc only for a length the file really holds.
    bool readText(uint32_t length, std::string& out) {
        if (failed || length > remaining) return fail();
        std::string bytes(length, '\0');
        if (!readRaw(&bytes[0], length)) return false;
        out.assign(bytes.c_str(), strnlen(bytes.c_str(), length));
        return true;
    }

private:
    bool readRaw(char* to, uint32_t count) {
        if (failed || count > remaining) return fail();
        if (count > 0 && !in.read(to, count)) return fail();
        remaining -= count;
        consumed += count;
        return true;
    }

    bool fail() {
        failed = true;
        return false;
    }

    std::istream& in;
    uint64_t remaining = 0;
    uint64_t consumed = 0;
    bool failed = false;
    bool empty = false;
};

void putU32(std::string& out, uint32_t value) {
    uint8_t bytes[4];
    LittleEndian::writeU32(bytes, value);
    out.append(reinterpret_cast<const char*>(bytes), sizeof bytes);
}

void putText(std::string& out, const std::string& text) {
    putU32(out, static_cast<uint32_t>(text.size()));
    out += text;
}

// Writes all of `bytes`, forces them to the disk and closes the file; false
// if any step fails.
bool writeAndClose(FILE* out, const std::string& bytes) {
    bool ok = fwrite(bytes.data(), 1, bytes.size(), out) == bytes.size();
    ok = fflush(out) == 0 && ok;
    ok = fsync(fileno(out)) == 0 && ok;
    ok = fclose(out) == 0 && ok;
    return ok;
}

}  // namespace

Database* Database::get(const std::string& path) {
    auto found = registry.find(path);
    if (found != registry.end()) return found->second.get();
    auto database = std::make_unique<Database>();
    database->load(path);
    Database* shared = database.get();
    registry[path] = std::move(database);
    return shared;
}

void Database::saveAll() {
    for (auto& entry : registry) entry.second->save(entry.first);
}

void Database::clearAll() { registry.clear(); }

bool Database::load(const std::string& file) {
    if (file.size() < 2) return false;
    path = file;
    clear();
    std::ifstream in(file, std::ios::binary);
    if (!in) {
        printf("FAIL: Database.load: Nie udalo sie otworzyc pliku \"%s\"\n", file.c_str());
        return false;
    }
    return loadFrom(in);
}

bool Database::loadFrom(std::istream& in) {
    clear();
    RecordReader reader(in);
    const char* section = "str";
    try {
        uint32_t strCount = 0;
        if (reader.readU32(strCount)) {
            for (uint32_t i = 0; i < strCount && reader.good(); ++i) {
                uint32_t keyLength = 0;
                std::string key, value;
                if (!reader.readU32(keyLength)) break;
                if (keyLength == 0) {
                    puts("FAIL: Database.load: Zerowa dlugosc klucza (str)");
                    return false;
                }
                uint32_t valueLength = 0;
                if (!reader.readText(keyLength, key) || !reader.readU32(valueLength)) break;
                if (valueLength == 0) {
                    printf("FAIL: Database.load: Zerowa dlugosc klucza (str) - %u\n", reader.position());
                    continue;
                }
                if (!reader.readText(valueLength, value)) break;
                if (!key.empty()) str[key] = value;
            }
        }
        section = "val";
        uint32_t valCount = 0;
        if (reader.good() && reader.readU32(valCount)) {
            for (uint32_t i = 0; i < valCount && reader.good(); ++i) {
                uint32_t keyLength = 0, value = 0;
                std::string key;
                if (!reader.readU32(keyLength)) break;
                if (keyLength == 0) {
                    printf("FAIL: Database.load: Zerowa dlugosc klucza (val) - %u\n", reader.position());
                    continue;
                }
                if (!reader.readText(keyLength, key) || !reader.readU32(value)) break;
                if (!key.empty()) val[key] = static_cast<int32_t>(value);
            }
        }
    } catch (const std::bad_alloc&) {
        printf("FAIL: Database.load: Nie udalo sie zajac pamieci na klucz (%s)\n", section);
        return false;
    }
    // A file with no bytes at all is simply empty; one cut short keeps what
    // was read before the cut.
    if (!reader.good() && !reader.wasEmpty()) {
        printf("FAIL: Database.load: Plik urwany w pozycji %u; str: %u; val: %u\n", reader.position(),
               static_cast<unsigned>(str.size()), static_cast<unsigned>(val.size()));
        return false;
    }
    printf("INFO: Database.load: Wczytano str: %u; val: %u\n", static_cast<unsigned>(str.size()),
           static_cast<unsigned>(val.size()));
    return true;
}

bool Database::save(const std::string& file) {
    if (path.size() < 2) return false;
    path = file;
    std::string bytes;
    putU32(bytes, static_cast<uint32_t>(str.size()));
    for (const auto& entry : str) {
        putText(bytes, entry.first);
        putText(bytes, entry.second);
    }
    putU32(bytes, static_cast<uint32_t>(val.size()));
    for (const auto& entry : val) {
        putText(bytes, entry.first);
        putU32(bytes, static_cast<uint32_t>(entry.second));
    }

    const std::string fresh = file + ".new";
    FILE* out = fopen(fresh.c_str(), "wb");
    if (!out) {
        printf("FAIL: Database.save: Nie udalo sie otworzyc pliku \"%s\"\n", file.c_str());
        return false;
    }
    if (!writeAndClose(out, bytes) || rename(fresh.c_str(), file.c_str()) != 0) {
        remove(fresh.c_str());
        puts("FAIL: Database.save: Zapis nie powiodl sie (str)");
        return false;
    }
    return true;
}

void Database::clear() {
    str.clear();
    val.clear();
}

int32_t Database::getVal(const std::string& key) const {
    auto found = val.find(key);
    return found == val.end() ? 0 : found->second;
}

std::string Database::getStr(const std::string& key) const {
    auto found = str.find(key);
    return found == str.end() ? std::string() : found->second;
}

void Database::setVal(const std::string& key, int32_t value) {
    if (!key.empty()) val[key] = value;
}

void Database::setStr(const std::string& key, const std::string& value) {
    if (!key.empty()) str[key] = value;
}
