#include "tests/system/refdoc/ToolProcess.hpp"

#include <fcntl.h>
#include <spawn.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <system_error>

extern char** environ;

namespace refdoc_tests {

namespace {

[[noreturn]] void fail(const char* what, int error = errno) {
    throw std::system_error(error, std::generic_category(), what);
}

class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {
        if (number_ < 0)
            fail("open");
    }
    ~Descriptor() { close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int get() const { return number_; }
    void close() {
        if (number_ >= 0)
            ::close(number_);
        number_ = -1;
    }

private:
    int number_;
};

// A temporary file that is deleted when it is closed.
class Capture {
public:
    Capture() : file_(std::tmpfile(), &std::fclose) {
        if (!file_)
            fail("tmpfile");
    }

    int descriptor() const { return fileno(file_.get()); }

    std::string text() const {
        std::string text;
        std::rewind(file_.get());
        for (int byte = std::fgetc(file_.get()); byte != EOF; byte = std::fgetc(file_.get()))
            text += static_cast<char>(byte);
        return text;
    }

private:
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file_;
};

std::vector<std::string> environmentOf(const Surroundings& surroundings) {
    std::vector<std::string> environment;
    for (char** variable = environ; *variable; ++variable) {
        const std::string_view text = *variable;
        if (!affectsProgram(text.substr(0, text.find('='))))
            environment.emplace_back(text);
    }
    for (const auto& [name, value] : surroundings.variables)
        environment.push_back(name + '=' + value);
    return environment;
}

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

pid_t spawn(const std::vector<std::string>& arguments, const Surroundings& surroundings, int out,
            int err) {
    std::vector<std::string> words{REFDOC_PROGRAM};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<std::string> environment = environmentOf(surroundings);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, out, STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, err, STDERR_FILENO);
    posix_spawn_file_actions_addchdir_np(&actions, currentFolder(surroundings).c_str());
    pid_t child = 0;
    const int error = posix_spawn(&child, REFDOC_PROGRAM, &actions, nullptr,
                                  pointersTo(words).data(), pointersTo(environment).data());
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0)
        fail("posix_spawn", error);
    return child;
}

int waitFor(pid_t child) {
    int status = 0;
    while (waitpid(child, &status, 0) < 0) {
        if (errno != EINTR)
            fail("waitpid");
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// Reads until the other side is closed, which a terminal reports as an error.
std::string readAll(int descriptor) {
    std::string text;
    char block[4096];
    for (;;) {
        const ssize_t count = read(descriptor, block, sizeof block);
        if (count > 0)
            text.append(block, static_cast<std::size_t>(count));
        else if (count == 0 || errno != EINTR)
            return text;
    }
}

// Lets bytes pass unchanged and sets the width.
void prepareTerminal(int terminal, std::size_t columns) {
    termios settings{};
    if (tcgetattr(terminal, &settings) != 0)
        fail("tcgetattr");
    cfmakeraw(&settings);
    if (tcsetattr(terminal, TCSANOW, &settings) != 0)
        fail("tcsetattr");
    winsize size{};
    size.ws_col = static_cast<unsigned short>(columns);
    size.ws_row = 24;
    if (ioctl(terminal, TIOCSWINSZ, &size) != 0)
        fail("TIOCSWINSZ");
}

} // namespace

Outcome runProgram(const std::vector<std::string>& arguments, const Surroundings& surroundings) {
    const Capture out;
    const Capture err;
    Outcome outcome;
    if (surroundings.output.empty()) {
        outcome.status =
            waitFor(spawn(arguments, surroundings, out.descriptor(), err.descriptor()));
        outcome.out = out.text();
    } else {
        const Descriptor device(open(surroundings.output.c_str(), O_WRONLY | O_CLOEXEC));
        outcome.status = waitFor(spawn(arguments, surroundings, device.get(), err.descriptor()));
    }
    outcome.err = err.text();
    return outcome;
}

Outcome runOnTerminal(std::size_t columns, const std::vector<std::string>& arguments,
                      const Surroundings& surroundings) {
    const Descriptor observer(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC));
    if (grantpt(observer.get()) != 0 || unlockpt(observer.get()) != 0)
        fail("unlockpt");
    char name[128];
    if (const int error = ptsname_r(observer.get(), name, sizeof name); error != 0)
        fail("ptsname_r", error);
    Descriptor terminal(open(name, O_RDWR | O_NOCTTY | O_CLOEXEC));
    prepareTerminal(terminal.get(), columns);

    const Capture err;
    Outcome outcome;
    const pid_t child = spawn(arguments, surroundings, terminal.get(),
                              surroundings.isErrorOnTerminal ? terminal.get() : err.descriptor());
    terminal.close();
    outcome.out = readAll(observer.get());
    outcome.status = waitFor(child);
    outcome.err = err.text();
    return outcome;
}

} // namespace refdoc_tests
