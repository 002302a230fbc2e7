#include "tools/refdoc/lookup/EmptyIndex.hpp"

#include "docparser/DocResourceParser.hpp"
#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/suggest/Suggestions.hpp"

#include <fmt/format.h>

#include <filesystem>
#include <system_error>

namespace refdoc {

namespace fs = std::filesystem;

using reference::docparser::DocResourceParser;
using Tools = DocResourceParser::ParsingTools;

namespace {

// Returns the outermost folder of a path that does not exist, but not above the root; empty if all
// exist.
fs::path missingFolder(const fs::path& lookupFolder) {
    std::error_code ignored; // The library skips a folder that cannot be seen.
    const fs::path catalog = lookupFolder.parent_path();
    for (const fs::path& folder : {catalog.parent_path(), catalog, lookupFolder}) {
        if (!fs::exists(folder, ignored))
            return folder;
    }
    return {};
}

bool hasLookupFiles(const std::u16string& folder) {
    const auto files =
        DocResourceParser::getAllProducts(folder, Tools::getSupportedDocLocales(),
                                          Tools::kLocaleSeparator + Tools::getCurrentLocale());
    return !files.jsonProducts.empty() || !files.zipProducts.empty();
}

} // namespace

std::string emptyIndexReason() {
    const std::u16string folder = DocResourceParser::getReferenceRoots()->lookupFolder;
    if (const fs::path missing = missingFolder(fs::path(folder)); !missing.empty())
        return fmt::format("the lookup index is empty: {} does not exist{}",
                           fl::i18n::to_string(missing.u16string()), kOtherFolders);
    const std::string name = fl::i18n::to_string(folder);
    if (hasLookupFiles(folder))
        return fmt::format("the lookup index is empty: the files in {} have no valid records; run "
                           "refdoc check",
                           name);
    return fmt::format("the lookup index is empty: {} has no lookup files{}", name, kOtherFolders);
}

} // namespace refdoc
