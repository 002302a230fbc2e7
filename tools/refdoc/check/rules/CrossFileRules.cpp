#include "tools/refdoc/check/rules/CrossFileRules.hpp"

#include "docparser/DocResourceParser.hpp"
#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/session/HelpLinks.hpp"

#include <boost/json/parse.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <unordered_set>
#include <utility>

namespace refdoc::check {

namespace json = boost::json;

using fl::i18n::to_string;
using reference::docparser::DocResourceParser;
using reference::docparser::FileRole;

namespace {

constexpr Rule kLookupWithoutPage{
    "lookup-without-page", Severity::Warning, "no item has the link of a lookup record",
    "The full resources of the product have no item with the link of the record, so the record "
    "leads nowhere. Correct the link or add the item.",
    Relation::FollowsFromResources};

constexpr Rule kPageWithoutLookup{
    "page-without-lookup", Severity::Note, "no lookup record leads to the item",
    "The item documents names, but no record of the lookup index has its link, so the item can't "
    "be found by name. Add a lookup record. Items without entities need none.",
    Relation::FollowsFromLookups};

constexpr Rule kBrokenLink{
    "broken-link", Severity::Warning, "a see-also link leads to no item",
    "No product has an item or a lookup record with this link. Links are relative to the help "
    "location of the product. Fragments (`#...`) and links with a scheme, such as `https:`, are "
    "not checked. Correct or remove the link.",
    Relation::FollowsFromResources};

constexpr Rule kLookupWithoutResources{
    "lookup-without-resources", Severity::Warning,
    "the product of a lookup file has no full resources",
    "The index has records of the product, but there is no usable full resource file for them, or "
    "none with a section that has the same key. If the installed products are known, other "
    "products are not checked: their full resources are installed with them. Add the full "
    "resources or correct the section's key.",
    Relation::FollowsFromResources};

constexpr Rule kInstalledWithoutDocumentation{
    "installed-without-documentation", Severity::Warning,
    "an installed product has neither lookup records nor full resources",
    "No section has the short name of the product, or the name of the support package, as its key. "
    "Keys are case-sensitive. Correct the key or the manifest.",
    Relation::FollowsFromAny};

bool isAnythingInstalled() {
    return !DocResourceParser::getTopLevelProducts()->empty() ||
           !DocResourceParser::getHardwareSupportPackages()->empty();
}

bool hasPage(const FullSection& section, const std::u16string& href) {
    return std::ranges::binary_search(section.pages, href, {}, &Page::href);
}

// Finds what does not fit together in one language.
class CrossFileCheck {
public:
    CrossFileCheck(const LanguageContents& contents, PendingFindings& pending)
        : contents_(contents), pending_(pending) {}

    void run() {
        const bool isInstallationKnown = isAnythingInstalled();
        for (const auto& [key, section] : contents_.lookups) {
            if (section.isInstalled || !isInstallationKnown)
                checkLookup(key, section);
        }
        forEachFullSection([&](const auto& key, const auto& section) { checkPages(key, section); });
        forEachFullSection([&](const auto& key, const auto& section) { checkLinks(key, section); });
    }

private:
    using Reporter = PendingFindings::Reporter;

    // Calls use(key, section) for every section of full resources.
    template <class Use>
    void forEachFullSection(Use use) const {
        for (const auto& [name, product] : contents_.products) {
            for (const auto& [key, section] : product->sections)
                use(key, section);
        }
    }

    // Calls use(name, record) for every record of a section of the index.
    template <class Use>
    static void forEachRecord(const LookupSection& section, Use use) {
        for (const auto& [name, records] : section.resource.items) {
            for (const auto& record : records)
                use(name, record);
        }
    }

    // Calls use(helpLocation, href) for every record and item.
    template <class Use>
    void forEachTarget(Use use) const {
        for (const auto& [key, section] : contents_.lookups)
            forEachRecord(section,
                          [&, &header = section.resource.header](const auto&, const auto& record) {
                              use(header.getHelpLocation(), record.getHref());
                          });
        forEachFullSection([&](const auto&, const FullSection& section) {
            for (const Page& page : section.pages)
                use(section.helpLocation, page.href);
        });
    }

    bool isTarget(std::u16string_view helpLocation, const std::u16string& link) {
        if (!targets_) {
            targets_.emplace();
            forEachTarget(
                [&](std::u16string_view, std::u16string_view href) { targets_->insert(href); });
        }
        if (targets_->contains(link))
            return true;
        if (!locatedTargets_) {
            locatedTargets_.emplace();
            forEachTarget([&](std::u16string_view location, std::u16string_view href) {
                locatedTargets_->insert(resolvedLink(location, href));
            });
        }
        return locatedTargets_->contains(resolvedLink(helpLocation, link));
    }

    void checkLookup(const std::u16string& key, const LookupSection& lookup) {
        const std::u16string& name = lookup.resource.header.getProduct();
        const auto product = contents_.products.find(name);
        if (product == contents_.products.end())
            return addToSection(
                kLookupWithoutResources, FileRole::Lookup, key,
                fmt::format("the product \"{}\" has no full resources", to_string(name)));
        const auto& sections = product->second->sections;
        const auto full = sections.find(key);
        if (full == sections.end())
            return addToSection(
                kLookupWithoutResources, FileRole::Lookup, key,
                fmt::format("the full resources of the product \"{}\" have no section \"{}\"",
                            to_string(name), to_string(key)));
        checkRecords(key, lookup, full->second);
    }

