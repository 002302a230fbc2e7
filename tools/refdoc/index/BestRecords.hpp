#pragma once

#include "tools/refdoc/index/IndexedRecords.hpp"
#include "tools/refdoc/index/words/WordEnds.hpp"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace refdoc::site {

/// The best records for a text, sorted; at most as many as pages show.
class BestRecords {
public:
    /// Adds a record, or a better match of a record.
    /// \param recordClass  0 to 3; the smaller one is the better one if the matches are equal
    void add(const FieldMatch& match, std::uint32_t recordClass, std::uint32_t record) {
        addOrder(orderOf(match, recordClass, record));
    }

    /// Adds the records of another list.
    void add(const BestRecords& others);

    std::size_t size() const { return count_; }
    std::uint32_t operator[](std::size_t position) const {
        return static_cast<std::uint32_t>(orders_[position]);
    }

private:
    static constexpr std::size_t kMostRecords = 20; // also in search.js

    // A number that is smaller for better results. The record is in the low half.
    static std::uint64_t orderOf(const FieldMatch& match, std::uint32_t recordClass,
                                 std::uint32_t record) {
        return (static_cast<std::uint64_t>(match.match) << 40U) |
               (std::uint64_t{recordClass} << 36U) |
               (static_cast<std::uint64_t>(match.field) << 32U) | record;
    }

    void addOrder(std::uint64_t order) {
        if (count_ < kMostRecords || order < orders_[count_ - 1])
            insert(order);
    }

    void insert(std::uint64_t order);

    std::array<std::uint64_t, kMostRecords> orders_{};
    std::size_t count_ = 0;
};

/// The best records for a text.
struct BestText {
    std::u16string_view text; ///< valid as long as the words
    BestRecords records{};
};

/// Returns the best records for each text that so many words have that a search would load too many
/// parts of the table "list", in the order of the texts. Takes time in proportion to that table.
/// \param partStarts  of the table "list"
std::vector<BestText> findBestTexts(const WordEnds& ends,
                                    const std::vector<std::size_t>& partStarts,
                                    const IndexedRecords& records);

} // namespace refdoc::site
