#include "tools/refdoc/session/InferredLanguages.hpp"

#include "docparser/DocResourceParser.hpp"
#include "tools/refdoc/session/SupportFolder.hpp"

#include <boost/algorithm/string/split.hpp>

#include <algorithm>
#include <string_view>

namespace refdoc {

using reference::docparser::DocResourceParser;
using reference::docparser::ProductPathData;
using Tools = DocResourceParser::ParsingTools;

namespace {

bool isSmall(char16_t unit) {
    return unit >= u'a' && unit <= u'z';
}

bool isCapital(char16_t unit) {
    return unit >= u'A' && unit <= u'Z';
}

bool isLanguage(std::u16string_view part) {
    return (part.size() == 2 || part.size() == 3) && std::ranges::all_of(part, isSmall);
}

bool isScript(std::u16string_view part) {
    return part.size() == 4 && isCapital(part.front()) &&
           std::ranges::all_of(part.substr(1), isSmall);
}

bool isTerritory(std::u16string_view part) {
    return part.size() == 2 && std::ranges::all_of(part, isCapital);
}

bool isLocale(const std::u16string& text) {
    std::vector<std::u16string> parts;
    boost::split(parts, text, [](char16_t unit) { return unit == Tools::kLocaleSeparator; });
    if (!isLanguage(parts.front()))
        return false;
    switch (parts.size()) {
    case 1: return parts[0].size() == 2;
    case 2: return isScript(parts[1]) || isTerritory(parts[1]);
    case 3: return isScript(parts[1]) && isTerritory(parts[2]);
    default: return false;
    }
}

} // namespace

std::map<std::u16string, std::size_t> countTranslations(const std::set<std::u16string>& names) {
    std::map<std::u16string, std::size_t> counts;
    for (const std::u16string& name : names) {
        for (std::size_t end = name.find(Tools::kLocaleSeparator); end != name.npos;
             end = name.find(Tools::kLocaleSeparator, end + 1)) {
            const std::u16string locale = name.substr(end + 1);
            if (locale != Tools::kEnglishLocale && isLocale(locale) &&
                names.contains(name.substr(0, end)))
                ++counts[locale];
        }
    }
    return counts;
}

std::set<std::u16string> fileNames() {
    const auto roots = DocResourceParser::getReferenceRoots();
    std::set<std::u16string> names;
    for (const std::u16string& folder :
         {roots->referenceApiFolder, roots->lookupFolder, supportFolder()}) {
        // Without locale suffixes, the lists have the files of all languages.
        const auto files = DocResourceParser::getAllProducts(folder, {}, {});
        for (const auto* list : {&files.jsonProducts, &files.zipProducts}) {
            for (const ProductPathData& file : *list)
                names.insert(file.getName());
        }
    }
    return names;
}

std::vector<std::u16string> inferLanguages(const std::set<std::u16string>& names) {
    std::vector<std::u16string> languages{Tools::kEnglishLocale};
    for (const auto& [language, count] : countTranslations(names))
        languages.push_back(language);
    return languages;
}

} // namespace refdoc
