#include "tools/refdoc/suggest/NearNames.hpp"

#include "docparser/Queries.hpp"

#include <algorithm>
#include <set>
#include <utility>

namespace refdoc {

using reference::docparser::editDistance;

namespace {

constexpr std::size_t kLargestLimit = 3;

constexpr char16_t lower(char16_t unit) noexcept {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}

std::size_t limitFor(std::u16string_view name) {
    return std::min((name.size() + 1) / 3, kLargestLimit);
}

} // namespace

std::u16string lowered(std::u16string_view text) {
    std::u16string result(text);
    std::ranges::transform(result, result.begin(), lower);
    return result;
}

std::size_t nameDistance(std::u16string_view left, std::u16string_view right, std::size_t limit) {
    return editDistance(lowered(left), lowered(right), limit);
}

bool isSameName(std::u16string_view left, std::u16string_view right) {
    return std::ranges::equal(left, right, {}, lower, lower);
}

std::vector<std::u16string> nearNames(std::u16string_view name,
                                      const std::vector<std::u16string_view>& known,
                                      std::size_t maximum) {
    const std::u16string wanted = lowered(name);
    const std::size_t limit = limitFor(name);
    std::set<std::pair<std::size_t, std::u16string_view>> candidates;
    for (const std::u16string_view candidate : known) {
        const std::size_t distance = editDistance(wanted, lowered(candidate), limit);
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
