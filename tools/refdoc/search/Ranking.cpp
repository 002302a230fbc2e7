#include "tools/refdoc/search/Ranking.hpp"

#include "docparser/Queries.hpp"
#include "tools/refdoc/search/CaseFolding.hpp"
#include "tools/refdoc/search/CodePoints.hpp"

#include <utf8proc.h>

#include <algorithm>

namespace refdoc {

using reference::docparser::matchName;
using reference::docparser::NameMatch;

namespace {

// A match and the field that has it; the smaller one is the better one.
struct FieldMatch {
    Match match;
    SearchField field;

    auto operator<=>(const FieldMatch&) const = default;
};

bool isWord(std::u16string_view field, std::size_t start, std::size_t size) {
    std::size_t end = start + size;
    return (start == 0 || !isWordCharacter(codePointBefore(field, start))) &&
           (end == field.size() || !isWordCharacter(codePointAt(field, end)));
}

bool hasWord(std::u16string_view text, std::u16string_view field) {
    for (std::size_t start = field.find(text); start != field.npos;
         start = field.find(text, start + 1)) {
        if (isWord(field, start, text.size()))
            return true;
    }
    return false;
}

std::optional<Match> matchOf(std::u16string_view text, std::u16string_view field) {
    const std::optional<NameMatch> match = matchName(text, field);
    if (!match)
        return std::nullopt;
    switch (*match) {
    case NameMatch::Exact: return Match::Exact;
    case NameMatch::Prefix: return Match::Prefix;
    case NameMatch::Substring: return hasWord(text, field) ? Match::Word : Match::Substring;
    case NameMatch::Near: break;
    }
    return Match::Near;
}

std::optional<FieldMatch> bestMatch(std::u16string_view text, const SearchedRecord& record) {
    std::optional<FieldMatch> best;
    const auto consider = [&](SearchField field, const auto& string) {
        const std::optional<Match> match = string ? matchOf(text, *string) : std::nullopt;
        if (!match || (*match == Match::Near && field != SearchField::Name))
            return;
        if (!best || FieldMatch{*match, field} < *best)
            best = {*match, field};
    };
    consider(SearchField::Name, record.name);
    consider(SearchField::Href, record.href);
    consider(SearchField::Purpose, record.purpose);
    return best;
}

} // namespace

bool isWordCharacter(char32_t codePoint) {
    if (codePoint < 0x80)
        return (codePoint >= U'a' && codePoint <= U'z') ||
               (codePoint >= U'A' && codePoint <= U'Z') || (codePoint >= U'0' && codePoint <= U'9');
    // Letters, marks and numbers are the first categories of utf8proc.
    const utf8proc_category_t category =
        utf8proc_category(static_cast<utf8proc_int32_t>(codePoint));
    return category >= UTF8PROC_CATEGORY_LU && category <= UTF8PROC_CATEGORY_NO;
}

std::optional<Rank> rankOf(const std::vector<std::u16string>& texts, const SearchedRecord& record) {
    FieldMatch worst{Match::Exact, SearchField::Name};
    for (const std::u16string& text : texts) {
        const std::optional<FieldMatch> best = bestMatch(text, record);
        if (!best)
            return std::nullopt;
        worst = std::max(worst, *best);
    }
    return Rank{worst.match, !record.isInstalled, record.isDeprecated, worst.field};
}

std::vector<TextRange> matchesIn(std::u16string_view string,
                                 const std::vector<std::u16string>& texts, bool foldsCase) {
    std::u16string folded;
    std::vector<std::size_t> origins;
    if (foldsCase)
        foldCase(string, folded, &origins);
    const std::u16string_view searched = foldsCase ? std::u16string_view(folded) : string;
    const auto originOf = [&](std::size_t at) {
        return !foldsCase ? at : at < origins.size() ? origins[at] : string.size();
    };

    std::vector<bool> isMatched(string.size());
    for (const std::u16string& text : texts) {
        for (std::size_t at = searched.find(text); !text.empty() && at != searched.npos;
             at = searched.find(text, at + 1)) {
            // A match that ends within the folding of a character has all of the character.
            std::size_t end = at + text.size();
            while (end < searched.size() && originOf(end) == originOf(end - 1))
                ++end;
            for (std::size_t unit = originOf(at); unit < originOf(end); ++unit)
                isMatched[unit] = true;
        }
    }

    std::vector<TextRange> ranges;
    for (auto start = std::ranges::find(isMatched, true); start != isMatched.end();) {
        const auto end = std::find(start, isMatched.end(), false);
        ranges.push_back({static_cast<std::size_t>(start - isMatched.begin()),
                          static_cast<std::size_t>(end - start)});
        start = std::find(end, isMatched.end(), true);
    }
    return ranges;
}

} // namespace refdoc
