#pragma once
#include <SDL/SDL.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>
#include <vector>

// The staged game, or the dedicated server beside it, in a directory of its
// own, so that each run has its own settings and log, started in the background.
class GameProcess {
public:
    // `game` is the staged game's folder, `folder` an empty one of the caller's.
    GameProcess(const std::string& game, const std::string& folder) : dir(folder) {
        for (const char* name : {"korvane", "korvane-server", "data.ini", "data.cres", "lang.ini"})
            if (symlink((game + "/" + name).c_str(), (dir + "/" + name).c_str()) != 0) perror("symlink");
    }
    ~GameProcess() { stop(SIGKILL); }
    GameProcess(const GameProcess&) = delete;
    GameProcess& operator=(const GameProcess&) = delete;

    // `program`: the game or another program staged beside it.
    void start(const std::vector<std::string>& arguments = {}, const std::string& program = "korvane") {
        pid = fork();
        if (pid != 0) return;
        // The child: standard output and error into files, for the options that print.
        if (chdir(dir.c_str()) != 0) _exit(126);
        dup2(open("stdout.txt", O_WRONLY | O_CREAT | O_TRUNC, 0600), 1);
        dup2(open("stderr.txt", O_WRONLY | O_CREAT | O_TRUNC, 0600), 2);
        setenv("SDL_AUDIODRIVER", "dummy", 1);
        // Under AddressSanitizer: the game unloads the GL driver as it ends,
        // whose leaks can then no longer be told from ours by their stacks.
        // The game's own leaks are the in-process tests' to find.
        const char* asan = getenv("ASAN_OPTIONS");
        if (program == "korvane") setenv("ASAN_OPTIONS", (std::string(asan ? asan : "") + ":detect_leaks=0").c_str(), 1);
        const std::string path = "./" + program;
        std::vector<char*> argv{const_cast<char*>(path.c_str())};
        for (const std::string& argument : arguments) argv.push_back(const_cast<char*>(argument.c_str()));
        argv.push_back(nullptr);
        execv(argv[0], argv.data());
        _exit(127);
    }
    // The exit code; -1 when it ended otherwise or not within 20 s.
    int wait() {
        for (int i = 0; i < 2000 && pid > 0; ++i) {
            int status = 0;
            if (waitpid(pid, &status, WNOHANG) == pid) {
                pid = -1;
                return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
            }
            SDL_Delay(10);
        }
        return -1;
    }
    void stop(int signal) {
        if (pid <= 0) return;
        kill(pid, signal);
        waitpid(pid, nullptr, 0);
        pid = -1;
    }
    // Until the log holds `pattern` `times` times; false after 30 s.
    bool logShows(const std::string& pattern, size_t times = 1) {
        for (uint32_t begin = SDL_GetTicks(); SDL_GetTicks() - begin < 30000; SDL_Delay(50))
            if (count(pattern) >= times) return true;
        return false;
    }
    size_t count(const std::string& pattern) {
        const std::string text = log();
        const std::regex expression(pattern);
        return size_t(std::distance(std::sregex_iterator(text.begin(), text.end(), expression), std::sregex_iterator()));
    }
    // Read here rather than through the tests' support, which the benchmarks don't link.
    std::string log() const {
        std::ifstream in(dir + "/log.txt", std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), {});
    }
    // Fresh presses into the game's window, each held for a few frames, also
    // slow ones, but left and right, which change numbers, for less than the
    // menu's shortest repeat. What they did shows in the log; a key that ends
    // the program leaves no window for its release.
    void press(const std::vector<std::string>& keys) {
        const std::string window = windowId();
        for (const std::string& key : keys) {
            const char* hold = key == "Left" || key == "Right" ? "0.06" : "0.15";
            const std::string command = "xdotool keydown --window " + window + " " + key + " sleep " + hold +
                                        " keyup --window " + window + " " + key + " sleep 0.2 2>/dev/null";
            if (system(command.c_str()) != 0) return;
        }
    }

    pid_t id() const { return pid; }

    const std::string dir;

private:
    std::string windowId() {
        const std::string command = "xdotool search --sync --pid " + std::to_string(pid) + " 2>/dev/null | head -1";
        FILE* pipe = popen(command.c_str(), "r");
        char line[64] = {};
        const bool read = fgets(line, sizeof line, pipe) != nullptr;
        pclose(pipe);
        return read ? std::string(line, strcspn(line, "\n")) : "none";
    }

    pid_t pid = -1;
};
