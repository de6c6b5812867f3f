#pragma once
#include <cstdint>
#include <cstdio>

// The one line-oriented diagnostic channel: "[stamp] LEVEL text\n", flushed
// at once so that the log survives a crash.
namespace Log {

enum : uint32_t {
    LOG_INFO = 1,
    LOG_FAIL = 2,
    LOG_OK = 4,
    LOG_DEBUG = 8,
};

void info(const char* format, ...) __attribute__((format(printf, 1, 2)));
void fail(const char* format, ...) __attribute__((format(printf, 1, 2)));
void ok(const char* format, ...) __attribute__((format(printf, 1, 2)));
void debug(const char* format, ...) __attribute__((format(printf, 1, 2)));

void setFlags(uint32_t mask);
uint32_t getFlags();
void setOut(FILE* stream);
void flush();
void createLock();
void destroyLock();
void lock();
void unlock();
void writeStamp();
void close();

}  // namespace Log