    void checkRecords(const std::u16string& key, const LookupSection& lookup,
                      const FullSection& full) {
        const std::string product = to_string(lookup.resource.header.getProduct());
        // For so many records, a set is several times as fast as hasPage: links begin alike.
        std::unordered_set<std::u16string_view> pages;
        for (const Page& page : full.pages)
            pages.insert(page.href);
        forEachRecord(lookup, [&](const std::u16string& name, const auto& record) {
            const std::u16string& href = record.getHref();
            if (!pages.contains(href))
                pending_.add(
                    kLookupWithoutPage, FileRole::Lookup, key, {.name = name, .href = href},
                    Reporter::EveryFile,
                    fmt::format(
                        "no item of the product \"{}\" has the link \"{}\" of the record \"{}\"",
                        product, to_string(href), to_string(name)),
                    to_string(key));
        });
    }

    void checkPages(const std::u16string& key, const FullSection& section) {
        const auto lookup = contents_.lookups.find(key);
        if (lookup == contents_.lookups.end()) {
            if (std::ranges::any_of(section.pages, &Page::hasNames))
                addToSection(kPageWithoutLookup, FileRole::Resources, key,
                             fmt::format("no lookup file has the section \"{}\": its items can't "
                                         "be found by name",
                                         to_string(key)));
            return;
        }
        std::unordered_set<std::u16string_view> hrefs;
        forEachRecord(lookup->second,
                      [&](const auto&, const auto& record) { hrefs.insert(record.getHref()); });
        for (const Page& page : section.pages) {
            if (page.hasNames && !hrefs.contains(page.href))
                pending_.add(
                    kPageWithoutLookup, FileRole::Resources, key, {.href = page.href},
                    Reporter::FirstFile,
                    fmt::format(
                        "no lookup record has the link \"{}\": the item can't be found by name",
                        to_string(page.href)),
                    to_string(key));
        }
    }

    void checkLinks(const std::u16string& key, const FullSection& section) {
        for (const std::u16string& link : section.links) {
            if (!hasPage(section, link) && !leavesDocumentation(link) &&
                !isTarget(section.helpLocation, link))
                pending_.add(
                    kBrokenLink, FileRole::Resources, key, {.link = link}, Reporter::EveryFile,
                    fmt::format("no product has an item with the link \"{}\"", to_string(link)));
        }
    }

    void addToSection(const Rule& rule, FileRole role, const std::u16string& key,
                      std::string message) {
        pending_.add(rule, role, key, {}, Reporter::FirstFile, std::move(message));
    }

    const LanguageContents& contents_;
    PendingFindings& pending_;
    // All links as they are written; needed only for a link that its own section does not have.
    std::optional<std::unordered_set<std::u16string_view>> targets_;
    // Links resolved against their help location; needed only for a link that is not in targets_.
    std::optional<std::unordered_set<std::u16string>> locatedTargets_;
};

// The manifest, in which findings about installed names are located.
class InstalledNames {
public:
    InstalledNames(const SourceFile& manifest, std::string_view text, Findings& findings)
        : manifest_(manifest),
          text_(text),
          document_(text.empty() ? json::object() : json::parse(text)),
          findings_(findings) {}

    // \param list  the key of a list in the manifest
    // \param key   the key of the name in an element of the list; empty if the elements are names
    void addUndocumented(std::string_view what, const std::string& name, std::string_view list,
                         std::string_view key) {
        Location location{.pointer = pointerTo(name, list, key)};
        resolveLocations(text_, document_, {&location});
        const SourceFile file =
            location.pointer ? manifest_
                             : SourceFile{.path = DocResourceParser::getReferenceRoots()->root};
        findings_[file].push_back(
            {.rule = &kInstalledWithoutDocumentation,
             .location = std::move(location),
             .message = fmt::format("the installed {} \"{}\" has neither lookup records nor full "
                                    "resources",
                                    what, name),
             .identity = name});
    }

private:
    std::optional<std::string> pointerTo(std::string_view name, std::string_view list,
                                         std::string_view key) const {
        const json::value* elements = document_.as_object().if_contains(list);
        std::size_t index = 0;
        for (const json::value& element : elements ? elements->as_array() : json::array()) {
            if ((key.empty() ? element : element.at(key)).as_string() == name)
                return fmt::format("/{}/{}{}{}", list, index, key.empty() ? "" : "/", key);
            ++index;
        }
        return std::nullopt;
    }

    const SourceFile& manifest_;
    std::string_view text_;
    json::value document_;
    Findings& findings_;
};

} // namespace

std::span<const Rule* const> crossFileRules() {
    static constexpr const Rule* kRules[] = {&kLookupWithoutPage, &kPageWithoutLookup, &kBrokenLink,
                                             &kLookupWithoutResources,
                                             &kInstalledWithoutDocumentation};
    return kRules;
}

void addCrossFileFindings(const LanguageContents& contents, PendingFindings& pending) {
    CrossFileCheck(contents, pending).run();
}

void addSectionKeys(const LanguageContents& contents, std::set<std::u16string>& keys) {
    for (const auto& [key, section] : contents.lookups)
        keys.insert(key);
    for (const auto& [name, product] : contents.products) {
        for (const auto& [key, section] : product->sections)
            keys.insert(key);
    }
}

void addUndocumented(const std::set<std::u16string>& keys, const SourceFile& manifest,
                     std::string_view text, Findings& findings) {
    InstalledNames names(manifest, text, findings);
    const auto installed = DocResourceParser::getTopLevelProducts();
    std::set<std::string> products;
    for (const auto& product : *installed)
        products.insert(product->getShortName());
    for (const std::string& name : products) {
        if (!keys.contains(fl::i18n::to_ustring(name)))
            names.addUndocumented("product", name, "topLevelProducts", "shortName");
    }
    const auto packages = DocResourceParser::getHardwareSupportPackages();
    for (const std::u16string& package : *packages) {
        if (!keys.contains(package))
            names.addUndocumented("support package", to_string(package), "hardwareSupportPackages",
                                  "");
    }
}

} // namespace refdoc::check
