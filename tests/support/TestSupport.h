#pragma once
#include <string>

namespace TestSupport {

// Makes a fresh directory under /tmp and makes it the working directory for
// the lifetime of the object; the old working directory comes back after.
class ScopedTempDir {
public:
    ScopedTempDir();
    ~ScopedTempDir();
    ScopedTempDir(const ScopedTempDir&) = delete;
    ScopedTempDir& operator=(const ScopedTempDir&) = delete;
    const std::string& path() const { return dir; }

private:
    std::string dir;
    std::string previous;
};

// Sends the process's standard output into a file for the lifetime of the
// object; text() returns what was written so far.
class CapturedStdout {
public:
    CapturedStdout();
    ~CapturedStdout();
    CapturedStdout(const CapturedStdout&) = delete;
    CapturedStdout& operator=(const CapturedStdout&) = delete;
    std::string text();

private:
    int savedFd;
    std::string file;
};

// What `action` writes to standard output, where the log goes. The capture
// ends before the caller asserts, so test failures stay visible.
template <typename Action>
std::string logOf(Action&& action) {
    CapturedStdout out;
    action();
    return out.text();
}

void writeFile(const std::string& path, const std::string& bytes);
std::string readFile(const std::string& path);

// Runs `command` through the shell in `dir`; its exit code, and what it
// printed on standard output and error in `printed`.
int run(const std::string& dir, const std::string& command, std::string* printed = nullptr);

}  // namespace TestSupport
