#include "tools/refdoc/site/ProductReader.hpp"

#include "docparser/DocParserException.hpp"
#include "tools/refdoc/session/FileDamage.hpp"
#include "tools/refdoc/session/HostOverrides.hpp"
#include "tools/refdoc/session/ProductNames.hpp"
#include "tools/refdoc/session/SourceTexts.hpp"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

namespace refdoc::site {

using reference::docparser::DocParserException;
using reference::docparser::DocResourceParser;
using reference::docparser::Fate;
using reference::docparser::FileAccount;
using reference::docparser::LoadAccount;

namespace {

bool readResources(const std::u16string& product, EditionContent& content) {
    const LoadAccount::Scope scope(content.account);
    try {
        content.resources = DocResourceParser::getResourceFile(product);
        return true;
    } catch (const DocParserException&) {
        return false; // The account has the reason.
    }
}

void readBrokenFiles(EditionContent& content) {
    SourceTexts texts;
    for (const FileAccount& file : content.account.files) {
        if (isDamaged(file))
            content.brokenFiles.push_back(
                {file, file.fate == Fate::Malformed ? texts.read({.path = file.path}) : ""});
    }
}

void readOrigins(SectionReader& reader, EditionContent& content) {
    std::vector<SectionOrigins> sections = findOrigins(content.account, reader);
    RecordCounts counts;
    addCounts(content.resources, std::nullopt, counts);
    expectCounts(counts, sections);
    for (SectionOrigins& section : sections) {
        std::ranges::stable_sort(section.lost, {},
                                 [](const LostRecord& lost) { return lost.record.key; });
        content.origins.emplace(section.key, std::move(section));
    }
}

std::shared_ptr<const EditionContent> readContent(const std::u16string& product,
                                                  const std::u16string& language,
                                                  SectionReader& reader, LoadAccount& account) {
    const LanguageGuard current(language);
    EditionContent content;
    if (readResources(product, content))
        readOrigins(reader, content);
    else
        std::ranges::copy(content.account.files, std::back_inserter(account.files));
    readBrokenFiles(content);
    return std::make_shared<const EditionContent>(std::move(content));
}

// Returns whether a language has the files of the first edition, which is the English one.
bool isEnglishIn(const std::u16string& language, const std::vector<Edition>& editions) {
    return !editions.empty() && !editions.front().isBroken() &&
           editions.front().language == DocResourceParser::ParsingTools::kEnglishLocale &&
           std::ranges::none_of(
               editions.front().content->account.files,
               [&](const FileAccount& file) { return mayHaveTranslation(file.path, language); });
}

} // namespace

std::set<std::u16string> siteProducts(const SiteLanguages& languages) {
    std::vector<std::u16string> codes;
    std::ranges::transform(languages, std::back_inserter(codes), &SiteLanguage::code);
    return productNames(codes);
}

Product readProduct(const std::u16string& name, const SiteLanguages& languages,
                    LoadAccount& account) {
    Product product;
    std::vector<Edition>& editions = product.editions;
    SectionReader reader(std::nullopt); // most translations share records with the English file
    for (const SiteLanguage& language : languages) {
        Edition edition{language.code, isEnglishIn(language.code, editions)
                                           ? editions.front().content
                                           : readContent(name, language.code, reader, account)};
        if (!edition.isBroken() || !edition.content->brokenFiles.empty())
            editions.push_back(std::move(edition));
    }
    return product;
}

} // namespace refdoc::site
