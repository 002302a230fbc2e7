#include "tools/refdoc/ProductNames.hpp"

#include "docparser/DocResourceParser.hpp"

#include <set>

namespace refdoc {

using reference::docparser::DocResourceParser;
using reference::docparser::ProductPathData;
using Tools = DocResourceParser::ParsingTools;

std::vector<std::u16string> productNames() {
    const std::u16string currentSuffix = Tools::kLocaleSeparator + Tools::getCurrentLocale();
    const std::vector<std::u16string> suffixes = Tools::getSupportedDocLocales();
    std::set<std::u16string> names;
    for (const std::u16string& folder : {DocResourceParser::getReferenceRoots()->referenceApiFolder,
                                         *DocResourceParser::getSupportPackageRoot()}) {
        const auto files = DocResourceParser::getAllProducts(folder, suffixes, currentSuffix);
        for (const ProductPathData& file : files.jsonProducts) {
            std::u16string name = file.getName();
            if (file.isNonEnglishLocale() && name.ends_with(currentSuffix))
                name.resize(name.size() - currentSuffix.size());
            names.insert(std::move(name));
        }
    }
    return {names.begin(), names.end()};
}

} // namespace refdoc
