#include "platform/except/Cancellation.hpp"
#include "platform/path/RegularFile.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

namespace fl::filesystem {

namespace {

using foundation::core::except::CancellationHold;

constexpr std::intptr_t kNoHandle = -1;

int descriptor(std::intptr_t handle) noexcept {
    return static_cast<int>(handle);
}

[[noreturn]] void throwLastError(const char* what) {
    throw std::system_error(errno, std::generic_category(), what);
}

// Makes a call into the system again for as long as a signal interrupts it.
template <class Call>
auto uninterrupted(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

int openDescriptor(const char* file) noexcept {
    // Without O_NONBLOCK the opening of a pipe waits for a writer.
    return uninterrupted(
        [&] { return ::open(file, O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY); });
}

bool isRegular(int file) noexcept {
    struct stat status = {};
    return uninterrupted([&] { return ::fstat(file, &status); }) == 0 && S_ISREG(status.st_mode);
}

} // namespace

FileKind kindOf(const native_string& file) noexcept {
    // The system would stop at NUL and take the name for that of another file.
    if (file.find('\0') != std::string::npos)
        return FileKind::Missing;
    struct stat status = {};
    if (uninterrupted([&] { return ::stat(file.c_str(), &status); }) != 0)
        return FileKind::Missing;
    return S_ISREG(status.st_mode) ? FileKind::Regular : FileKind::Other;
}

std::optional<RegularFile> RegularFile::open(const native_string& file) noexcept {
    // Nothing can be unwound from here; the first read lets a cancellation pass.
    const CancellationHold hold;
    // A device may act on being opened, so its kind is asked before and, should the name have
    // come to mean another file in between, after.
    if (kindOf(file) != FileKind::Regular)
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
    // A thread that ended here would end its process, as a destructor cannot be unwound.
    const CancellationHold hold;
    ::close(descriptor(handle_));
}

std::uint64_t RegularFile::size() const {
    struct stat status = {};
    if (uninterrupted([&] { return ::fstat(descriptor(handle_), &status); }) != 0)
        throwLastError("the size of a file is not known");
    return static_cast<std::uint64_t>(status.st_size);
}

std::size_t RegularFile::readAt(std::uint64_t offset, char* room, std::size_t length) const {
    std::size_t done = 0;
    while (done < length) {
        const auto place = static_cast<off_t>(offset + done);
        const ssize_t count = uninterrupted(
            [&] { return ::pread(descriptor(handle_), room + done, length - done, place); });
        if (count < 0)
            throwLastError("a file could not be read");
        if (count == 0)
            break;
        done += static_cast<std::size_t>(count);
    }
    return done;
}

} // namespace fl::filesystem
