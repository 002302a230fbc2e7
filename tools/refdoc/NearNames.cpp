#include "tools/refdoc/NearNames.hpp"

#include <algorithm>
#include <array>
#include <set>
#include <utility>

namespace refdoc {

namespace {

constexpr std::size_t kLargestLimit = 3;

constexpr char16_t lower(char16_t unit) noexcept {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}

std::size_t limitFor(std::u16string_view name) {
    return std::min((name.size() + 1) / 3, kLargestLimit);
}

} // namespace

std::size_t editDistance(std::u16string_view left, std::u16string_view right, std::size_t limit) {
    const std::size_t tooFar = limit + 1;
    const auto [shorter, longer] = std::minmax(left.size(), right.size());
    if (longer - shorter > limit)
        return tooFar;

    // rows[i % 3][j]: the distance between the first i letters of left and the first j of right.
    // Only the cells with |i - j| <= limit can matter; those around them count as too far.
    std::array<std::vector<std::size_t>, 3> rows;
    for (std::vector<std::size_t>& row : rows)
        row.assign(right.size() + 1, tooFar);
    for (std::size_t j = 0; j <= std::min(limit, right.size()); ++j)
        rows[0][j] = j;

    for (std::size_t i = 1; i <= left.size(); ++i) {
        const std::vector<std::size_t>& above = rows[(i - 1) % 3];
        const std::vector<std::size_t>& twoAbove = rows[(i + 1) % 3];
        std::vector<std::size_t>& row = rows[i % 3];
        const std::size_t first = i > limit ? i - limit : 0;
        const std::size_t last = std::min(i + limit, right.size());
        if (first > 0)
            row[first - 1] = tooFar;
        std::size_t best = tooFar;
        for (std::size_t j = first; j <= last; ++j) {
            std::size_t distance = j == 0 ? i : tooFar;
            if (j > 0) {
                const bool isSame = lower(left[i - 1]) == lower(right[j - 1]);
                distance = std::min(
                    {above[j - 1] + (isSame ? 0 : 1), row[j - 1] + 1, above[j] + 1, tooFar});
            }
            if (i > 1 && j > 1 && lower(left[i - 1]) == lower(right[j - 2]) &&
                lower(left[i - 2]) == lower(right[j - 1]))
                distance = std::min(distance, twoAbove[j - 2] + 1);
            row[j] = distance;
            best = std::min(best, distance);
        }
        if (last < right.size())
            row[last + 1] = tooFar;
        if (best == tooFar)
            return tooFar;
    }
    return std::min(rows[left.size() % 3][right.size()], tooFar);
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
    for (const auto& [distance, candidate] : candidates)
        names.emplace_back(candidate);
    return names;
}

} // namespace refdoc
