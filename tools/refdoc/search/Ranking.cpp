#include "tools/refdoc/search/Ranking.hpp"

#include "tools/refdoc/search/CaseFolding.hpp"
#include "tools/refdoc/search/CodePoints.hpp"
#include "tools/refdoc/suggest/NearNames.hpp"

#include <utf8proc.h>

#include <algorithm>

namespace refdoc {

namespace {

constexpr std::size_t kUnitsPerEdit = 3;
constexpr std::size_t kMostEdits = 2;

// A match and the field that has it; the smaller one is the better one.
struct FieldMatch {
    Match match;
    SearchField field;

    auto operator<=>(const FieldMatch&) const = default;
};

bool isWordCharacter(char32_t codePoint) {
    if (codePoint < 0x80)
        return (codePoint >= U'a' && codePoint <= U'z') ||
               (codePoint >= U'A' && codePoint <= U'Z') || (codePoint >= U'0' && codePoint <= U'9');
    // Letters, marks and numbers are the first categories of utf8proc.
    const utf8proc_category_t category =
        utf8proc_category(static_cast<utf8proc_int32_t>(codePoint));
    return category >= UTF8PROC_CATEGORY_LU && category <= UTF8PROC_CATEGORY_NO;
}

bool isWord(std::u16string_view field, std::size_t start, std::size_t size) {
    std::size_t end = start + size;
    return (start == 0 || !isWordCharacter(codePointBefore(field, start))) &&
           (end == field.size() || !isWordCharacter(codePointAt(field, end)));
}

std::optional<Match> matchOf(std::u16string_view text, std::u16string_view field) {
    std::size_t start = text.empty() ? field.npos : field.find(text);
    if (start == field.npos)
        return std::nullopt;
    if (start == 0)
        return field.size() == text.size() ? Match::Exact : Match::Prefix;
    for (; start != field.npos; start = field.find(text, start + 1)) {
        if (isWord(field, start, text.size()))
            return Match::Word;
    }
    return Match::Substring;
}

bool isNear(std::u16string_view text, std::u16string_view name) {
    const std::size_t limit = std::min(text.size() / kUnitsPerEdit, kMostEdits);
    return limit > 0 && editDistance(text, name, limit, LetterCase::Distinct) <= limit;
}

std::optional<FieldMatch> bestMatch(std::u16string_view text, const SearchedRecord& record) {
    std::optional<FieldMatch> best;
    const auto consider = [&](SearchField field, const auto& string) {
        const std::optional<Match> match = string ? matchOf(text, *string) : std::nullopt;
        if (match && (!best || FieldMatch{*match, field} < *best))
            best = {*match, field};
    };
    consider(SearchField::Name, record.name);
    consider(SearchField::Href, record.href);
    consider(SearchField::Purpose, record.purpose);
    if (!best && record.name && isNear(text, *record.name))
        best = {Match::Near, SearchField::Name};
    return best;
}

} // namespace

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
