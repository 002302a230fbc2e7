#include "platform/terminal/Pager.hpp"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <optional>
#include <vector>

namespace platform {

namespace {

constexpr int kCommandNotRun = 126;   // exit status of a shell: found, but not executable
constexpr int kCommandNotFound = 127; // exit status of a shell

// Ignores a signal during the object's lifetime.
class IgnoredSignal {
public:
    explicit IgnoredSignal(int number) : number_(number) {
        struct sigaction ignore {};
        ignore.sa_handler = SIG_IGN;
        sigaction(number_, &ignore, &before_);
    }
    ~IgnoredSignal() { sigaction(number_, &before_, nullptr); }
    IgnoredSignal(const IgnoredSignal&) = delete;
    IgnoredSignal& operator=(const IgnoredSignal&) = delete;

private:
    int number_;
    struct sigaction before_ {};
};

// A pipe that child processes do not inherit.
class Pipe {
public:
    Pipe() {
        if (::pipe2(ends_.data(), O_CLOEXEC) != 0)
            ends_ = {-1, -1};
    }
    ~Pipe() {
        closeEnd(0);
        closeEnd(1);
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    bool isOpen() const { return ends_[0] >= 0; }
    int readEnd() const { return ends_[0]; }
    int writeEnd() const { return ends_[1]; }
    void closeReadEnd() { closeEnd(0); }
    void closeWriteEnd() { closeEnd(1); }

private:
    void closeEnd(std::size_t index) {
        if (ends_[index] >= 0)
            ::close(ends_[index]);
        ends_[index] = -1;
    }

    std::array<int, 2> ends_{};
};

// Returns the environment of this process, with LESS added unless it is set.
std::vector<char*> pagerEnvironment() {
    static char lessOptions[] = "LESS=FRX";
    std::vector<char*> variables;
    for (char** variable = environ; *variable; ++variable)
        variables.push_back(*variable);
    if (!std::getenv("LESS"))
        variables.push_back(lessOptions);
    variables.push_back(nullptr);
    return variables;
}

std::optional<pid_t> startShell(const std::string& command, int standardInput) {
    posix_spawn_file_actions_t actions;
    posix_spawnattr_t attributes;
    if (posix_spawn_file_actions_init(&actions) != 0)
        return std::nullopt;
    if (posix_spawnattr_init(&attributes) != 0) {
        posix_spawn_file_actions_destroy(&actions);
        return std::nullopt;
    }
    // The pager handles the signals that this process ignores meanwhile.
    sigset_t defaults;
    sigemptyset(&defaults);
    for (const int number : {SIGPIPE, SIGINT, SIGQUIT})
        sigaddset(&defaults, number);
    posix_spawnattr_setsigdefault(&attributes, &defaults);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);
    pid_t child = 0;
    int error = posix_spawn_file_actions_adddup2(&actions, standardInput, STDIN_FILENO);
    if (error == 0) {
        const std::string words[] = {"sh", "-c", command};
        char* arguments[] = {const_cast<char*>(words[0].c_str()),
                             const_cast<char*>(words[1].c_str()),
                             const_cast<char*>(words[2].c_str()), nullptr};
        error = posix_spawn(&child, "/bin/sh", &actions, &attributes, arguments,
                            pagerEnvironment().data());
    }
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    return error == 0 ? std::optional(child) : std::nullopt;
}

// Writes until everything is written or the reader has closed its end.
void writeAll(int descriptor, std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = ::write(descriptor, text.data(), text.size());
        if (written > 0)
            text.remove_prefix(static_cast<std::size_t>(written));
        else if (errno != EINTR)
            return;
    }
}

int waitFor(pid_t child) {
    int status = 0;
    while (::waitpid(child, &status, 0) < 0) {
        if (errno != EINTR)
            return 0;
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : 0;
}

} // namespace

bool showThroughPager(const std::string& command, std::string_view text) {
    const IgnoredSignal brokenPipe(SIGPIPE);
    const IgnoredSignal interrupt(SIGINT);
    const IgnoredSignal quit(SIGQUIT);
    Pipe pipe;
    if (!pipe.isOpen())
        return false;
    const std::optional<pid_t> pager = startShell(command, pipe.readEnd());
    if (!pager)
        return false;
    pipe.closeReadEnd();
    writeAll(pipe.writeEnd(), text);
    pipe.closeWriteEnd();
    const int status = waitFor(*pager);
    return status != kCommandNotRun && status != kCommandNotFound;
}

bool isProgramInstalled(const std::string& name) {
    const char* path = std::getenv("PATH");
    std::string_view folders = path ? path : "";
    while (!folders.empty()) {
        const std::size_t end = std::min(folders.find(':'), folders.size());
        const std::string file = std::string(folders.substr(0, end)) + '/' + name;
        if (end > 0 && ::access(file.c_str(), X_OK) == 0)
            return true;
        folders.remove_prefix(std::min(end + 1, folders.size()));
    }
    return false;
}

} // namespace platform
