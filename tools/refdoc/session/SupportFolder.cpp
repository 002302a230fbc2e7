#include "tools/refdoc/session/SupportFolder.hpp"

#include "docparser/DocResourceParser.hpp"

#include <vector>

namespace refdoc {

using reference::docparser::DocResourceParser;
using reference::docparser::FileAccount;

namespace {

// No path with NUL reaches the system. The text is for the diagnostic records.
const std::u16string kNoFolder = u"(no support packages)" + std::u16string(1, u'\0');

} // namespace

void disableSupportFolder() {
    DocResourceParser::setSupportPackageRoot(kNoFolder);
}

std::u16string supportFolder() {
    const auto folder = DocResourceParser::getSupportPackageRoot();
    return *folder == kNoFolder ? std::u16string() : *folder;
}

void removeDisabledFolder(reference::docparser::LoadAccount& account) {
    // The folder is tried last, so that no record refers to a file behind it.
    std::erase_if(account.files,
                  [](const FileAccount& file) { return file.path.starts_with(kNoFolder); });
}

} // namespace refdoc
