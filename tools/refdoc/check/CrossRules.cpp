#include "tools/refdoc/check/CrossRules.hpp"

#include "docparser/DocResourceParser.hpp"
#include "platform/i18n/Converter.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <unordered_set>
#include <utility>

namespace refdoc::check {

namespace json = boost::json;

using fl::i18n::to_string;
using reference::docparser::DocResourceParser;

namespace {

// Appends a part of a path; ".." removes the last one instead.
void addPart(std::u16string_view part, std::u16string& path) {
    if (part == u".." && !path.empty()) {
        const std::size_t last = path.rfind(u'/');
        path.erase(last == path.npos ? 0 : last);
    } else if (!part.empty() && part != u".") {
        path.append(path.empty() ? u"" : u"/").append(part);
    }
}

// The path without "." and ".." and what follows "#".
std::u16string normalized(std::u16string_view location, std::u16string_view link) {
    std::u16string result;
    for (const std::u16string_view path : {location, link.substr(0, link.find(u'#'))}) {
        for (std::size_t start = 0; start <= path.size();) {
            const std::size_t end = std::min(path.find(u'/', start), path.size());
            addPart(path.substr(start, end - start), result);
            start = end + 1;
        }
    }
    return result;
}

// "https://...", "mailto:...", "//host/...": not a page of the documentation.
bool leavesDocumentation(std::u16string_view link) {
    const std::size_t end = link.find_first_of(u":/#");
    return link.empty() || link.starts_with(u"//") || link.starts_with(u'#') ||
           (end != link.npos && link[end] == u':');
}

bool isAnythingInstalled() {
    return !DocResourceParser::getTopLevelProducts()->empty() ||
           !DocResourceParser::getHardwareSupportPackages()->empty();
}

class Asking {
public:
    Asking(const LanguageRun& run, Questions& questions) : run_(run), questions_(questions) {}

    void askAll() {
        const bool isInstallationKnown = isAnythingInstalled();
        for (const auto& [key, section] : run_.lookups) {
            if (section.isInstalled || !isInstallationKnown)
                askAboutLookup(key, section);
        }
        for (const auto& [product, sections] : run_.products) {
            for (const auto& [key, section] : sections)
                askAboutPages(key, section);
        }
        forEachTarget(
            [&](std::u16string_view, std::u16string_view href) { targets_.insert(href); });
        for (const auto& [product, sections] : run_.products) {
            for (const auto& [key, section] : sections)
                askAboutLinks(key, section);
        }
    }

private:
    // Calls use(helpLocation, href) for every record and item.
    template <class Use>
    void forEachTarget(Use use) const {
        for (const auto& [key, section] : run_.lookups) {
            for (const LookupRecord& record : section.records)
                use(section.helpLocation, record.href);
        }
        for (const auto& [product, sections] : run_.products) {
            for (const auto& [key, section] : sections) {
                for (const Page& page : section.pages)
                    use(section.helpLocation, page.href);
            }
        }
    }

    bool isTarget(std::u16string_view helpLocation, const std::u16string& link) {
        if (targets_.contains(link))
            return true;
        if (!locatedTargets_) {
            locatedTargets_.emplace();
            forEachTarget([&](std::u16string_view location, std::u16string_view href) {
                locatedTargets_->insert(normalized(location, href));
            });
        }
        return locatedTargets_->contains(normalized(helpLocation, link));
    }

    void askAboutLookup(const std::u16string& key, const LookupSection& section) {
        const auto product = run_.products.find(section.product);
        if (product == run_.products.end())
            return ask(FileRole::Lookup, key, RuleId::LookupWithoutResources, {}, [&] {
                return fmt::format("there are no full resources of the product \"{}\"",
                                   to_string(section.product));
            });
        const auto full = product->second.find(key);
        if (full == product->second.end())
            return ask(FileRole::Lookup, key, RuleId::LookupWithoutResources, {}, [&] {
                return fmt::format(
                    "the full resources of the product \"{}\" have no section \"{}\"",
                    to_string(section.product), to_string(key));
            });
        askAboutRecords(key, section, full->second);
    }

    void askAboutRecords(const std::u16string& key, const LookupSection& section,
                         const FullSection& full) {
        std::unordered_set<std::u16string_view> pages;
        for (const Page& page : full.pages)
            pages.insert(page.href);
        for (const LookupRecord& record : section.records) {
            if (!pages.contains(record.href))
                ask(FileRole::Lookup, key, RuleId::LookupWithoutPage,
                    {.name = record.name, .href = record.href}, [&] {
                        return fmt::format(
                            "no item of the product \"{}\" has the link \"{}\" of the "
                            "record \"{}\"",
                            to_string(section.product), to_string(record.href),
                            to_string(record.name));
                    });
        }
    }

