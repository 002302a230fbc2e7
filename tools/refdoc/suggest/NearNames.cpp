#include "tools/refdoc/suggest/NearNames.hpp"

#include <algorithm>
#include <numeric>
#include <set>
#include <utility>

namespace refdoc {

namespace {

constexpr std::size_t kLargestLimit = 3;

constexpr char16_t lower(char16_t unit) noexcept {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}

constexpr bool areSame(char16_t left, char16_t right, LetterCase letterCase) noexcept {
    return left == right || (letterCase == LetterCase::Ignored && lower(left) == lower(right));
}

std::size_t limitFor(std::u16string_view name) {
    return std::min((name.size() + 1) / 3, kLargestLimit);
}

} // namespace

std::size_t editDistance(std::u16string_view left, std::u16string_view right, std::size_t limit,
                         LetterCase letterCase) {
    const std::size_t tooFar = limit + 1;
    if (std::max(left.size(), right.size()) - std::min(left.size(), right.size()) > limit)
        return tooFar;
    // Names of one product often begin alike.
    const auto areUnitsSame = [&](char16_t a, char16_t b) { return areSame(a, b, letterCase); };
    const auto prefix = std::ranges::mismatch(left, right, areUnitsSame).in1 - left.begin();
    left.remove_prefix(static_cast<std::size_t>(prefix));
    right.remove_prefix(static_cast<std::size_t>(prefix));

    const auto isSame = [&](std::size_t i, std::size_t j) {
        return areUnitsSame(left[i - 1], right[j - 1]);
    };
    // row[j] is the distance between the first i letters of `left` and the first j of `right`.
    std::vector<std::size_t> row(right.size() + 1);
    std::vector<std::size_t> above = row;
    std::vector<std::size_t> twoAbove = row;
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 1; i <= left.size(); ++i) {
        twoAbove.swap(above);
        above.swap(row);
        row[0] = i;
        for (std::size_t j = 1; j <= right.size(); ++j) {
            row[j] =
                std::min({above[j - 1] + (isSame(i, j) ? 0 : 1), row[j - 1] + 1, above[j] + 1});
            if (i > 1 && j > 1 && isSame(i, j - 1) && isSame(i - 1, j))
                row[j] = std::min(row[j], twoAbove[j - 2] + 1);
        }
        if (*std::ranges::min_element(row) > limit) // later rows have no smaller distances
            return tooFar;
    }
    return std::min(row.back(), tooFar);
}

std::vector<std::u16string> nearNames(std::u16string_view name,
                                      const std::vector<std::u16string_view>& known,
                                      std::size_t maximum) {
    const std::size_t limit = limitFor(name);
    std::set<std::pair<std::size_t, std::u16string_view>> candidates;
    for (const std::u16string_view candidate : known) {
        const std::size_t distance = editDistance(name, candidate, limit);
        if (distance > limit)
            continue;
        candidates.emplace(distance, candidate);
        if (candidates.size() > maximum)
            candidates.erase(std::prev(candidates.end()));
    }
    std::vector<std::u16string> names;
    names.reserve(candidates.size());
    for (const auto& [distance, candidate] : candidates)
        names.emplace_back(candidate);
    return names;
}

} // namespace refdoc
