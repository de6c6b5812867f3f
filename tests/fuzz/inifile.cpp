#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "resources/IniFile.h"

// Any bytes as a key-and-value file, read for the section the game asks for
// first and for a key that may or may not be there.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const std::string path = "/tmp/fuzz-inifile-" + std::to_string(getpid()) + ".ini";
    static bool removedAtExit = atexit([] { remove(path.c_str()); }) == 0;
    (void)removedAtExit;
    FILE* file = fopen(path.c_str(), "wb");
    if (!file) return 0;
    fwrite(data, 1, size, file);
    fclose(file);

    IniFile ini;
    if (ini.load(path, "list")) {
        ini.get("0");
        ini.get("1");
    }
    return 0;
}