    void askAboutPages(const std::u16string& key, const FullSection& section) {
        const auto lookup = run_.lookups.find(key);
        const bool hasNames = std::ranges::any_of(section.pages, &Page::hasNames);
        if (lookup == run_.lookups.end()) {
            if (hasNames)
                ask(FileRole::Resources, key, RuleId::PageWithoutLookup, {}, [&] {
                    return fmt::format(
                        "no lookup file has the section \"{}\": none of its items is "
                        "found by name",
                        to_string(key));
                });
            return;
        }
        std::unordered_set<std::u16string_view> hrefs;
        for (const LookupRecord& record : lookup->second.records)
            hrefs.insert(record.href);
        for (const Page& page : section.pages) {
            if (page.hasNames && !hrefs.contains(page.href))
                ask(FileRole::Resources, key, RuleId::PageWithoutLookup, {.href = page.href}, [&] {
                    return fmt::format(
                        "no lookup record has the link \"{}\": the item is not found "
                        "by name",
                        to_string(page.href));
                });
        }
    }

    void askAboutLinks(const std::u16string& key, const FullSection& section) {
        for (const std::u16string& link : section.links) {
            if (leavesDocumentation(link) || isTarget(section.helpLocation, link))
                continue;
            ask(FileRole::Resources, key, RuleId::BrokenLink, {.link = link}, [&] {
                return fmt::format("no product has an item with the link \"{}\"", to_string(link));
            });
        }
    }

    template <class MakeMessage>
    void ask(FileRole role, const std::u16string& key, RuleId rule, RecordKey record,
             MakeMessage makeMessage) {
        // What a file says wrong is wrong in each; what it lacks, one file stands for.
        const bool isAskedOnce = rule != RuleId::BrokenLink && rule != RuleId::LookupWithoutPage;
        questions_.askSection(role, key, rule, std::move(record), isAskedOnce, makeMessage);
    }

    const LanguageRun& run_;
    Questions& questions_;
    std::unordered_set<std::u16string_view> targets_; // links as they stand
    // Links below their help location; needed only for a link that is none of the others.
    std::optional<std::unordered_set<std::u16string>> locatedTargets_;
};

// Where the manifest names an installed product or package; what it does not name, the reference
// root stands for.
class InstalledNames {
public:
    explicit InstalledNames(const Manifest& manifest) : manifest_(manifest) {}

    Spot spotOf(std::string_view list, const std::string& key, std::string_view name) const {
        const json::object* content = manifest_.content.if_object();
        const json::value* found = content ? content->if_contains(list) : nullptr;
        std::size_t index = 0;
        for (const json::value& element : found ? found->as_array() : json::array()) {
            const json::value& text = key.empty() ? element : element.at(key);
            if (text.as_string() == name)
                return {.file = manifest_.file,
                        .pointer =
                            fmt::format("/{}/{}{}{}", list, index, key.empty() ? "" : "/", key)};
            ++index;
        }
        return {.file = {.path = DocResourceParser::getReferenceRoots()->root}};
    }

private:
    const Manifest& manifest_;
};

Finding undocumented(Spot spot, std::string_view what, const std::string& name) {
    return {.rule = RuleId::InstalledWithoutDocumentation,
            .spot = std::move(spot),
            .message = fmt::format("the installed {} \"{}\" has neither lookup records nor full "
                                   "resources",
                                   what, name),
            .identity = name};
}

} // namespace

void askAcrossFiles(const LanguageRun& run, Questions& questions) {
    Asking(run, questions).askAll();
}

void addSectionKeys(const LanguageRun& run, std::set<std::u16string>& keys) {
    for (const auto& [key, section] : run.lookups)
        keys.insert(key);
    for (const auto& [product, sections] : run.products) {
        for (const auto& [key, section] : sections)
            keys.insert(key);
    }
}

void addUndocumented(const std::set<std::u16string>& keys, const Manifest& manifest,
                     std::vector<Finding>& findings) {
    const InstalledNames names(manifest);
    const auto products = DocResourceParser::getTopLevelProducts();
    for (const auto& product : *products) {
        const std::string& name = product->getShortName();
        if (!keys.contains(fl::i18n::to_ustring(name)))
            findings.push_back(
                undocumented(names.spotOf("topLevelProducts", "shortName", name), "product", name));
    }
    const auto packages = DocResourceParser::getHardwareSupportPackages();
    for (const std::u16string& package : *packages) {
        const std::string name = to_string(package);
        if (!keys.contains(package))
            findings.push_back(undocumented(names.spotOf("hardwareSupportPackages", "", name),
                                            "support package", name));
    }
}

} // namespace refdoc::check
