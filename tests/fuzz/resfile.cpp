#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include "resources/Resfile.h"

// Any bytes as an archive: open may refuse them, and every entry it accepts
// must load or fail without reading past the file or allocating what a
// lying table claims.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static bool quiet = freopen("/dev/null", "w", stdout) != nullptr;
    (void)quiet;
    static const std::string path = "/tmp/fuzz-resfile-" + std::to_string(getpid()) + ".cres";
    static bool removedAtExit = atexit([] { remove(path.c_str()); }) == 0;
    (void)removedAtExit;
    FILE* file = fopen(path.c_str(), "wb");
    if (!file) return 0;
    fwrite(data, 1, size, file);
    fclose(file);

    Resfile resfile;
    if (!resfile.open(path)) return 0;
    for (uint32_t i = 0; resfile.isIndex(i); ++i) {
        std::unique_ptr<char[]> byIndex(resfile.load(path, i));
        std::string name = resfile.name(i);
        if (!name.empty()) std::unique_ptr<char[]> byName(resfile.load(name));
    }
    std::unique_ptr<char[]> whole(resfile.loadAll(path));
    return 0;
}
