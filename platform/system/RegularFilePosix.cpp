#include "platform/system/Cancellation.hpp"
#include "platform/system/RegularFile.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

namespace platform {

namespace {

constexpr std::intptr_t kNoHandle = -1;

int descriptor(std::intptr_t handle) noexcept {
    return static_cast<int>(handle);
}

[[noreturn]] void throwLastError(const char* what) {
    throw std::system_error(errno, std::generic_category(), what);
}

// Repeats a system call for as long as signals interrupt it.
template <class Call>
auto uninterrupted(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

int openDescriptor(const char* file) noexcept {
    // Without O_NONBLOCK, opening a pipe would wait for a writer.
    return uninterrupted(
        [&] { return ::open(file, O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY); });
}

bool isRegular(int file) noexcept {
    struct stat status = {};
    return uninterrupted([&] { return ::fstat(file, &status); }) == 0 && S_ISREG(status.st_mode);
}

bool isRegular(const NativePath& file) noexcept {
    // The system would read the path only up to the NUL and examine another file.
    if (file.find('\0') != std::string::npos)
        return false;
    struct stat status = {};
    return uninterrupted([&] { return ::stat(file.c_str(), &status); }) == 0 &&
           S_ISREG(status.st_mode);
}

} // namespace

std::optional<RegularFile> RegularFile::open(const NativePath& file) noexcept {
    // A noexcept function must not be unwound; the first read is a cancellation point.
    const CancellationHold hold;
    // Opening a device may have side effects, so the type is checked before opening, and again
    // after it in case the path now leads to another file.
    if (!isRegular(file))
        return std::nullopt;
    const int opened = openDescriptor(file.c_str());
    if (opened < 0)
        return std::nullopt;
    RegularFile result(opened);
    if (!isRegular(opened))
        return std::nullopt;
    return result;
}

RegularFile::RegularFile(RegularFile&& other) noexcept
    : handle_(std::exchange(other.handle_, kNoHandle)) {}

RegularFile& RegularFile::operator=(RegularFile&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
}

RegularFile::~RegularFile() {
    if (handle_ == kNoHandle)
        return;
    // A destructor must not be unwound: a cancellation here would terminate the process.
    const CancellationHold hold;
    ::close(descriptor(handle_));
}

std::uint64_t RegularFile::size() const {
    struct stat status = {};
    if (uninterrupted([&] { return ::fstat(descriptor(handle_), &status); }) != 0)
        throwLastError("the size of a file is not known");
    return static_cast<std::uint64_t>(status.st_size);
}

std::size_t RegularFile::readAt(std::uint64_t offset, char* buffer, std::size_t length) const {
    std::size_t done = 0;
    while (done < length) {
        const auto position = static_cast<off_t>(offset + done);
        const ssize_t count = uninterrupted(
            [&] { return ::pread(descriptor(handle_), buffer + done, length - done, position); });
        if (count < 0)
            throwLastError("a file could not be read");
        if (count == 0)
            break;
        done += static_cast<std::size_t>(count);
    }
    return done;
}

} // namespace platform
