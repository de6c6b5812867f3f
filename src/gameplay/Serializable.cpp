#include "gameplay/Serializable.h"

#include "shell/Log.h"

bool Serializable::hasSnapshot(const char* who, uint32_t size, uint32_t needed) {
    if (size >= needed) return true;
    Log::fail("%s: Za malo danych (%u bajtow, potrzeba %u)", who, size, needed);
    return false;
}
