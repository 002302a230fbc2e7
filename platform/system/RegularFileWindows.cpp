#include "platform/system/RegularFile.hpp"
#include "platform/system/WindowsPath.hpp"

#include <windows.h>

#include <algorithm>
#include <system_error>
#include <utility>

namespace platform {

namespace {

// Others may read, write, rename and remove what is open here.
constexpr DWORD kShareEverything = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// One call reads at most this much; its length has 32 bits.
constexpr std::size_t kLongestRead = std::size_t{1} << 30;

constexpr std::intptr_t kNoHandle = -1; // INVALID_HANDLE_VALUE

HANDLE asHandle(std::intptr_t handle) noexcept {
    return reinterpret_cast<HANDLE>(handle);
}

[[noreturn]] void throwLastError(const char* what) {
    throw std::system_error(static_cast<int>(::GetLastError()), std::system_category(), what);
}

// Opens an existing file or folder and returns its handle as CreateFileW() does.
std::intptr_t openExisting(const NativePath& path, DWORD access, DWORD flags) noexcept {
    return reinterpret_cast<std::intptr_t>(::CreateFileW(path.c_str(), access, kShareEverything,
                                                         nullptr, OPEN_EXISTING, flags, nullptr));
}

bool isRegular(std::intptr_t handle) noexcept {
    BY_HANDLE_FILE_INFORMATION information = {};
    return ::GetFileType(asHandle(handle)) == FILE_TYPE_DISK &&
           ::GetFileInformationByHandle(asHandle(handle), &information) &&
           (information.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

} // namespace

std::optional<RegularFile> RegularFile::open(const NativePath& file) noexcept {
    if (isDeviceOrStream(file))
        return std::nullopt;
    const std::intptr_t opened = openExisting(file, GENERIC_READ, FILE_ATTRIBUTE_NORMAL);
    if (opened == kNoHandle)
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
    if (handle_ != kNoHandle)
        ::CloseHandle(asHandle(handle_));
}

std::uint64_t RegularFile::size() const {
    LARGE_INTEGER size = {};
    if (!::GetFileSizeEx(asHandle(handle_), &size))
        throwLastError("the size of a file is not known");
    return static_cast<std::uint64_t>(size.QuadPart);
}

std::size_t RegularFile::readAt(std::uint64_t offset, char* buffer, std::size_t length) const {
    std::size_t done = 0;
    while (done < length) {
        const std::uint64_t position = offset + done;
        OVERLAPPED from = {};
        from.Offset = static_cast<DWORD>(position);
        from.OffsetHigh = static_cast<DWORD>(position >> 32);
        DWORD count = 0;
        if (!::ReadFile(asHandle(handle_), buffer + done,
                        static_cast<DWORD>(std::min(length - done, kLongestRead)), &count, &from) &&
            ::GetLastError() != ERROR_HANDLE_EOF)
            throwLastError("a file could not be read");
        if (count == 0)
            break;
        done += count;
    }
    return done;
}

} // namespace platform
