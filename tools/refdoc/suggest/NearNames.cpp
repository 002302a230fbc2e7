#include "tools/refdoc/suggest/NearNames.hpp"

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

// The distances between the first i letters of one name and the first j of the other. Only the
// cells with |i - j| <= limit can matter; what lies beside them counts as too far. Of the rows, the
// last three are kept.
class DistanceTable {
public:
    DistanceTable(std::u16string_view left, std::u16string_view right, std::size_t limit)
        : left_(left), right_(right), limit_(limit), tooFar_(limit + 1) {
        for (Row& row : rows_)
            row.assign(right.size() + 1, tooFar_);
        for (std::size_t j = 0; j <= std::min(limit, right.size()); ++j)
            rows_[0][j] = j;
    }

    // Fills row i, 1 or more, after the rows before it; returns its smallest distance.
    std::size_t fillRow(std::size_t i) {
        const std::size_t first = i > limit_ ? i - limit_ : 0;
        const std::size_t last = std::min(i + limit_, right_.size());
        Row& row = rowAt(i);
        if (first > 0)
            row[first - 1] = tooFar_;
        std::size_t smallest = tooFar_;
        for (std::size_t j = first; j <= last; ++j) {
            row[j] = j == 0 ? i : distanceAt(i, j);
            smallest = std::min(smallest, row[j]);
        }
        if (last < right_.size())
            row[last + 1] = tooFar_;
        return smallest;
    }

    std::size_t lastCell() { return rowAt(left_.size())[right_.size()]; }

private:
    using Row = std::vector<std::size_t>;

    Row& rowAt(std::size_t i) { return rows_[i % rows_.size()]; }

    bool isSame(std::size_t i, std::size_t j) const {
        return lower(left_[i - 1]) == lower(right_[j - 1]);
    }

    std::size_t distanceAt(std::size_t i, std::size_t j) {
        const Row& above = rowAt(i - 1);
        std::size_t distance = std::min(
            {above[j - 1] + (isSame(i, j) ? 0 : 1), rowAt(i)[j - 1] + 1, above[j] + 1, tooFar_});
        if (i > 1 && j > 1 && isSame(i, j - 1) && isSame(i - 1, j))
            distance = std::min(distance, rowAt(i - 2)[j - 2] + 1);
        return distance;
    }

    std::u16string_view left_;
    std::u16string_view right_;
    std::size_t limit_;
    std::size_t tooFar_;
    std::array<Row, 3> rows_;
};

} // namespace

std::size_t editDistance(std::u16string_view left, std::u16string_view right, std::size_t limit) {
    const std::size_t tooFar = limit + 1;
    const std::size_t longer = std::max(left.size(), right.size());
    if (longer - std::min(left.size(), right.size()) > limit)
        return tooFar;

    DistanceTable table(left, right, limit);
    for (std::size_t i = 1; i <= left.size(); ++i) {
        // Distances never shrink from one row to the next.
        if (table.fillRow(i) == tooFar)
            return tooFar;
    }
    return table.lastCell();
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
