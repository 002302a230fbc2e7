#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace refdoc {

/// A grapheme cluster of Unicode: what a reader takes for one character, such as a letter with its
/// accents, a Hangul syllable or an emoji sequence.
struct Grapheme {
    std::string_view text;
    char32_t base;     ///< the first code point
    std::size_t width; ///< in columns of a terminal, see displayWidth()
    bool isWide;       ///< the base alone fills two columns
};

/// Reads the grapheme at `position`, which lies within the text, and moves `position` past it.
/// \param text  UTF-8; each ill-formed byte counts as U+FFFD
Grapheme nextGrapheme(std::string_view text, std::size_t& position) noexcept;

/// Returns how many columns of a terminal a UTF-8 string without control characters fills.
/// Independent of the locale.
///
/// A grapheme fills as many columns as its code points together, at most two: an emoji sequence is
/// as wide as one emoji. A code point that is East Asian wide or an emoji fills two columns, a
/// nonspacing mark or an invisible character none, any other one. A variation selector changes
/// nothing: U+2764 U+FE0F is as narrow as U+2764, because terminals disagree on it.
std::size_t displayWidth(std::string_view text) noexcept;

/// Returns a string as UTF-8 without anything that a terminal would obey: each control character
/// becomes its picture (U+2400 and on) or, above U+007F, U+FFFD. A line feed stays, a carriage
/// return before it is removed, a tab becomes a space. An unpaired surrogate becomes U+FFFD.
std::string visibleText(std::u16string_view text);

/// Like visibleText(), for a string that has to stay on one line: line feeds, carriage returns and
/// tabs become pictures too.
std::string visibleLine(std::u16string_view text);

/// Like visibleLine(), for UTF-8. Ill-formed bytes become U+FFFD.
std::string visibleLine(std::string_view text);

/// Returns a line of `--plain`: the fields, each as visibleLine() returns it, with tabs between
/// them and a line feed at the end.
std::string tabSeparatedLine(const std::vector<std::u16string>& fields);

} // namespace refdoc
