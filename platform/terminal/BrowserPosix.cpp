#include "platform/terminal/Browser.hpp"

#include <fcntl.h>
#include <spawn.h>
#include <unistd.h>

#include <csignal>

namespace platform {

namespace {

#ifdef __APPLE__
constexpr char kProgram[] = "open";
#else
constexpr char kProgram[] = "xdg-open";
#endif

// Keys such as Ctrl+C must not end the browser, so it gets a process group of its own.
int startProgram(posix_spawnattr_t& attributes, posix_spawn_file_actions_t& actions,
                 std::string url) {
    sigset_t defaults;
    sigemptyset(&defaults);
    sigaddset(&defaults, SIGPIPE);
    posix_spawnattr_setsigdefault(&attributes, &defaults);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGDEF);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        const int error =
            posix_spawn_file_actions_addopen(&actions, stream, "/dev/null", O_RDWR, 0);
        if (error != 0)
            return error;
    }
    std::string program = kProgram;
    char* arguments[] = {program.data(), url.data(), nullptr};
    pid_t child = 0;
    return posix_spawnp(&child, kProgram, &actions, &attributes, arguments, environ);
}

} // namespace

bool openInBrowser(const std::string& url) {
    posix_spawnattr_t attributes;
    posix_spawn_file_actions_t actions;
    if (posix_spawnattr_init(&attributes) != 0)
        return false;
    bool isStarted = false;
    if (posix_spawn_file_actions_init(&actions) == 0) {
        isStarted = startProgram(attributes, actions, url) == 0;
        posix_spawn_file_actions_destroy(&actions);
    }
    posix_spawnattr_destroy(&attributes);
    return isStarted;
}

} // namespace platform
