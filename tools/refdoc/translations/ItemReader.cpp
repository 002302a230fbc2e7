#include "tools/refdoc/translations/ItemReader.hpp"

#include "docparser/DocParserException.hpp"
#include "docparser/DocResourceParser.hpp"
#include "docparser/account/LoadAccount.hpp"
#include "tools/refdoc/session/HostOverrides.hpp"
#include "tools/refdoc/session/Languages.hpp"
#include "tools/refdoc/translations/Damage.hpp"
#include "tools/refdoc/translations/Positions.hpp"
#include "tools/refdoc/translations/comparison/Comparisons.hpp"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace refdoc::translations {

using reference::docparser::DocParserException;
using reference::docparser::DocResourceParser;
using reference::docparser::Fate;
using reference::docparser::FileAccount;
using reference::docparser::LoadAccount;
using reference::docparser::ResourceMap;
using reference::property::RefItem;
using Tools = DocResourceParser::ParsingTools;

namespace {

// What one file of a product has.
struct Content {
    ResourceMap<RefItem> resources{};
    LoadAccount account{};

    bool isUsable() const { return !resources.empty(); }

    // The number of folders that were tried before. In English, a product has one file in each.
    std::size_t folder() const {
        const auto used = std::ranges::find(account.files, Fate::Used, &FileAccount::fate);
        return static_cast<std::size_t>(used - account.files.begin());
    }
};

Content readContent(const std::u16string& name) {
    Content content;
    const LoadAccount::Scope scope(content.account);
    try {
        content.resources = DocResourceParser::getResourceFile(name);
    } catch (const DocParserException&) {
        content.resources.clear(); // The account has the reason.
    }
    return content;
}

// The library looks no further than to the first folder that has a usable file.
bool isHidden(const Content& translation, const Content& english) {
    return english.isUsable() && translation.isUsable() && translation.folder() > english.folder();
}

// \param reader  of the product's files; null if no positions are wanted
Comparison compare(const Content& english, const Content& translation, SectionReader* reader) {
    Comparison comparison = compareItems(english.resources, translation.resources);
    if (reader && !comparison.entries.empty())
        addPositions(comparison, Positions(english.account, *reader, /*isTranslation=*/false),
                     Positions(translation.account, *reader, /*isTranslation=*/false));
    return comparison;
}

} // namespace

ItemReader::ItemReader(std::vector<std::u16string> languages, bool wantsPositions)
    : languages_(std::move(languages)),
      wantsPositions_(wantsPositions),
      fileNames_(fullFileNames()) {}

ReadItems ItemReader::read(const std::u16string& product) const {
    const LanguageGuard current(Tools::kEnglishLocale);
    ReadItems result{.report = {.product = product}};
    const auto readFile = [&](const std::u16string& name, const std::u16string& language) {
        Content content = fileNames_.contains(name) ? readContent(name) : Content();
        addDamaged(content.account, language, /*isTranslation=*/false, result.damaged);
        return content;
    };
    const Content english = readFile(product, Tools::kEnglishLocale);
    result.report.hasEnglish = english.isUsable();
    SectionReader reader(std::nullopt); // the languages share the English file
    for (const std::u16string& language : languages_) {
        Content translation = readFile(product + Tools::kLocaleSeparator + language, language);
        if (isHidden(translation, english))
            translation = {};
        result.report.languages.push_back(
            {.language = language,
             .items = compare(english, translation, wantsPositions_ ? &reader : nullptr)});
    }
    return result;
}

} // namespace refdoc::translations
