#pragma once

#include <string>
#include <string_view>

namespace refdoc {

/// What a piece of text is, which decides its colour.
enum class Paint { Plain, Heading, Dim, Caution, Alarm };

/// The text (UTF-8), between the escape sequences of its paint when `color` is set.
std::string painted(std::string_view text, Paint paint, bool color);

} // namespace refdoc
