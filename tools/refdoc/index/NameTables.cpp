#include "tools/refdoc/index/NameTables.hpp"

#include "tools/refdoc/index/words/TextOrder.hpp"
#include "tools/refdoc/search/CodePoints.hpp"

namespace refdoc::site {

namespace {

constexpr std::size_t kLongestName = 100; // in code units; also in search.js

// Names are looked up by several lengths, so that small parts load less. Also in search.js.
constexpr std::size_t kLargestNamePart = 2'000;

// Reverses the characters after the first one, which is the length.
std::u16string reversedKey(std::u16string_view key) {
    std::u16string reversed(1, key[0]);
    for (std::size_t at = key.size(); at > 1; at = key.size() - reversed.size() + 1)
        appendCodePoint(codePointBefore(key, at), reversed);
    return reversed;
}

} // namespace

void NameTables::add(std::u16string_view name, std::uint32_t record) {
    if (name.empty() || name.size() > kLongestName)
        return;
    std::u16string key(1, static_cast<char16_t>(name.size()));
    names_.emplace_back(key.append(name), record);
}

NameDirectories NameTables::write(const std::vector<std::uint32_t>& numbers,
                                  const AddFile& addFile) {
    NameDirectories directories;
    directories.names = writeTable("name", numbers, addFile);
    for (auto& [key, record] : names_)
        key = reversedKey(key);
    directories.reversedNames = writeTable("eman", numbers, addFile);
    return directories;
}

std::string NameTables::writeTable(const std::string& table,
                                   const std::vector<std::uint32_t>& numbers,
                                   const AddFile& addFile) const {
    IndexTable rows(table, kLargestNamePart, addFile);
    std::string row;
    for (const std::uint32_t position :
         sortedPositions(names_.size(),
                         [&](std::size_t at) -> std::u16string_view { return names_[at].first; })) {
        const auto& [key, record] = names_[position];
        row.clear();
        appendNumber(numbers[record], row);
        rows.add(key, row);
    }
    return rows.finish();
}

} // namespace refdoc::site
