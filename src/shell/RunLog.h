#pragma once
#include <cstdio>

// The frame of a run in the log shared by the game's programs: standard
// output taken over by the log file, the opening lines ("Start", the build,
// the seed of the one random source) and the closing one ("Stop").
namespace RunLog {

// Standard output appends to `file` from here on, so that whatever any part
// writes there lands in the log. Returns a stream on the old standard
// output, for a program's own report, or null (with a line on standard
// error) when the log can't be written.
FILE* takeStandardOutput(const char* file, const char* program);
// Every level on, a lock for the lines of other threads, the opening lines;
// seeds the random source from the wall clock.
void begin();
void end();

}  // namespace RunLog
