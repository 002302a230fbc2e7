#include "tools/refdoc/check/rules/LanguageRun.hpp"

#include "docparser/DocParserException.hpp"
#include "docparser/DocResourceParser.hpp"
#include "platform/HostServices.hpp"
#include "tools/refdoc/session/HostOverrides.hpp"

#include <memory>
#include <optional>
#include <utility>

namespace refdoc::check {

using reference::docparser::DocParserException;
using reference::docparser::DocResource;
using reference::docparser::DocResourceParser;
using reference::docparser::LoadAccount;
using reference::docparser::ProductPathData;
using reference::docparser::ResourceMap;
using reference::property::RefItem;
using reference::property::RefItemLookup;
using reference::property::SeeAlso;
using Tools = DocResourceParser::ParsingTools;

namespace {

// Another current language, as long as it lives.
class CurrentLanguage {
public:
    explicit CurrentLanguage(const std::u16string& language) : services_(platform::hostServices()) {
        platform::setHostServices(
            std::make_shared<LanguageOverrides>(services_, language, std::nullopt));
    }
    ~CurrentLanguage() { platform::setHostServices(services_); }
    CurrentLanguage(const CurrentLanguage&) = delete;
    CurrentLanguage& operator=(const CurrentLanguage&) = delete;

private:
    std::shared_ptr<const platform::HostServices> services_;
};

void addProductsOf(const std::u16string& folder, ProductNames& names) {
    const std::u16string suffix = Tools::kLocaleSeparator + Tools::getCurrentLocale();
    const auto lists =
        DocResourceParser::getAllProducts(folder, Tools::getSupportedDocLocales(), suffix);
    for (const ProductPathData& file : lists.jsonProducts) {
        std::u16string name = file.getName();
        if (file.isNonEnglishLocale())
            name.resize(name.size() - suffix.size());
        names.insert(std::move(name));
    }
}

FullSection sectionOf(const DocResource<RefItem>& resource) {
    FullSection section{resource.header.getHelpLocation(), {}, {}};
    std::unordered_set<std::u16string> links;
    for (const auto& [href, items] : resource.items) {
        bool hasNames = false;
        for (const RefItem& item : items) {
            hasNames |= !item.getRefEntities().empty();
            for (const SeeAlso& link : item.getSeeAlso()) {
                if (links.insert(link.getUrl()).second)
                    section.links.push_back(link.getUrl());
            }
        }
        section.pages.push_back({href, hasNames});
    }
    return section;
}

void addLookups(const ResourceMap<RefItemLookup>& resources, bool isInstalled, LanguageRun& run) {
    for (const auto& [key, resource] : resources) {
        LookupSection section{
            resource.header.getProduct(), resource.header.getHelpLocation(), isInstalled, {}};
        for (const auto& [name, records] : resource.items) {
            for (const RefItemLookup& record : records)
                section.records.push_back({name, record.getHref()});
        }
        run.lookups.insert_or_assign(key, std::move(section));
    }
}

void retrieveProduct(const std::u16string& product, LanguageRun& run) {
    std::optional<ResourceMap<RefItem>> resources;
    try {
        resources = DocResourceParser::getResourceFile(product);
    } catch (const DocParserException&) {
        return; // The account tells why.
    }
    for (const auto& [key, resource] : *resources)
        run.products[product].emplace(key, sectionOf(resource));
}

} // namespace

void addFullProducts(const std::vector<std::u16string>& languages, ProductNames& names) {
    for (const std::u16string& language : languages) {
        const CurrentLanguage current(language);
        addProductsOf(DocResourceParser::getReferenceRoots()->referenceApiFolder, names);
        addProductsOf(*DocResourceParser::getSupportPackageRoot(), names);
    }
}

LanguageRun runLanguage(const std::u16string& language, ProductNames& names,
                        const std::function<void()>& step) {
    const CurrentLanguage current(language);
    LanguageRun run{language, {}, {}, {}};
    const LoadAccount::Scope scope(run.account);
    const auto lookups = DocResourceParser::getResourceLookupFiles();
    addLookups(lookups.installed, /*isInstalled=*/true, run);
    addLookups(lookups.notInstalled, /*isInstalled=*/false, run);
    step();
    for (const auto& [key, section] : run.lookups)
        names.insert(section.product);
    for (const std::u16string& product : names) {
        retrieveProduct(product, run);
        step();
    }
    return run;
}

} // namespace refdoc::check
