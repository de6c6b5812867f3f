#include "resources/Resource.h"

#include <dirent.h>
#include <sys/stat.h>

#include <cstring>
#include <fstream>
#include <map>
#include <memory>
#include <new>

#include "resources/IniFile.h"
#include "resources/Resfile.h"
#include "shell/Log.h"

namespace {

struct BufferedFile {
    uint32_t size = 0;
    char* data = nullptr;  // size+1 bytes, owned by the store
};

// Ordered by file name: that order, not the list file's, decides which
// archive wins a name that several hold.
std::map<std::string, std::unique_ptr<Resfile>> resfiles;
std::map<std::string, BufferedFile> buffered;
uint32_t lastReadSize = 0;

const char* const LIST_SECTION = "list";

Resfile* archiveHolding(const std::string& name) {
    for (auto& archive : resfiles)
        if (archive.second->exists(name)) return archive.second.get();
    return nullptr;
}

bool isDirectory(const std::string& name) {
    struct stat info;
    return stat(name.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

// Size of an open plain file, or false when it is not a usable size.
bool plainSize(std::ifstream& in, uint32_t& size) {
    in.seekg(0, std::ios::end);
    std::streamoff end = in.tellg();
    in.seekg(0, std::ios::beg);
    if (end < 0 || end >= std::streamoff(UINT32_MAX)) return false;
    size = uint32_t(end);
    return true;
}

std::string withoutLineEnds(std::string value) {
    std::string cleaned;
    for (char c : value)
        if (c != '\r' && c != '\n') cleaned += c;
    return cleaned;
}

bool openArchive(const std::string& value, unsigned number) {
    try {
        std::string archivePath = withoutLineEnds(value);
        std::unique_ptr<Resfile> archive(new Resfile);
        if (!archive->open(archivePath)) {
            Log::fail("Resfile.open: Nie udalo sie otworzyc \"%s\" (%u)", archivePath.c_str(), number);
            return false;
        }
        resfiles[archivePath] = std::move(archive);
        return true;
    } catch (const std::bad_alloc&) {
        Log::fail("Resource.open: Nie udalo sie stworzyc resfile pliku \"%s\"", value.c_str());
        return false;
    }
}

}  // namespace

namespace Resource {

bool open(const std::string& listPath) {
    IniFile list;
    if (!list.load(listPath, LIST_SECTION)) {
        Log::fail("Resource.open: Nie udalo sie wczytac pliku listy \"%s\"", listPath.c_str());
        return false;
    }
    for (unsigned i = 0;; ++i) {
        std::string value = list.get(std::to_string(i));
        // Keys run without a gap; the first missing one ends the list.
        if (value.size() < 2) return true;
        if (resfiles.count(value)) continue;
        if (!openArchive(value, i + 1)) return false;
    }
}

void clear() {
    Log::info("Resource.clear: Czyszczenie, %u resfile, %u zbuforowanych",
              unsigned(resfiles.size()), unsigned(buffered.size()));
    resfiles.clear();
    for (auto& file : buffered) delete[] file.second.data;
    buffered.clear();
    Log::ok("Resource.clear: Wyczyszczono");
}

bool exists(const std::string& name) {
    return isBuff(name) || isRaw(name) || isRes(name);
}

bool isRaw(const std::string& name) {
    if (isDirectory(name)) return false;
    std::ifstream in(name, std::ios::in | std::ios::binary);
    return in.is_open();
}

bool isRes(const std::string& name) {
    return archiveHolding(name) != nullptr;
}

bool isBuff(const std::string& name) {
    return buffered.count(name) != 0;
}

char* read(const std::string& name) {
    lastReadSize = 0;
    if (isBuff(name)) return readBuff(name);
    if (isRaw(name)) return readRaw(name);
    return readRes(name);
}

char* readRaw(const std::string& name) {
    std::ifstream in;
    if (!isDirectory(name)) in.open(name, std::ios::in | std::ios::binary);
    if (!in.is_open()) {
        Log::fail("Resource.readRaw: Nie udalo sie otworzyc pliku \"%s\"", name.c_str());
        return nullptr;
    }
    uint32_t size = 0;
    char* data = plainSize(in, size) ? new (std::nothrow) char[size_t(size) + 1] : nullptr;
    if (!data) {
        Log::fail("Resource.readRaw: Nie udalo sie zajac miejsca na plik \"%s\"", name.c_str());
        return nullptr;
    }
    in.read(data, size);
    // A read error in the middle leaves what could be read, zero behind it.
    memset(data + in.gcount(), 0, size_t(size) + 1 - size_t(in.gcount()));
    lastReadSize = size;
    return data;
}

char* readRes(const std::string& name) {
    if (Resfile* archive = archiveHolding(name)) {
        char* data = archive->load(name);
        // Taken after the load: an entry that inflated short now tells its true size.
        if (data) lastReadSize = archive->size(name);
        return data;
    }
    Log::fail("Resource.readRes: Nie udalo sie otworzyc pliku \"%s\"", name.c_str());
    return nullptr;
}

char* readBuff(const std::string& name) {
    // Unlike a lookup with [], an unknown name leaves no empty entry behind,
    // which would hide a plain file of that name from read() for good.
    auto it = buffered.find(name);
    if (it == buffered.end() || it->second.size == 0 || !it->second.data) return nullptr;
    const BufferedFile& file = it->second;
    char* copy = new (std::nothrow) char[size_t(file.size) + 1];
    if (!copy) {
        Log::fail("Resource.readBuff: Nie udalo sie zajac miejsca na plik \"%s\"", name.c_str());
        return nullptr;
    }
    memcpy(copy, file.data, size_t(file.size) + 1);
    lastReadSize = file.size;
    return copy;
}

uint32_t lastSize() {
    return lastReadSize;
}

uint32_t size(const std::string& name) {
    auto it = buffered.find(name);
    if (it != buffered.end()) return it->second.size;
    if (isRaw(name)) {
        std::ifstream in(name, std::ios::in | std::ios::binary);
        uint32_t plain = 0;
        return plainSize(in, plain) ? plain : 0;
    }
    Resfile* archive = archiveHolding(name);
    return archive ? archive->size(name) : 0;
}

bool preload(const std::string& name) {
    auto it = buffered.find(name);
    if (it != buffered.end() && it->second.data) return true;
    char* data = read(name);
    preload(name, lastReadSize, data);
    return true;
}

bool preload(const std::string& name, uint32_t size, char* data) {
    if (!data || size == 0) return false;
    auto it = buffered.find(name);
    if (it != buffered.end() && it->second.size != 0) {
        delete[] data;
        return true;
    }
    Log::debug("Resource.preload: Buforowanie pliku \"%s\", size %u, data %p", name.c_str(), size,
               static_cast<void*>(data));
    buffered[name] = BufferedFile{size, data};
    return true;
}

uint32_t listDir(const std::string& path, std::vector<std::string>& names) {
    DIR* dir = opendir(path.c_str());
    if (!dir) return 0;
    // Callers skip the first two names, so "." and ".." go first whatever
    // order the file system lists them in.
    names.push_back(".");
    names.push_back("..");
    uint32_t added = 2;
    while (dirent* entry = readdir(dir)) {
        if (strcmp(entry->d_name, ".") == 0 || strcmp(entry->d_name, "..") == 0) continue;
        names.push_back(entry->d_name);
        ++added;
    }
    closedir(dir);
    return added;
}

time_t modTime(const std::string& path) {
    struct stat info;
    return stat(path.c_str(), &info) == 0 ? info.st_mtime : 0;
}

}  // namespace Resource
