#pragma once

#include "docparser/Queries.hpp"
#include "tools/refdoc/index/IndexTable.hpp"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace refdoc::site {

/// Returns the part of a name, link or purpose that is searched: all of it, unless it is very long.
std::u16string_view searchedPart(std::u16string_view text) noexcept;

/// Writes the records in the parts "row0", "row1", ..., and numbers them.
///
/// A part is an array of rows, and a row an array of name, link, purpose, type, product and page.
class RecordRows {
public:
    /// \param addFile  must outlive the rows
    explicit RecordRows(const AddFile& addFile) : addFile_(addFile) {}

    /// Adds a record. Returns its number: 32 times the number of its part plus its position there.
    /// \param page  the path of its page; empty if it has none
    std::uint32_t add(const reference::docparser::IndexEntry& entry, const std::string& page);

    /// Writes what is left.
    void finish();

private:
    const AddFile& addFile_;
    std::string rows_;
    std::size_t count_ = 0; // in rows_
    std::size_t partCount_ = 0;
};

} // namespace refdoc::site
