// Any bytes as a settings file: the load may refuse them but must never read
// past their end or allocate what a length claims.
#include <sstream>

#include "FuzzSupport.h"
#include "resources/Database.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    quiet();
    std::istringstream in(std::string(reinterpret_cast<const char*>(data), size));
    Database db;
    db.loadFrom(in);
    return 0;
}
