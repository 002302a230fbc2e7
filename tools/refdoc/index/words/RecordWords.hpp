#pragma once

#include "tools/refdoc/index/words/Words.hpp"

#include <string_view>

namespace refdoc::site {

/// The longest key of the tables "list", "best" and "phrase", in code units. A key that would end
/// within a surrogate pair has one more. `lookups.js` has the same number.
inline constexpr std::size_t kLongestKey = 24;

/// Returns the start of a string that is used as a key.
std::u16string_view keyOf(std::u16string_view text) noexcept;

/// The words and phrases of all records.
class RecordWords {
public:
    /// Adds a field of a record. Records are added in ascending order.
    /// \param text  folded
    void add(std::u16string_view text, std::uint32_t record, SearchField field);

    /// All words but the single space, which searches cannot contain.
    const Words& words() const { return words_; }

    /// The keys of all strings from the start of a word up to the next space, unless there is a
    /// space before the word.
    const Words& phrases() const { return phrases_; }

private:
    Words words_;
    Words phrases_;
};

} // namespace refdoc::site
