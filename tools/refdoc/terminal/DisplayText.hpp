#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace refdoc {

/// Reads the code point at `position`, which lies within the text, and moves `position` past it.
/// \returns  U+FFFD for an unpaired surrogate
char32_t nextCodePoint(std::u16string_view text, std::size_t& position) noexcept;

/// How many columns of a terminal a code point fills: 0 for marks that combine with what is before
/// them and for invisible formatting, 2 for East Asian wide and full-width ones and for emoji,
/// else 1. Independent of the locale.
std::size_t columnsOf(char32_t codePoint) noexcept;

/// How many columns a text without control characters fills.
std::size_t displayWidth(std::u16string_view text) noexcept;

/// The text with nothing in it that a terminal would obey: each control character becomes its
/// picture (U+2400 and on) or, above U+007F, U+FFFD. A line feed stays, a carriage return before it
/// is dropped, a tab becomes a space.
std::u16string visibleText(std::u16string_view text);

/// The same for what has to stay on one line: line feeds and tabs become pictures as well.
std::u16string visibleLine(std::u16string_view text);

/// The same for UTF-8; ill-formed bytes become U+FFFD.
std::string visibleLine(std::string_view text);

} // namespace refdoc
