#pragma once

#include "docparser/Queries.hpp"
#include "tools/refdoc/index/words/Occurrence.hpp"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace refdoc::site {

/// The records of a lookup index in the order of their numbers: records of installed products come
/// first, then those that are not deprecated, then the smaller names.
class IndexedRecords {
public:
    /// The fields of a record, folded, by SearchField.
    using Fields = std::array<std::u16string, kFields.size()>;

    /// \param index  must outlive the object
    explicit IndexedRecords(const reference::docparser::LookupIndex& index);

    std::size_t size() const { return entries_.size(); }
    const reference::docparser::IndexEntry& operator[](std::size_t record) const {
        return entries_[record];
    }

    /// Returns the first records that are deprecated, not installed, and both. If a class has no
    /// records, its start is that of the next class or size().
    const std::array<std::size_t, 3>& classStarts() const { return classStarts_; }

    /// Returns which records come first among equal matches: 0 to 3, the best class first.
    unsigned classOf(std::size_t record) const {
        unsigned result = 0;
        for (const std::size_t start : classStarts_)
            result += record >= start ? 1U : 0U;
        return result;
    }

    /// Sets the fields to the searched parts, folded. Uses their memory again.
    void foldFields(std::size_t record, Fields& folded) const;

    /// Returns how a record matches a text that it has.
    FieldMatch matchOf(std::u16string_view text, std::size_t record) const;

private:
    std::vector<reference::docparser::IndexEntry> entries_;
    std::array<std::size_t, 3> classStarts_{};
};

} // namespace refdoc::site
