#pragma once

#include "tools/refdoc/index/words/RecordWords.hpp"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace refdoc::site {

/// The end of a word, from any of its characters on. A text stands in a word if one of the ends of
/// the word begins with the text.
struct WordEnd {
    std::uint64_t order; ///< from a TextOrder
    std::uint32_t word;  ///< its position in Words::all()
    std::uint32_t start; ///< where the end begins in the word

    bool isWholeWord() const { return start == 0; }

    /// Returns the characters up to the end of the word.
    std::u16string_view textIn(const Word& itsWord) const { return itsWord.text.substr(start); }
};

/// The ends of all words, sorted by their texts, then by the order of the words.
class WordEnds {
public:
    /// \param words  must outlive the object and stay as it is
    explicit WordEnds(const Words& words);

    std::size_t size() const { return ends_.size(); }
    const WordEnd& at(std::size_t position) const { return ends_[position]; }
    const Word& wordAt(std::size_t position) const { return words_[ends_[position].word]; }
    std::u16string_view textAt(std::size_t position) const {
        return ends_[position].textIn(wordAt(position));
    }

    /// Returns the start of the text, as long as a key may be.
    std::u16string_view keyAt(std::size_t position) const { return keyOf(textAt(position)); }

    /// Returns the position after all ends in a range whose keys begin with the same code units as
    /// the first one.
    /// \param size  the number of code units; the ends in the range have all but the last in common
    std::size_t groupEnd(std::size_t begin, std::size_t end, std::size_t size) const;

private:
    const std::vector<Word>& words_;
    std::vector<WordEnd> ends_;
};

} // namespace refdoc::site
