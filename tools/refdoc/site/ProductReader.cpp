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

bool readResources(const std::u16string& product, Edition& edition) {
    const LanguageGuard current(edition.language);
    const LoadAccount::Scope scope(edition.account);
    try {
        edition.resources = DocResourceParser::getResourceFile(product);
        return true;
    } catch (const DocParserException&) {
        return false; // The account has the reason.
    }
}

void readBrokenFiles(Edition& edition) {
    SourceTexts texts;
    for (const FileAccount& file : edition.account.files) {
        if (isDamaged(file))
            edition.brokenFiles.push_back(
                {file, file.fate == Fate::Malformed ? texts.read({.path = file.path}) : ""});
    }
}

void readOrigins(SectionReader& reader, Edition& edition) {
    std::vector<SectionOrigins> sections = findOrigins(edition.account, reader);
    RecordCounts counts;
    addCounts(edition.resources, std::nullopt, counts);
    expectCounts(counts, sections);
    for (SectionOrigins& section : sections) {
        std::ranges::stable_sort(section.lost, {},
                                 [](const LostRecord& lost) { return lost.record.key; });
        edition.origins.emplace(section.key, std::move(section));
    }
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
    SectionReader reader(std::nullopt); // most languages share the English file
    for (const SiteLanguage& language : languages) {
        Edition edition{.language = language.code};
        if (readResources(name, edition))
            readOrigins(reader, edition);
        else
            std::ranges::copy(edition.account.files, std::back_inserter(account.files));
        readBrokenFiles(edition);
        if (!edition.isBroken() || !edition.brokenFiles.empty())
            product.editions.push_back(std::move(edition));
    }
    return product;
}

} // namespace refdoc::site
