#pragma once

#include <string>
#include <string_view>

namespace platform {

/// Converts UTF-8 to UTF-16; each maximal ill-formed sequence becomes one U+FFFD.
std::u16string toUtf16(std::string_view text);

/// Converts UTF-16 to UTF-8; each unpaired surrogate becomes one U+FFFD.
std::string toUtf8(std::u16string_view text);

/// Returns whether a string is well-formed UTF-8.
bool isWellFormedUtf8(std::string_view text) noexcept;

/// Returns whether a string is well-formed UTF-16: every surrogate is one half of a pair.
bool isWellFormedUtf16(std::u16string_view text) noexcept;

} // namespace platform
