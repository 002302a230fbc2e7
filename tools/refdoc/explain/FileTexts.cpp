#include "tools/refdoc/explain/FileTexts.hpp"

#include <map>
#include <string_view>
#include <utility>

namespace refdoc {

using reference::docparser::FileAccount;
using reference::docparser::LoadAccount;

FileTexts::FileTexts(const LoadAccount& account) : account_(account) {
    std::map<std::pair<std::u16string_view, std::u16string_view>, std::size_t> counts;
    equalsBefore_.reserve(account.files.size());
    for (const FileAccount& file : account.files)
        equalsBefore_.push_back(counts[{file.path, file.entry}]++);
}

std::optional<std::string> FileTexts::read(std::size_t index) {
    const FileAccount& file = account_.files[index];
    std::string text = texts_.read({file.path, file.entry, equalsBefore_[index]});
    // The library has used the text, so an empty one means that the file is gone.
    if (text.empty())
        return std::nullopt;
    return text;
}

} // namespace refdoc
