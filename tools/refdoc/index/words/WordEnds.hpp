#pragma once

#include "tools/refdoc/index/words/RecordWords.hpp"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace refdoc::site {

/// The end of a word, from any of its characters on. A text stands in a word if one of the ends of
/// the word begins with the text.
class WordEnd {
public:
    /// \param order  the first characters as a number, for WordEnds
    WordEnd(std::size_t word, std::size_t start, std::uint64_t order)
        : order_(order),
          word_(static_cast<std::uint32_t>(word)),
          start_(static_cast<std::uint32_t>(start)) {}

    std::uint64_t order() const { return order_; }

    /// The position of the word in Words::all().
    std::size_t word() const { return word_; }

    bool isWholeWord() const { return start_ == 0; }

    /// Returns the characters up to the end of the word.
    /// \param word  the word that this is the end of
    std::u16string_view textIn(const Word& word) const { return word.text.substr(start_); }

private:
    std::uint64_t order_;
    std::uint32_t word_;
    std::uint32_t start_;
};

/// The ends of all words, sorted by their texts, then by the order of the words.
class WordEnds {
public:
    /// \param words  must outlive the object and stay as it is
    explicit WordEnds(const Words& words);

    std::size_t size() const { return ends_.size(); }
    const WordEnd& at(std::size_t position) const { return ends_[position]; }
    const Word& wordAt(std::size_t position) const { return words_[ends_[position].word()]; }
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
