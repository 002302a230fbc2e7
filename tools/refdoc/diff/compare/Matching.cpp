#include "tools/refdoc/diff/compare/Matching.hpp"

#include <algorithm>
#include <string_view>
#include <unordered_map>

namespace refdoc::diff {

namespace {

// For more elements with one key than this, comparing each with each takes too long.
constexpr std::size_t kMostComparisons = 64;

} // namespace

bool Matching::isInOrder() const {
    return std::ranges::is_sorted(pairs, {}, &std::pair<std::size_t, std::size_t>::second);
}

Matcher::Matcher(std::size_t oldCount, std::size_t newCount, IsEqual isEqual)
    : isEqual_(std::move(isEqual)),
      newOf_(oldCount, kNone),
      oldOf_(newCount, kNone),
      pairsLeft_(std::min(oldCount, newCount)) {}

void Matcher::pair(std::size_t oldIndex, std::size_t newIndex) {
    newOf_[oldIndex] = newIndex;
    oldOf_[newIndex] = oldIndex;
    --pairsLeft_;
}

void Matcher::pairEqual(const Indices& olds, const Indices& news) {
    for (const std::size_t oldIndex : olds) {
        const auto found = std::ranges::find_if(news, [&](std::size_t newIndex) {
            return oldOf_[newIndex] == kNone && isEqual_(oldIndex, newIndex);
        });
        if (found != news.end())
            pair(oldIndex, *found);
    }
}

void Matcher::pairInOrder(const Indices& olds, const Indices& news) {
    auto next = news.begin();
    for (const std::size_t oldIndex : olds) {
        if (newOf_[oldIndex] != kNone)
            continue;
        next = std::find_if(next, news.end(),
                            [&](std::size_t newIndex) { return oldOf_[newIndex] == kNone; });
        if (next == news.end())
            return;
        pair(oldIndex, *next);
    }
}

void Matcher::matchKeys(const std::vector<std::string>& oldKeys,
                        const std::vector<std::string>& newKeys) {
    std::unordered_map<std::string_view, std::pair<Indices, Indices>> groups;
    for (std::size_t index = 0; index < oldKeys.size(); ++index) {
        if (newOf_[index] == kNone && !oldKeys[index].empty())
            groups[oldKeys[index]].first.push_back(index);
    }
    for (std::size_t index = 0; index < newKeys.size(); ++index) {
        if (oldOf_[index] == kNone && !newKeys[index].empty())
            groups[newKeys[index]].second.push_back(index);
    }
    for (const auto& [key, group] : groups) {
        const auto& [olds, news] = group;
        const std::size_t comparisons = olds.size() * news.size();
        if (comparisons > 1 && comparisons <= kMostComparisons)
            pairEqual(olds, news);
        pairInOrder(olds, news);
    }
}

void Matcher::matchRest() {
    Indices olds(newOf_.size());
    Indices news(oldOf_.size());
    for (std::size_t index = 0; index < olds.size(); ++index)
        olds[index] = index;
    for (std::size_t index = 0; index < news.size(); ++index)
        news[index] = index;
    pairInOrder(olds, news);
}

Matching Matcher::take() {
    Matching matching;
    for (std::size_t index = 0; index < newOf_.size(); ++index) {
        if (newOf_[index] == kNone)
            matching.removed.push_back(index);
        else
            matching.pairs.emplace_back(index, newOf_[index]);
    }
    for (std::size_t index = 0; index < oldOf_.size(); ++index) {
        if (oldOf_[index] == kNone)
            matching.added.push_back(index);
    }
    return matching;
}

} // namespace refdoc::diff
