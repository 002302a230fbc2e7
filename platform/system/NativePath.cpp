#include "platform/system/NativePath.hpp"

namespace platform {

std::u16string joinPath(std::u16string_view folder, std::u16string_view component) {
    std::u16string joined;
    joined.reserve(folder.size() + 1 + component.size());
    joined += folder;
    if (folder.empty() || !isPathSeparator(folder.back()))
        joined += kPathSeparator;
    joined += component;
    return joined;
}

} // namespace platform
