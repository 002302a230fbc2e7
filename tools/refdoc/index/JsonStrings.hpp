#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace refdoc::site {

/// Returns how many bytes a code unit takes at most in a JSON string that toJsonLine() prints.
std::size_t sizeInJson(char16_t unit) noexcept;

/// Appends the characters of a JSON string as toJsonLine() prints them, without the quotation
/// marks. Needs no more memory than the result, unless a character must be escaped.
void appendJson(std::u16string_view characters, std::string& json);

} // namespace refdoc::site
