#pragma once

#include <compare>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace refdoc {

/// How a field of a record matches a text, the best way first.
enum class Match {
    Exact,     ///< the field is the text
    Prefix,    ///< the field begins with the text
    Word,      ///< the text stands in the field, with no letter or digit beside it
    Substring, ///< the text stands in the field
    Near       ///< as NameMatch::Near of the library
};

/// The fields of a lookup record, in the order of their weight.
enum class SearchField { Name, Href, Purpose };

/// Returns whether a character is a letter, a mark or a number of any script. In ASCII, it must be
/// folded.
bool isWordCharacter(char32_t codePoint);

/// The fields of one record; a field that is not searched is absent.
struct SearchedRecord {
    std::optional<std::u16string_view> name{};
    std::optional<std::u16string_view> href{};
    std::optional<std::u16string_view> purpose{};
    bool isInstalled = false;
    bool isDeprecated = false;
};

/// The position of a record among the results; the best one is the smallest.
struct Rank {
    Match match{};
    bool isNotInstalled = false;
    bool isDeprecated = false;
    SearchField field{};

    auto operator<=>(const Rank&) const = default;
};

/// Ranks a record for a search.
///
/// Each text must match a field. A text counts by its best match, and the record by the text that
/// matches worst. Among records with the same match, those of installed products come first. Among
/// these, records that are not deprecated come first, then those whose name matches, then those
/// whose link matches. Only names have near matches: in long purposes, almost any short text has a
/// near word, and users rarely type links.
///
/// Code units are compared as they are. To ignore letter case, pass texts and fields through
/// foldCase(). The function allocates memory only to compare a text with a name of similar length.
///
/// \param texts  at least one; an empty text matches nothing
/// \returns      absent if a text matches no field
std::optional<Rank> rankOf(const std::vector<std::u16string>& texts, const SearchedRecord& record);

/// A part of a string, in code units.
struct TextRange {
    std::size_t start;
    std::size_t size;

    bool operator==(const TextRange&) const = default;
};

/// Returns where any of the texts stands in a string, from left to right. The ranges do not
/// overlap and do not touch.
/// \param texts      as for rankOf(): folded if `foldsCase` is set
/// \param foldsCase  whether letter case is ignored
std::vector<TextRange> matchesIn(std::u16string_view string,
                                 const std::vector<std::u16string>& texts, bool foldsCase);

} // namespace refdoc
