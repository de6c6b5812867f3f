#include "shell/RunLog.h"

#include <unistd.h>

#include <cstdlib>
#include <ctime>

#include "shell/Log.h"

namespace RunLog {

FILE* takeStandardOutput(const char* file, const char* program) {
    FILE* report = fdopen(dup(fileno(stdout)), "w");
    if (!report || !freopen(file, "a", stdout)) {
        fprintf(stderr, "%s: cannot write %s here\n", program, file);
        return nullptr;
    }
    return report;
}

void begin() {
    Log::setFlags(Log::LOG_INFO | Log::LOG_FAIL | Log::LOG_OK | Log::LOG_DEBUG);
    // A worker thread logs once a game is hosted; lines must never interleave.
    Log::createLock();
    Log::info("Start");
    Log::info("Build %s %s", __DATE__, __TIME__);
    unsigned seed = static_cast<unsigned>(time(nullptr));
    srand(seed);
    Log::debug("Seed: 0x%08X", seed);
}

void end() {
    Log::info("Stop");
    Log::close();
    Log::destroyLock();
}

}  // namespace RunLog
