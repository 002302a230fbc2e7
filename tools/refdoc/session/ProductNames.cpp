#include "tools/refdoc/session/ProductNames.hpp"

#include "docparser/DocResourceParser.hpp"
#include "tools/refdoc/session/HostOverrides.hpp"
#include "tools/refdoc/session/SupportFolder.hpp"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <system_error>

namespace refdoc {

using reference::docparser::DocResourceParser;
using reference::docparser::ProductPathData;
using Tools = DocResourceParser::ParsingTools;

std::u16string productOf(const ProductPathData& file, const std::u16string& currentLanguage) {
    std::u16string name = file.getName();
    const std::u16string suffix = Tools::kLocaleSeparator + currentLanguage;
    if (file.isNonEnglishLocale() && name.ends_with(suffix))
        name.resize(name.size() - suffix.size());
    return name;
}

std::vector<std::u16string> productNames() {
    const std::u16string language = Tools::getCurrentLocale();
    const std::vector<std::u16string> suffixes = Tools::getSupportedDocLocales();
    std::set<std::u16string> names;
    for (const std::u16string& folder :
         {DocResourceParser::getReferenceRoots()->referenceApiFolder, supportFolder()}) {
        const auto files =
            DocResourceParser::getAllProducts(folder, suffixes, Tools::kLocaleSeparator + language);
        for (const ProductPathData& file : files.jsonProducts)
            names.insert(productOf(file, language));
    }
    return {names.begin(), names.end()};
}

std::set<std::u16string> productNames(const std::vector<std::u16string>& languages) {
    std::set<std::u16string> names;
    for (const std::u16string& language : languages) {
        const LanguageGuard current(language);
        std::ranges::move(productNames(), std::inserter(names, names.end()));
    }
    return names;
}

bool mayHaveTranslation(const std::u16string& file, const std::u16string& language) {
    std::filesystem::path path(file);
    path.replace_filename(path.stem().u16string() + Tools::kLocaleSeparator + language +
                          path.extension().u16string());
    std::error_code failure;
    return std::filesystem::symlink_status(path, failure).type() !=
           std::filesystem::file_type::not_found;
}

} // namespace refdoc
