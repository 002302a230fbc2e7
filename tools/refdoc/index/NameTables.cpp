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

void NameTables::add(std::u16string_view name, std::uint32_t number) {
    if (name.empty() || name.size() > kLongestName)
        return;
    std::u16string key(1, static_cast<char16_t>(name.size()));
    names_.emplace_back(key.append(name), number);
}

std::string NameTables::writeNames(const AddFile& addFile) {
    return write("name", addFile);
}

std::string NameTables::writeReversedNames(const AddFile& addFile) {
    for (auto& [key, number] : names_)
        key = reversedKey(key);
    return write("eman", addFile);
}

std::string NameTables::write(const std::string& table, const AddFile& addFile) {
    IndexTable rows(table, kLargestNamePart, addFile);
    std::string numbers;
    for (const std::uint32_t position :
         sortedPositions(names_.size(),
                         [&](std::size_t at) -> std::u16string_view { return names_[at].first; })) {
        const auto& [key, number] = names_[position];
        numbers.clear();
        appendNumber(number, numbers);
        rows.add(key, numbers);
    }
    return rows.finish();
}

} // namespace refdoc::site
