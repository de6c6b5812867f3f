#include "shell/Log.h"

#include <SDL/SDL_mutex.h>
#include <cstdarg>
#include <ctime>

namespace {

uint32_t flags = Log::LOG_INFO | Log::LOG_FAIL | Log::LOG_OK;
FILE* out = stdout;
SDL_mutex* mutex = nullptr;
int lastDay = 0;
char stamp[64];

void writeLine(uint32_t bit, const char* prefix, const char* format, va_list args) {
    if (!(flags & bit)) return;
    Log::lock();
    Log::writeStamp();
    fwrite(prefix, 1, 6, out);
    if (bit == Log::LOG_DEBUG) fwrite("INFO: ", 1, 6, out);
    vfprintf(out, format, args);
    fputc('\n', out);
    fflush(out);
    Log::unlock();
}

}  // namespace

namespace Log {

#define KORVANE_LOG_LEVEL(name, bit, prefix)      \
    void name(const char* format, ...) {          \
        va_list args;                             \
        va_start(args, format);                   \
        writeLine(bit, prefix, format, args);     \
        va_end(args);                             \
    }

KORVANE_LOG_LEVEL(info, LOG_INFO, "INFO: ")
KORVANE_LOG_LEVEL(fail, LOG_FAIL, "FAIL: ")
KORVANE_LOG_LEVEL(ok, LOG_OK, "OK  : ")
KORVANE_LOG_LEVEL(debug, LOG_DEBUG, "DEBUG ")

#undef KORVANE_LOG_LEVEL

void setFlags(uint32_t mask) { flags = mask; }

uint32_t getFlags() { return flags; }

void setOut(FILE* stream) {
    lock();
    if (!stream)
        fail("Log.setOut: NULL");
    else
        out = stream;
    unlock();
}

void flush() { fflush(out); }

void createLock() {
    if (!mutex) mutex = SDL_CreateMutex();
}

void destroyLock() {
    if (mutex) SDL_DestroyMutex(mutex);
    mutex = nullptr;
}

void lock() {
    if (mutex) SDL_mutexP(mutex);
}

void unlock() {
    if (mutex) SDL_mutexV(mutex);
}

void writeStamp() {
    time_t now = time(nullptr);
    struct tm parts;
    localtime_r(&now, &parts);
    if (parts.tm_mday != lastDay) {
        strftime(stamp, sizeof stamp, "%Y-%m-%d %H:%M:%S", &parts);
        lastDay = parts.tm_mday;
    } else {
        strftime(stamp, sizeof stamp, "%H:%M:%S", &parts);
    }
    fprintf(out, "[%s] ", stamp);
}

void close() {
    lock();
    if (out && out != stdout) {
        fclose(out);
        out = stdout;
    }
    unlock();
}

}  // namespace Log
