#include "platform/system/NativePath.hpp"
#include "platform/unicode/Transcoding.hpp"

#include <system_error>

namespace platform {

NativePath toNativePath(std::u16string_view path) {
    if (path.find(u'\0') != path.npos)
        throw std::system_error(std::make_error_code(std::errc::invalid_argument),
                                "a path holds NUL");
    if (!isWellFormedUtf16(path))
        throw std::system_error(std::make_error_code(std::errc::illegal_byte_sequence),
                                "a path holds an unpaired surrogate");
    return toUtf8(path);
}

std::u16string fromNativePath(const NativePath& path) {
    return toUtf16(path);
}

} // namespace platform
