#include "tools/refdoc/site/ProductReader.hpp"

#include "docparser/DocParserException.hpp"
#include "tools/refdoc/session/HostOverrides.hpp"
#include "tools/refdoc/session/ProductNames.hpp"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

namespace refdoc::site {

using reference::docparser::DocParserException;
using reference::docparser::DocResourceParser;
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
    std::set<std::u16string> names;
    for (const SiteLanguage& language : languages) {
        const LanguageGuard current(language.code);
        std::ranges::move(productNames(), std::inserter(names, names.end()));
    }
    return names;
}

Product readProduct(const std::u16string& name, const SiteLanguages& languages,
                    LoadAccount& account) {
    Product product;
    SectionReader reader(std::nullopt); // most languages share the English file
    for (const SiteLanguage& language : languages) {
        Edition edition{.language = language.code};
        if (!readResources(name, edition)) {
            std::ranges::move(edition.account.files, std::back_inserter(account.files));
            continue;
        }
        readOrigins(reader, edition);
        product.editions.push_back(std::move(edition));
    }
    return product;
}

} // namespace refdoc::site
