#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace refdoc::diff {

/// Which elements of two sequences belong together. The same pairs, swapped, result from swapped
/// sequences.
struct Matching {
    std::vector<std::pair<std::size_t, std::size_t>> pairs{}; ///< old and new index, by old index
    std::vector<std::size_t> removed{};                       ///< old indices, ascending
    std::vector<std::size_t> added{};                         ///< new indices, ascending

    /// Returns whether the pairs are in the same order on both sides.
    bool isInOrder() const;
};

/// Matches elements by one key after the other: what one key leaves over, the next one may match.
/// Elements with the same key are matched in their order, equal ones first if they are few.
/// Cost: linear in the number of elements, on average.
class Matcher {
public:
    using IsEqual = std::function<bool(std::size_t oldIndex, std::size_t newIndex)>;

    /// \param isEqual  compares whole elements
    Matcher(std::size_t oldCount, std::size_t newCount, IsEqual isEqual);

    /// Matches elements with the same key.
    /// \param oldKeys, newKeys  one for each element; an empty key matches nothing
    void matchKeys(const std::vector<std::string>& oldKeys,
                   const std::vector<std::string>& newKeys);

    /// Matches what is left over in its order.
    void matchRest();

    /// Returns whether every element of one side has been matched.
    bool isDone() const noexcept { return pairsLeft_ == 0; }

    Matching take();

private:
    using Indices = std::vector<std::size_t>;

    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    void pair(std::size_t oldIndex, std::size_t newIndex);
    void pairEqual(const Indices& olds, const Indices& news);
    void pairInOrder(const Indices& olds, const Indices& news);

    IsEqual isEqual_;
    Indices newOf_;         // by old index
    Indices oldOf_;         // by new index
    std::size_t pairsLeft_; // that can still be made
};

} // namespace refdoc::diff
