#include "tests/faults/FileFaults.hpp"

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <utility>

namespace docparser_tests {

namespace {

struct Armed {
    bool isArmed = false;
    FileCall call = FileCall::Open;
    int error = 0;
    CallSchedule schedule;
};

constinit thread_local Armed armed;
constinit thread_local std::array<std::size_t, kFileCalls> counts{};
constinit std::atomic<std::size_t> badCloses{0};

constinit thread_local const std::function<void()>* beforeOpen = nullptr;

// Counts the current call and returns whether it must fail; sets errno if so.
bool fails(FileCall call) noexcept {
    if (call == FileCall::Open && beforeOpen)
        (*std::exchange(beforeOpen, nullptr))();
    if (!armed.isArmed || armed.call != call)
        return false;
    ++counts[static_cast<std::size_t>(call)];
    if (!armed.schedule.nextFails())
        return false;
    errno = armed.error;
    return true;
}

// Reduces the length if the read must be short. Returns false if the read must fail.
bool shorten(std::size_t& length) noexcept {
    if (!fails(FileCall::Read))
        return true;
    if (armed.error != kShortRead)
        return false;
    length = std::min(length, std::max<std::size_t>(length / 2, 1));
    return true;
}

// The original function, from the shared libraries of the program.
template <class Function>
Function* next(const char* name) noexcept {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

int noteClose(int result) noexcept {
    if (result != 0 && errno == EBADF)
        ++badCloses;
    return result != 0 || fails(FileCall::Close) ? -1 : 0;
}

// The third argument of a call that opens a file. Callers pass it only to create a file.
mode_t modeOf(int flags, va_list arguments) noexcept {
    return (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
}

} // namespace

FileFaults::FileFaults(FileCall call, int error, std::size_t first,
                       Repetition repetition) noexcept {
    counts[static_cast<std::size_t>(call)] = 0;
    armed = {true, call, error, CallSchedule(first, repetition)};
}

FileFaults::~FileFaults() {
    armed.isArmed = false;
}

std::size_t FileFaults::failures() const noexcept {
    return armed.schedule.failures();
}

std::size_t countedCalls(FileCall call) noexcept {
    return counts[static_cast<std::size_t>(call)];
}

void runBeforeNextOpen(const std::function<void()>& step) noexcept {
    beforeOpen = &step;
}

std::size_t wrongCloses() noexcept {
    return badCloses;
}

} // namespace docparser_tests

using docparser_tests::fails;
using docparser_tests::FileCall;
using docparser_tests::modeOf;
using docparser_tests::next;
using docparser_tests::noteClose;
using docparser_tests::shorten;

// The parameters have the names that the C library gives them.
extern "C" {

int open(const char* file, int oflag, ...) {
    static auto* const real = next<int(const char*, int, ...)>("open");
    va_list arguments;
    va_start(arguments, oflag);
    const mode_t mode = modeOf(oflag, arguments);
    va_end(arguments);
    return fails(FileCall::Open) ? -1 : real(file, oflag, mode);
}

int openat(int fd, const char* file, int oflag, ...) {
    static auto* const real = next<int(int, const char*, int, ...)>("openat");
    va_list arguments;
    va_start(arguments, oflag);
    const mode_t mode = modeOf(oflag, arguments);
    va_end(arguments);
    return fails(FileCall::Open) ? -1 : real(fd, file, oflag, mode);
}

FILE* fopen(const char* filename, const char* modes) {
    static auto* const real = next<FILE*(const char*, const char*)>("fopen");
    return fails(FileCall::Open) ? nullptr : real(filename, modes);
}

FILE* fopen64(const char* filename, const char* modes) {
    static auto* const real = next<FILE*(const char*, const char*)>("fopen64");
    return fails(FileCall::Open) ? nullptr : real(filename, modes);
}

int stat(const char* file, struct stat* buf) noexcept {
    static auto* const real = next<int(const char*, struct stat*)>("stat");
    return fails(FileCall::Status) ? -1 : real(file, buf);
}

int fstat(int fd, struct stat* buf) noexcept {
    static auto* const real = next<int(int, struct stat*)>("fstat");
    return fails(FileCall::Status) ? -1 : real(fd, buf);
}

ssize_t read(int fd, void* buf, std::size_t nbytes) {
    static auto* const real = next<ssize_t(int, void*, std::size_t)>("read");
    return shorten(nbytes) ? real(fd, buf, nbytes) : -1;
}

ssize_t pread(int fd, void* buf, std::size_t nbytes, off_t offset) {
    static auto* const real = next<ssize_t(int, void*, std::size_t, off_t)>("pread");
    return shorten(nbytes) ? real(fd, buf, nbytes, offset) : -1;
}

off_t lseek(int fd, off_t offset, int whence) noexcept {
    static auto* const real = next<off_t(int, off_t, int)>("lseek");
    return fails(FileCall::Seek) ? -1 : real(fd, offset, whence);
}

DIR* opendir(const char* name) {
    static auto* const real = next<DIR*(const char*)>("opendir");
    return fails(FileCall::OpenFolder) ? nullptr : real(name);
}

DIR* fdopendir(int fd) {
    static auto* const real = next<DIR*(int)>("fdopendir");
    return fails(FileCall::OpenFolder) ? nullptr : real(fd);
}

dirent* readdir(DIR* dirp) {
    static auto* const real = next<dirent*(DIR*)>("readdir");
    return fails(FileCall::ReadFolder) ? nullptr : real(dirp);
}

int close(int fd) {
    static auto* const real = next<int(int)>("close");
    return noteClose(real(fd));
}

int closedir(DIR* dirp) {
    static auto* const real = next<int(DIR*)>("closedir");
    return noteClose(real(dirp));
}

} // extern "C"
