#include "tools/refdoc/lookup/LookupCommand.hpp"

#include "docparser/DocResourceParser.hpp"
#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/cli/Options.hpp"
#include "tools/refdoc/json/RecordLines.hpp"
#include "tools/refdoc/lookup/EmptyIndex.hpp"
#include "tools/refdoc/lookup/EntryCells.hpp"
#include "tools/refdoc/session/LookupIndex.hpp"
#include "tools/refdoc/session/Selection.hpp"
#include "tools/refdoc/suggest/NearNames.hpp"
#include "tools/refdoc/suggest/Suggestions.hpp"
#include "tools/refdoc/terminal/DisplayText.hpp"
#include "tools/refdoc/terminal/Page.hpp"
#include "tools/refdoc/terminal/Words.hpp"

#include <boost/json/monotonic_resource.hpp>
#include <fmt/format.h>

namespace refdoc {

using reference::docparser::DocResourceParser;
using reference::property::RefItemLookup;

namespace {

void addSections(Table& table, const LookupMap& sections, bool isInstalled,
                 const EnglishEntries& english, bool withLinks) {
    for (const auto& [key, resource] : sections) {
        std::vector<Cell> heading{{resource.header.getProductName(), Paint::Heading},
                                  {key, Paint::Dim}};
        if (!isInstalled)
            heading.push_back({u"not installed", Paint::Dim});
        const bool isEnglish = english.hasSection(key);
        if (isEnglish)
            heading.push_back({u"English", Paint::Dim});
        table.addHeading(std::move(heading));
        for (const auto& [name, entries] : resource.items) {
            for (const RefItemLookup& entry : entries)
                table.addRow(entryCells(entry, resource.header.getProduct(),
                                        {.withLink = withLinks,
                                         .isEnglish = !isEnglish && english.hasEntry(key, entry)}));
        }
    }
}

std::string pageOf(const LookupIndex& index, const PageSetup& setup, bool withLinks) {
    Table table;
    addSections(table, index.entries.installed, true, index.english, withLinks);
    addSections(table, index.entries.notInstalled, false, index.english, withLinks);
    Page page(setup);
    page.records(table);
    return page.take();
}

std::string documentOf(const LookupResults& results) {
    boost::json::monotonic_resource pool;
    return toIndentedJson(reference::json::toJson(results, &pool));
}

std::string linesOf(const LookupResults& results) {
    const std::u16string language = DocResourceParser::ParsingTools::getCurrentLocale();
    return recordLines(results.installed, language, [](const auto&) { return true; }) +
           recordLines(results.notInstalled, language, [](const auto&) { return false; });
}

std::string plainLinesOf(const LookupResults& results) {
    std::string lines;
    const auto add = [&](const LookupMap& sections, bool isInstalled) {
        for (const auto& [key, resource] : sections) {
            for (const auto& [name, entries] : resource.items) {
                for (const RefItemLookup& entry : entries)
                    lines += tabSeparatedLine(
                        plainFields(entry, key, resource.header.getProduct(), isInstalled));
            }
        }
    };
    add(results.installed, true);
    add(results.notInstalled, false);
    return lines;
}

std::string outputOf(const Options& options, const LookupIndex& index, const PageSetup& setup) {
    const LookupResults& results = index.entries;
    switch (options.format) {
    case OutputFormat::Json: return documentOf(results);
    case OutputFormat::JsonLines: return linesOf(results);
    case OutputFormat::Plain: return plainLinesOf(results);
    case OutputFormat::Text: break;
    }
    return pageOf(index, setup, /*withLinks=*/!options.arguments.empty());
}

Answer runLookup(const Options& options, const PageSetup& setup) {
    LookupIndex index = readLookupIndex();
    LookupResults& results = index.entries;
    Answer answer;
    if (!options.arguments.empty()) {
        answer.complaints = complaintsAboutNames(options.arguments, results);
        if (!answer.complaints.empty())
            answer.status = ExitStatus::Negative;
        keepOnly(options.arguments, results.installed);
        keepOnly(options.arguments, results.notInstalled);
    } else if (results == LookupResults{} && options.format == OutputFormat::Text) {
        answer.complaints.push_back(emptyIndexReason());
    }
    answer.output = outputOf(options, index, setup);
    return answer;
}

} // namespace

std::vector<std::u16string_view> namesOf(const LookupResults& results) {
    std::vector<std::u16string_view> names;
    for (const LookupMap* sections : {&results.installed, &results.notInstalled}) {
        for (const auto& [key, resource] : *sections) {
            for (const auto& [name, entries] : resource.items)
                names.push_back(name);
        }
    }
    return names;
}

std::vector<std::string> complaintsAboutNames(const std::vector<std::u16string>& names,
                                              const LookupResults& results) {
    std::set<std::u16string> found = keysIn(names, results.installed);
    found.merge(keysIn(names, results.notInstalled));
    std::vector<std::string> complaints;
    const std::vector<std::u16string_view> known = namesOf(results);
    for (const std::u16string& name : missingKeys(names, std::move(found)))
        complaints.push_back(
            fmt::format("no entry {} in the lookup index{}", quoted(name),
                        didYouMean(nearNames(name, known),
                                   known.empty() ? kOtherFolders : "; see refdoc lookup")));
    return complaints;
}

CommandEntry lookupCommand() {
    return {
        .name = "lookup",
        .help = "Print the lookup index of all products",
        .description =
            "Each record is one line, installed products first. With NAMEs, only the records of "
            "these names are printed, with their links. A terminal shows as much of the purposes "
            "as "
            "fits and folds longer records. Records that the translation lacks are marked "
            "\"English\".",
        .arguments = {{.name = "NAME",
                       .type = ValueType::LookupName,
                       .isList = true,
                       .help = "Print only the entries with these names"}},
        .options = {plainOption("Print one entry per line, with tabs between name, type, purpose, "
                                "product, section, link, yes or no for installed, and yes or no "
                                "for deprecated")},
        .negative = "One of the names does not exist.",
        .examples = {{"refdoc --install samples lookup smooth",
                      "List where the name smooth is documented."},
                     {"refdoc --install samples --jsonl lookup",
                      "Print the whole index for programs, one record per line."}},
        .run = runLookup,
    };
}

} // namespace refdoc
