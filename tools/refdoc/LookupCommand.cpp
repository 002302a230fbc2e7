#include "tools/refdoc/LookupCommand.hpp"

#include "docparser/DocResourceParser.hpp"
#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/JsonOutput.hpp"
#include "tools/refdoc/NearNames.hpp"
#include "tools/refdoc/Page.hpp"
#include "tools/refdoc/Selection.hpp"
#include "tools/refdoc/Words.hpp"

#include <fmt/format.h>

#include <string_view>

namespace refdoc {

using reference::docparser::DocResource;
using reference::docparser::DocResourceParser;
using reference::docparser::ParsingResults;
using reference::docparser::ResourceMap;
using reference::property::RefItemLookup;
using LookupMap = ResourceMap<RefItemLookup>;
using LookupResults = ParsingResults<LookupMap>;

namespace {

constexpr std::size_t kMostNearNames = 3;

std::vector<std::u16string_view> allNames(const LookupResults& results) {
    std::vector<std::u16string_view> names;
    for (const LookupMap* sections : {&results.installed, &results.notInstalled}) {
        for (const auto& [key, resource] : *sections) {
            for (const auto& [name, entries] : resource.items)
                names.push_back(name);
        }
    }
    return names;
}

std::string unknownName(const std::u16string& name, const std::vector<std::u16string>& near) {
    std::string complaint = fmt::format("no entry {} in the lookup index", quoted(name));
    for (const std::u16string& candidate : near)
        complaint += (&candidate == &near.front() ? "; near names: " : ", ") + quoted(candidate);
    return complaint;
}

std::vector<std::string> complaintsAbout(const std::vector<std::u16string>& unknownNames,
                                         const std::vector<std::u16string_view>& known) {
    std::vector<std::string> complaints;
    for (const std::u16string& name : unknownNames)
        complaints.push_back(unknownName(name, nearNames(name, known, kMostNearNames)));
    return complaints;
}

// The names that no section has, before the sections lose what was not asked for.
std::vector<std::u16string> unknownNamesIn(const LookupResults& results,
                                           const std::vector<std::u16string>& names) {
    std::set<std::u16string> found;
    for (const std::u16string& name : names) {
        for (const LookupMap* sections : {&results.installed, &results.notInstalled}) {
            for (const auto& [key, resource] : *sections) {
                if (resource.items.contains(name))
                    found.insert(name);
            }
        }
    }
    return missingKeys(names, std::move(found));
}

void addEntry(Table& table, const RefItemLookup& entry, const std::u16string& product,
              bool isInstalled, bool withLink) {
    std::u16string marks = entry.getDeprecated() ? u"deprecated" : u"";
    if (!isInstalled)
        marks += marks.empty() ? u"not installed" : u", not installed";
    table.addRow({{entry.getName(), entry.getDeprecated() ? Paint::Caution : Paint::Plain},
                  {kindText(entry.getEntityType(), entry.getFunctionType())},
                  {entry.getRefPurpose()},
                  {product},
                  {withLink ? entry.getHref() : std::u16string(), Paint::Dim},
                  {marks, entry.getDeprecated() ? Paint::Caution : Paint::Dim}});
}

void addSections(Table& table, const LookupMap& sections, bool isInstalled, bool withLink) {
    for (const auto& [key, resource] : sections) {
        std::vector<Cell> heading{{resource.header.getProductName(), Paint::Heading},
                                  {key, Paint::Dim}};
        if (!isInstalled)
            heading.push_back({u"not installed", Paint::Dim});
        table.addHeading(std::move(heading));
        for (const auto& [name, entries] : resource.items) {
            for (const RefItemLookup& entry : entries)
                addEntry(table, entry, resource.header.getProduct(), isInstalled, withLink);
        }
    }
}

std::string pageOf(const LookupResults& results, const PageSetup& setup, bool withLinks) {
    Table table;
    addSections(table, results.installed, true, withLinks);
    addSections(table, results.notInstalled, false, withLinks);
    Page page(setup);
    page.index(table);
    return page.take();
}

} // namespace

Answer runLookup(const Options& options, const PageSetup& setup) {
    LookupResults results = DocResourceParser::getResourceLookupFiles();
    Answer answer;
    if (!options.names.empty()) {
        const std::vector<std::u16string> unknown = unknownNamesIn(results, options.names);
        if (!unknown.empty()) {
            answer.status = ExitStatus::NotFound;
            answer.complaints = complaintsAbout(unknown, allNames(results));
        }
        std::set<std::u16string> found;
        keepOnly(options.names, results.installed, found);
        keepOnly(options.names, results.notInstalled, found);
    } else if (results == LookupResults{} && options.format == OutputFormat::Text) {
        // Nothing on standard output could also mean that the tool had nothing to say.
        answer.complaints.push_back(
            fmt::format("no lookup entries in {}",
                        fl::i18n::to_string(DocResourceParser::getReferenceRoots()->lookupFolder)));
    }
    answer.output = options.format == OutputFormat::Json
                        ? lookupDocument(results)
                        : pageOf(results, setup, /*withLinks=*/!options.names.empty());
    return answer;
}

} // namespace refdoc
