#pragma once

#include "platform/path/Path.hpp"

#include <algorithm>
#include <string>

namespace docparser_tests {

/// The text with the separator of this system in place of each '/': what the library joins.
inline std::u16string native(std::u16string text) {
    std::ranges::replace(text, u'/', fl::filesystem::PATHNAME_SEPARATOR);
    return text;
}

} // namespace docparser_tests
