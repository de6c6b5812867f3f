// Any bytes as a key-and-value file, read for the section the game asks for
// first and for a key that may or may not be there.
#include "FuzzSupport.h"
#include "resources/IniFile.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    quiet();
    IniFile ini;
    if (ini.load(asFile(data, size, ".ini"), "list")) {
        ini.get("0");
        ini.get("1");
    }
    return 0;
}
