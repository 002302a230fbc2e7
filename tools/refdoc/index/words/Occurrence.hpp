#pragma once

#include "tools/refdoc/search/Ranking.hpp"

#include <array>
#include <cstdint>

namespace refdoc::site {

/// The fields of a record that are searched.
inline constexpr std::array kFields{SearchField::Name, SearchField::Href, SearchField::Purpose};

/// How a word stands in a field, the worst way first.
enum class Occurrence : std::uint8_t { None, Inside, AtStart, Whole };

/// How a word stands in all fields of a record: two bits for each field, the name in the lowest.
class Occurrences {
public:
    Occurrences() = default;
    explicit constexpr Occurrences(std::uint8_t code) : code_(code) {}

    /// A field keeps its best occurrence.
    constexpr void add(SearchField field, Occurrence occurrence) {
        if (occurrence > in(field))
            code_ = static_cast<std::uint8_t>(
                code_ + ((static_cast<unsigned>(occurrence) - static_cast<unsigned>(in(field)))
                         << shiftOf(field)));
    }

    constexpr Occurrence in(SearchField field) const {
        return static_cast<Occurrence>((code_ >> shiftOf(field)) & 3U);
    }

    /// The number that the index has: 0 to kOccurrencesCount - 1.
    constexpr std::uint8_t code() const { return code_; }

private:
    static constexpr unsigned shiftOf(SearchField field) {
        return 2 * static_cast<unsigned>(field);
    }

    std::uint8_t code_ = 0;
};

inline constexpr std::size_t kOccurrencesCount = 64;

/// How a text stands in a word.
struct TextInWord {
    bool isOfLetters; ///< the word, and thus the text
    bool isAtStart;
    bool isAtEnd;
};

/// The match and the field of a Rank.
struct FieldMatch {
    Match match{};
    SearchField field{};

    auto operator<=>(const FieldMatch&) const = default;
};

/// For each code of Occurrences of a word other than 0: the best match of a text in the word, if
/// what stands beside the word does not matter.
using MatchesByCode = std::array<FieldMatch, kOccurrencesCount>;

/// Returns a table that exists as long as the program runs.
const MatchesByCode& matchesOf(const TextInWord& text);

} // namespace refdoc::site
