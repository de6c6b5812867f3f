#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <sstream>
#include <string>

#include "resources/Database.h"

// Any bytes as a settings file: the load may refuse them but must never read
// past their end or allocate what a length claims.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static bool quiet = freopen("/dev/null", "w", stdout) != nullptr;
    (void)quiet;
    std::istringstream in(std::string(reinterpret_cast<const char*>(data), size));
    Database db;
    db.loadFrom(in);
    return 0;
}
