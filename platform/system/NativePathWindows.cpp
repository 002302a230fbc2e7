#include "platform/system/NativePath.hpp"
#include "platform/system/WindowsPath.hpp"

#include <algorithm>
#include <system_error>
#include <utility>

namespace platform {

NativePath toNativePath(std::u16string_view path) {
    if (path.find(u'\0') != path.npos)
        throw std::system_error(std::make_error_code(std::errc::invalid_argument),
                                "a path holds NUL");
    NativePath native(path.begin(), path.end());
    // Windows reads '/' as a separator only in paths without the prefix for long ones.
    std::ranges::replace(native, L'/', L'\\');
    return withLongPathPrefix(std::move(native));
}

std::u16string fromNativePath(const NativePath& path) {
    return {path.begin(), path.end()};
}

} // namespace platform
