#include "tools/refdoc/index/words/WordEnds.hpp"

#include "tools/refdoc/search/CodePoints.hpp"

#include <boost/sort/pdqsort/pdqsort.hpp>

#include <algorithm>
#include <bit>
#include <cstdint>

namespace refdoc::site {

namespace {

// Numbers the code units that words have in ascending order, so that the start of a text becomes
// one number. The fewer code units there are, the more of them fit into it.
class Alphabet {
public:
    explicit Alphabet(const std::vector<Word>& words) : numbers_(kUnitCount) {
        for (const Word& word : words) {
            for (const char16_t unit : word.text)
                numbers_[unit] = 1;
        }
        std::uint32_t count = 0; // 0 means the end of a text
        for (std::uint32_t& number : numbers_)
            number = number == 0 ? 0 : ++count;
        bitsOfUnit_ = static_cast<unsigned>(std::bit_width(count));
        firstShift_ = bitsOfUnit_ == 0 ? 0 : (64 / bitsOfUnit_ - 1) * bitsOfUnit_;
    }

    // Returns the number of a text from a code unit and the number of the text after it. Numbers of
    // texts have the order of the texts, and are equal if one text does not fit.
    std::uint64_t prepend(char16_t unit, std::uint64_t rest) const {
        return (std::uint64_t{numbers_[unit]} << firstShift_) | (rest >> bitsOfUnit_);
    }

private:
    static constexpr std::size_t kUnitCount = 0x10000;

    std::vector<std::uint32_t> numbers_; // by code unit
    unsigned bitsOfUnit_;
    unsigned firstShift_; // of the first code unit in a number
};

bool startsCharacter(std::u16string_view text, std::size_t position) {
    return position == 0 || !isLowSurrogate(text[position]) || !isHighSurrogate(text[position - 1]);
}

void addEnds(std::size_t word, std::u16string_view text, const Alphabet& alphabet,
             std::vector<WordEnd>& ends) {
    std::uint64_t order = 0;
    for (std::size_t start = text.size(); start-- > 0;) {
        order = alphabet.prepend(text[start], order);
        if (startsCharacter(text, start))
            ends.emplace_back(word, start, order);
    }
}

} // namespace

WordEnds::WordEnds(const Words& words) : words_(words.all()) {
    const Alphabet alphabet(words_);
    std::size_t count = 0;
    for (const Word& word : words_)
        count += word.text.size();
    ends_.reserve(count);
    for (std::size_t word = 0; word < words_.size(); ++word)
        addEnds(word, words_[word].text, alphabet, ends_);
    boost::sort::pdqsort(
        ends_.begin(), ends_.end(), [&](const WordEnd& left, const WordEnd& right) {
            if (left.order() != right.order())
                return left.order() < right.order();
            const int order =
                left.textIn(words_[left.word()]).compare(right.textIn(words_[right.word()]));
            return order != 0 ? order < 0 : left.word() < right.word();
        });
}

std::size_t WordEnds::groupEnd(std::size_t begin, std::size_t end, std::size_t size) const {
    const std::u16string_view start = keyAt(begin).substr(0, size);
    while (begin < end) {
        const std::size_t middle = begin + (end - begin) / 2;
        if (keyAt(middle).substr(0, size) == start)
            begin = middle + 1;
        else
            end = middle;
    }
    return end;
}

} // namespace refdoc::site
