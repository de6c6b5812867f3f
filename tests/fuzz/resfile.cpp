// Any bytes as an archive: open may refuse them, and every entry it accepts
// must load or fail without reading past the file or allocating what a
// lying table claims.
#include <memory>

#include "FuzzSupport.h"
#include "resources/Resfile.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    quiet();
    const std::string& path = asFile(data, size, ".cres");
    Resfile resfile;
    if (!resfile.open(path)) return 0;
    for (uint32_t i = 0; resfile.isIndex(i); ++i) {
        std::unique_ptr<char[]> byIndex(resfile.load(path, i));
        if (!resfile.name(i).empty()) std::unique_ptr<char[]> byName(resfile.load(resfile.name(i)));
    }
    std::unique_ptr<char[]> whole(resfile.loadAll(path));
    return 0;
}
