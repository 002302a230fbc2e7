#pragma once

#include "tools/refdoc/index/IndexTable.hpp"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace refdoc::site {

/// The tables "name" and "eman", which find names that are near a text. They are sorted by the
/// length of the names, which is the first code unit of the keys; in "eman", the names are
/// reversed.
class NameTables {
public:
    /// Adds the name of a record, unless it is too long to have near matches.
    /// \param name  folded
    void add(std::u16string_view name, std::uint32_t number);

    /// Writes "name". Returns what IndexTable::finish() returns. May be called once.
    std::string writeNames(const AddFile& addFile);

    /// The same for "eman", after writeNames().
    std::string writeReversedNames(const AddFile& addFile);

private:
    std::string write(const std::string& table, const AddFile& addFile);

    std::vector<std::pair<std::u16string, std::uint32_t>> names_; // keys and numbers
};

} // namespace refdoc::site
