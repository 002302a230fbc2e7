#pragma once

#include "tools/refdoc/index/IndexTable.hpp"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace refdoc::site {

/// What IndexTable::finish() returned for the tables.
struct NameDirectories {
    std::string names;
    std::string reversedNames;
};

/// The tables "name" and "eman", which find names that are near a text. They are sorted by the
/// length of the names, which is the first code unit of the keys; in "eman", the names are
/// reversed.
class NameTables {
public:
    /// Adds the name of a record, unless it is too long to have near matches.
    /// \param name    folded
    /// \param record  its position in the order of the numbers
    void add(std::u16string_view name, std::uint32_t record);

    /// Writes the tables. The last call to the object.
    /// \param numbers  of the records
    NameDirectories write(const std::vector<std::uint32_t>& numbers, const AddFile& addFile);

private:
    std::string writeTable(const std::string& table, const std::vector<std::uint32_t>& numbers,
                           const AddFile& addFile) const;

    std::vector<std::pair<std::u16string, std::uint32_t>> names_; // keys and records
};

} // namespace refdoc::site
