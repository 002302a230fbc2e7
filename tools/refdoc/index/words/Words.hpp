#pragma once

#include "tools/refdoc/index/words/Occurrence.hpp"

#include <boost/unordered/unordered_flat_map.hpp>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <memory_resource>
#include <string_view>
#include <vector>

namespace refdoc::site {

/// A record that has a word.
struct Posting {
    std::uint32_t record; ///< its position in the order of the numbers
    Occurrences occurrences;
};

/// A word of the index: a run of letters and digits, or of other characters.
struct Word {
    std::u16string_view text;
    bool isOfLetters;
    std::vector<Posting> postings{}; ///< by record
};

/// All words of the index with the records that have them.
class Words {
public:
    /// Adds a word of a record. Records are added in ascending order. A text is always of letters
    /// or never.
    void add(std::u16string_view text, bool isOfLetters, std::uint32_t record, SearchField field,
             Occurrence occurrence);

    /// Returns the words in the order in which they were added first. Their texts are valid as long
    /// as the object.
    const std::vector<Word>& all() const { return words_; }

private:
    Word& wordOf(std::u16string_view text, bool isOfLetters);

    // For the texts. Millions of reads follow, which are faster if the texts are close together.
    std::unique_ptr<std::pmr::monotonic_buffer_resource> memory_ =
        std::make_unique<std::pmr::monotonic_buffer_resource>();
    std::vector<Word> words_;
    boost::unordered_flat_map<std::u16string_view, std::uint32_t, std::hash<std::u16string_view>>
        positions_; // in words_, by text
};

} // namespace refdoc::site
