#pragma once

#include <string>
#include <string_view>

namespace refdoc {

/// The role of a piece of text, which decides its colour.
enum class Paint { Plain, Heading, Dim, Caution, Alarm, Match, Removed, Added };

/// Returns a UTF-8 string, between the escape sequences of its paint if `color` is set.
std::string painted(std::string_view text, Paint paint, bool color);

} // namespace refdoc
