#include "tools/refdoc/index/words/Occurrence.hpp"

#include <algorithm>

namespace refdoc::site {

namespace {

constexpr Match matchOf(const TextInWord& text, Occurrence occurrence) {
    if (text.isAtStart && occurrence == Occurrence::Whole)
        return text.isAtEnd ? Match::Exact : Match::Prefix;
    if (text.isAtStart && occurrence == Occurrence::AtStart)
        return Match::Prefix;
    const bool isWord = text.isOfLetters ? text.isAtStart && text.isAtEnd : !text.isAtStart;
    return isWord ? Match::Word : Match::Substring;
}

constexpr MatchesByCode matchesByCode(const TextInWord& text) {
    MatchesByCode matches{};
    for (std::size_t code = 0; code < matches.size(); ++code) {
        const Occurrences occurrences(static_cast<std::uint8_t>(code));
        matches[code] = {Match::Near, SearchField::Purpose};
        for (const SearchField field : kFields) {
            const Occurrence occurrence = occurrences.in(field);
            if (occurrence != Occurrence::None)
                matches[code] = std::min(matches[code], {matchOf(text, occurrence), field});
        }
    }
    return matches;
}

} // namespace

const MatchesByCode& matchesOf(const TextInWord& text) {
    static constexpr std::array kTables{
        matchesByCode({false, false, false}), matchesByCode({false, false, true}),
        matchesByCode({false, true, false}),  matchesByCode({false, true, true}),
        matchesByCode({true, false, false}),  matchesByCode({true, false, true}),
        matchesByCode({true, true, false}),   matchesByCode({true, true, true})};
    return kTables[(text.isOfLetters ? 4U : 0U) + (text.isAtStart ? 2U : 0U) +
                   (text.isAtEnd ? 1U : 0U)];
}

} // namespace refdoc::site
