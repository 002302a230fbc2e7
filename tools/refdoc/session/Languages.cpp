#include "tools/refdoc/session/Languages.hpp"

#include "docparser/DocResourceParser.hpp"
#include "tools/refdoc/session/SupportFolder.hpp"

#include <boost/algorithm/string/split.hpp>

#include <algorithm>
#include <string_view>
#include <utility>

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

// Without locale suffixes, the lists have the files of all languages.
void addNames(const std::u16string& folder, std::set<std::u16string>& names) {
    const auto files = DocResourceParser::getAllProducts(folder, {}, {});
    for (const auto* list : {&files.jsonProducts, &files.zipProducts}) {
        for (const ProductPathData& file : *list)
            names.insert(file.getName());
    }
}

} // namespace

std::vector<std::u16string> allLanguages() {
    std::vector<std::u16string> languages{Tools::kEnglishLocale};
    for (const std::u16string& suffix : Tools::getSupportedDocLocales())
        languages.push_back(suffix.substr(1));
    languages.push_back(Tools::getCurrentLocale());
    std::vector<std::u16string> distinct;
    for (std::u16string& language : languages) {
        if (std::ranges::find(distinct, language) == distinct.end())
            distinct.push_back(std::move(language));
    }
    return distinct;
}

std::map<std::u16string, std::size_t> countTranslations(const std::set<std::u16string>& names) {
    std::map<std::u16string, std::size_t> counts;
    for (const std::u16string& name : names) {
        for (std::size_t end = name.find(Tools::kLocaleSeparator); end != std::u16string::npos;
             end = name.find(Tools::kLocaleSeparator, end + 1)) {
            const std::u16string locale = name.substr(end + 1);
            if (locale != Tools::kEnglishLocale && isLocale(locale) &&
                names.contains(name.substr(0, end)))
                ++counts[locale];
        }
    }
    return counts;
}

std::set<std::u16string> fullFileNames() {
    std::set<std::u16string> names;
    addNames(DocResourceParser::getReferenceRoots()->referenceApiFolder, names);
    addNames(supportFolder(), names);
    return names;
}

std::set<std::u16string> fileNames() {
    std::set<std::u16string> names = fullFileNames();
    addNames(DocResourceParser::getReferenceRoots()->lookupFolder, names);
    return names;
}

std::vector<std::u16string> inferLanguages(const std::set<std::u16string>& names) {
    std::vector<std::u16string> languages{Tools::kEnglishLocale};
    for (const auto& [language, count] : countTranslations(names))
        languages.push_back(language);
    return languages;
}

} // namespace refdoc
