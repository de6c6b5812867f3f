#include "TestSupport.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

namespace TestSupport {

ScopedTempDir::ScopedTempDir() {
    char cwd[4096];
    if (getcwd(cwd, sizeof cwd)) previous = cwd;
    char pattern[] = "/tmp/korvane-test-XXXXXX";
    if (mkdtemp(pattern)) dir = pattern;
    if (!dir.empty() && chdir(dir.c_str()) != 0) dir.clear();
}

ScopedTempDir::~ScopedTempDir() {
    if (!previous.empty() && chdir(previous.c_str()) != 0) perror("chdir");
    if (!dir.empty()) {
        std::string cmd = "rm -rf '" + dir + "'";
        if (system(cmd.c_str()) != 0) perror("rm");
    }
}

CapturedStdout::CapturedStdout() {
    fflush(stdout);
    char pattern[] = "/tmp/korvane-stdout-XXXXXX";
    int fd = mkstemp(pattern);
    file = pattern;
    savedFd = dup(fileno(stdout));
    dup2(fd, fileno(stdout));
    close(fd);
}

CapturedStdout::~CapturedStdout() {
    fflush(stdout);
    dup2(savedFd, fileno(stdout));
    close(savedFd);
    // GoogleTest reports failures on standard output too: a failed test
    // shows what was captured, its own reports among it.
    if (::testing::Test::HasFailure()) fputs(readFile(file).c_str(), stdout);
    unlink(file.c_str());
}

std::string CapturedStdout::text() {
    fflush(stdout);
    return readFile(file);
}

void writeFile(const std::string& path, const std::string& bytes) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::string readFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream ss;
    ss << in.rdbuf();
    return ss.str();
}

int run(const std::string& dir, const std::string& command, std::string* printed) {
    FILE* pipe = popen(("cd '" + dir + "' && " + command + " 2>&1").c_str(), "r");
    std::string text;
    char buffer[4096];
    for (size_t n; (n = fread(buffer, 1, sizeof buffer, pipe)) > 0;) text.append(buffer, n);
    const int status = pclose(pipe);
    if (printed) *printed = text;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace TestSupport
