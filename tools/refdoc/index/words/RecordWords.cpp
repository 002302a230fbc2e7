#include "tools/refdoc/index/words/RecordWords.hpp"

#include "tools/refdoc/search/CodePoints.hpp"

namespace refdoc::site {

namespace {

// Calls a function with the start and the end of each word, and whether it is of letters.
template <typename Visit>
void forEachWord(std::u16string_view text, Visit visit) {
    std::size_t start = 0;
    bool isOfLetters = false;
    for (std::size_t next = 0, at = 0; at < text.size(); at = next) {
        const bool isLetter = isWordCharacter(codePointAt(text, next));
        if (at > start && isLetter != isOfLetters) {
            visit(start, at, isOfLetters);
            start = at;
        }
        isOfLetters = isLetter;
    }
    if (start < text.size())
        visit(start, text.size(), isOfLetters);
}

} // namespace

std::u16string_view keyOf(std::u16string_view text) noexcept {
    const bool cutsPair = text.size() > kLongestKey && isHighSurrogate(text[kLongestKey - 1]) &&
                          isLowSurrogate(text[kLongestKey]);
    return text.substr(0, kLongestKey + (cutsPair ? 1 : 0));
}

void RecordWords::add(std::u16string_view text, std::uint32_t record, SearchField field) {
    forEachWord(text, [&](std::size_t start, std::size_t end, bool isOfLetters) {
        const std::u16string_view word = text.substr(start, end - start);
        if (word == u" ")
            return;
        const Occurrence occurrence = start > 0           ? Occurrence::Inside
                                      : end < text.size() ? Occurrence::AtStart
                                                          : Occurrence::Whole;
        words_.add(word, isOfLetters, record, field, occurrence);
        if (start == 0 || text[start - 1] == u' ' || text[start] == u' ')
            return;
        const std::u16string_view phrase = text.substr(start, text.find(u' ', start) - start);
        phrases_.add(keyOf(phrase), isOfLetters, record, field, occurrence);
    });
}

} // namespace refdoc::site
