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

// Counts the current call and returns whether it must fail; sets errno if so.
bool fails(FileCall call) noexcept {
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

extern "C" {

int open(const char* file, int flags, ...) {
    static auto* const real = next<int(const char*, int, ...)>("open");
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return fails(FileCall::Open) ? -1 : real(file, flags, mode);
}

int openat(int folder, const char* file, int flags, ...) {
    static auto* const real = next<int(int, const char*, int, ...)>("openat");
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return fails(FileCall::Open) ? -1 : real(folder, file, flags, mode);
}

FILE* fopen(const char* file, const char* mode) {
    static auto* const real = next<FILE*(const char*, const char*)>("fopen");
    return fails(FileCall::Open) ? nullptr : real(file, mode);
}

FILE* fopen64(const char* file, const char* mode) {
    static auto* const real = next<FILE*(const char*, const char*)>("fopen64");
    return fails(FileCall::Open) ? nullptr : real(file, mode);
}

int stat(const char* file, struct stat* status) noexcept {
    static auto* const real = next<int(const char*, struct stat*)>("stat");
    return fails(FileCall::Status) ? -1 : real(file, status);
}

int fstat(int file, struct stat* status) noexcept {
    static auto* const real = next<int(int, struct stat*)>("fstat");
    return fails(FileCall::Status) ? -1 : real(file, status);
}

ssize_t read(int file, void* room, std::size_t length) {
    static auto* const real = next<ssize_t(int, void*, std::size_t)>("read");
    return shorten(length) ? real(file, room, length) : -1;
}

ssize_t pread(int file, void* room, std::size_t length, off_t offset) {
    static auto* const real = next<ssize_t(int, void*, std::size_t, off_t)>("pread");
    return shorten(length) ? real(file, room, length, offset) : -1;
}

off_t lseek(int file, off_t offset, int whence) noexcept {
    static auto* const real = next<off_t(int, off_t, int)>("lseek");
    return fails(FileCall::Seek) ? -1 : real(file, offset, whence);
}

DIR* opendir(const char* folder) {
    static auto* const real = next<DIR*(const char*)>("opendir");
    return fails(FileCall::OpenFolder) ? nullptr : real(folder);
}

DIR* fdopendir(int folder) {
    static auto* const real = next<DIR*(int)>("fdopendir");
    return fails(FileCall::OpenFolder) ? nullptr : real(folder);
}

dirent* readdir(DIR* folder) {
    static auto* const real = next<dirent*(DIR*)>("readdir");
    return fails(FileCall::ReadFolder) ? nullptr : real(folder);
}

int close(int file) {
    static auto* const real = next<int(int)>("close");
    return noteClose(real(file));
}

int closedir(DIR* folder) {
    static auto* const real = next<int(DIR*)>("closedir");
    return noteClose(real(folder));
}

} // extern "C"
