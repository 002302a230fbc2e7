#include "tools/refdoc/explain/FileTexts.hpp"

namespace refdoc {

using reference::docparser::LoadAccount;

FileTexts::FileTexts(const LoadAccount& account)
    : account_(account), files_(sourceFiles(account)) {}

std::optional<std::string> FileTexts::read(std::size_t index) {
    std::string text = texts_.read(files_[index]);
    // A file that was of use had content.
    if (text.empty())
        return std::nullopt;
    return text;
}

} // namespace refdoc
