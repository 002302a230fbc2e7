#include "platform/system/Folder.hpp"

#include <dirent.h>

#include <cerrno>
#include <string>
#include <string_view>
#include <system_error>

namespace platform {

namespace {

// Repeats a system call that a signal interrupted and returns its result; null if it fails or, with
// errno 0, if there are no more names.
template <class Call>
auto uninterrupted(Call call) {
    do {
        errno = 0;
        if (auto* const result = call())
            return result;
    } while (errno == EINTR);
    return decltype(call())();
}

} // namespace

void Folder::Close::operator()(void* handle) const noexcept {
    ::closedir(static_cast<DIR*>(handle));
}

std::optional<Folder> Folder::open(const NativePath& folder) noexcept {
    // The system would read the path only up to the NUL and open another folder.
    if (folder.find('\0') != std::string::npos)
        return std::nullopt;
    DIR* const opened = uninterrupted([&] { return ::opendir(folder.c_str()); });
    if (!opened)
        return std::nullopt;
    return Folder(opened);
}

std::optional<NativePath> Folder::next() {
    DIR* const folder = static_cast<DIR*>(handle_.get());
    while (const dirent* const entry = uninterrupted([&] { return ::readdir(folder); })) {
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..")
            return NativePath(name);
    }
    if (errno != 0)
        throw std::system_error(errno, std::generic_category(), "a folder could not be read");
    return std::nullopt;
}

} // namespace platform
