#include "tools/refdoc/index/words/WordEnds.hpp"

#include "tools/refdoc/index/words/TextOrder.hpp"
#include "tools/refdoc/search/CodePoints.hpp"

#include <cstdint>

namespace refdoc::site {

namespace {

bool startsCharacter(std::u16string_view text, std::size_t position) {
    return position == 0 || !isLowSurrogate(text[position]) || !isHighSurrogate(text[position - 1]);
}

void addEnds(std::uint32_t word, std::u16string_view text, const TextOrder& order,
             std::vector<WordEnd>& ends) {
    std::uint64_t number = 0;
    for (std::size_t start = text.size(); start-- > 0;) {
        number = order.prepend(text[start], number);
        if (startsCharacter(text, start))
            ends.push_back({number, word, static_cast<std::uint32_t>(start)});
    }
}

} // namespace

WordEnds::WordEnds(const Words& words) : words_(words.all()) {
    const TextOrder order(words_.size(), [&](std::size_t word) { return words_[word].text; });
    std::size_t count = 0;
    for (const Word& word : words_)
        count += word.text.size();
    ends_.reserve(count);
    for (std::uint32_t word = 0; word < words_.size(); ++word)
        addEnds(word, words_[word].text, order, ends_);
    order.sort(
        ends_, [&](const WordEnd& end) { return end.textIn(words_[end.word]); }, &WordEnd::word);
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
