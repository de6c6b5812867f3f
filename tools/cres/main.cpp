// cres: packs a folder into a CRES archive, and lists, extracts and verifies
// archives through the game's own reader.
#include <cstdio>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "CresWriter.h"
#include "resources/Resfile.h"

namespace fs = std::filesystem;

namespace {

const int EXIT_FAILED = 1;
const int EXIT_USAGE = 2;

int usage() {
    fprintf(stderr,
            "usage: cres pack DIR ARCHIVE | cres list ARCHIVE | cres extract ARCHIVE DIR | "
            "cres verify ARCHIVE\n");
    return EXIT_USAGE;
}

bool readWhole(const fs::path& path, std::string& out) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << in.rdbuf();
    out = bytes.str();
    return bool(in);
}

int pack(const std::string& dir, const std::string& archive) {
    std::error_code error;
    if (!fs::is_directory(dir, error)) {
        fprintf(stderr, "cres: %s is not a directory\n", dir.c_str());
        return EXIT_FAILED;
    }
    std::vector<std::string> names;
    for (fs::recursive_directory_iterator it(dir, error), end; !error && it != end; it.increment(error))
        if (it->is_regular_file()) names.push_back(it->path().lexically_relative(dir).generic_string());
    if (error) {
        fprintf(stderr, "cres: cannot walk %s: %s\n", dir.c_str(), error.message().c_str());
        return EXIT_FAILED;
    }
    // Sorted so that the same folder always gives the same archive.
    std::sort(names.begin(), names.end());
    std::vector<CresWriter::Entry> entries;
    for (const std::string& name : names) {
        std::string content;
        if (!readWhole(fs::path(dir) / name, content)) {
            fprintf(stderr, "cres: cannot read %s\n", name.c_str());
            return EXIT_FAILED;
        }
        entries.push_back(CresWriter::packEntry(name, content));
    }
    if (!CresWriter::write(archive, entries)) {
        fprintf(stderr, "cres: cannot write %s\n", archive.c_str());
        return EXIT_FAILED;
    }
    return 0;
}

bool openArchive(Resfile& resfile, const std::string& archive) {
    if (resfile.open(archive)) return true;
    fprintf(stderr, "cres: cannot open %s\n", archive.c_str());
    return false;
}

int list(const std::string& archive) {
    Resfile resfile;
    if (!openArchive(resfile, archive)) return EXIT_FAILED;
    for (uint32_t i = 0; resfile.isIndex(i); ++i) {
        const ResfileEntry* entry = resfile.entry(i);
        printf("%s\t%u\t%u\t%s\n", resfile.name(i).c_str(), entry->storedSize, entry->unpackedSize,
               entry->flags & Resfile::FLAG_COMPRESSED ? "compressed" : "plain");
    }
    return 0;
}

// Names come from the archive: refuse any that would land outside DIR.
bool isSafeName(const std::string& name) {
    fs::path path(name);
    if (name.empty() || path.is_absolute()) return false;
    for (const fs::path& part : path)
        if (part == "..") return false;
    return true;
}

int extract(const std::string& archive, const std::string& dir) {
    Resfile resfile;
    if (!openArchive(resfile, archive)) return EXIT_FAILED;
    int result = 0;
    for (uint32_t i = 0; resfile.isIndex(i); ++i) {
        std::string name = resfile.name(i);
        // An entry whose name a later one took cannot be reached by name.
        if (name.empty()) continue;
        if (!isSafeName(name)) {
            fprintf(stderr, "cres: refusing to extract %s\n", name.c_str());
            result = EXIT_FAILED;
            continue;
        }
        std::unique_ptr<char[]> data(resfile.load(archive, i));
        if (!data) {
            result = EXIT_FAILED;
            continue;
        }
        fs::path target = fs::path(dir) / name;
        std::error_code error;
        fs::create_directories(target.parent_path(), error);
        std::ofstream out(target, std::ios::binary | std::ios::trunc);
        out.write(data.get(), std::streamsize(resfile.size(i)));
        if (!out.flush()) {
            fprintf(stderr, "cres: cannot write %s\n", target.c_str());
            result = EXIT_FAILED;
        }
    }
    return result;
}

int verify(const std::string& archive) {
    Resfile resfile;
    if (!openArchive(resfile, archive)) return EXIT_FAILED;
    uint32_t bad = 0, total = 0;
    for (uint32_t i = 0; resfile.isIndex(i); ++i, ++total) {
        uint32_t declared = resfile.size(i);
        std::unique_ptr<char[]> data(resfile.load(archive, i));
        // A load keeps the true inflated length, so a short stream shows here.
        if (!data || resfile.size(i) != declared) {
            fprintf(stderr, "cres: entry %u (%s) is damaged\n", i, resfile.name(i).c_str());
            ++bad;
        }
    }
    printf("%u entries, %u damaged\n", total, bad);
    return bad ? EXIT_FAILED : 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) return usage();
    std::string command = argv[1];
    if (command == "pack" && argc == 4) return pack(argv[2], argv[3]);
    if (command == "list" && argc == 3) return list(argv[2]);
    if (command == "extract" && argc == 4) return extract(argv[2], argv[3]);
    if (command == "verify" && argc == 3) return verify(argv[2]);
    return usage();
}
