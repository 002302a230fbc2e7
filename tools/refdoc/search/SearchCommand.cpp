#include "tools/refdoc/search/SearchCommand.hpp"

#include "docparser/Queries.hpp"
#include "docparser/json/RecordFields.hpp"
#include "docparser/json/ToJson.hpp"
#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/cli/Number.hpp"
#include "tools/refdoc/cli/Options.hpp"
#include "tools/refdoc/json/JsonText.hpp"
#include "tools/refdoc/lookup/EmptyIndex.hpp"
#include "tools/refdoc/lookup/EntryCells.hpp"
#include "tools/refdoc/search/CaseFolding.hpp"
#include "tools/refdoc/search/Ranking.hpp"
#include "tools/refdoc/session/LookupIndex.hpp"
#include "tools/refdoc/terminal/DisplayText.hpp"
#include "tools/refdoc/terminal/Page.hpp"
#include "tools/refdoc/terminal/Words.hpp"

#include <boost/algorithm/string/join.hpp>
#include <boost/json/value.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <limits>
#include <tuple>

namespace refdoc {

using fl::i18n::to_string;
using fl::i18n::to_ustring;
using reference::docparser::forEachEntry;
using reference::docparser::IndexEntry;
using reference::json::toJson;
using reference::property::RefEntityType;
using reference::property::RefItemLookup;

namespace {

constexpr std::size_t kDefaultLimit = 20;
constexpr std::size_t kNoLimit = std::numeric_limits<std::size_t>::max();

// A found entry. The pointers point into the lookup index.
struct Result {
    Rank rank;
    const std::u16string* section;
    const std::u16string* product;
    const RefItemLookup* entry;
    std::size_t position; // among the matches, in the order of the index

    bool isInstalled() const { return !rank.isNotInstalled; }
};

struct Results {
    std::vector<Result> best; // at most as many as the limit, in the order of their ranks
    std::size_t total;        // of all matches
};

// What is searched for, and where.
class Search {
public:
    explicit Search(const Options& options)
        : foldsCase_(!options.values.has("--case-sensitive")),
          searchesName_(options.values.has("--name")),
          searchesPurpose_(options.values.has("--purpose")),
          searchesHref_(!searchesName_ && !searchesPurpose_),
          type_(options.values.value("--type")),
          texts_(options.arguments) {
        if (searchesHref_)
            searchesName_ = searchesPurpose_ = true;
        for (std::u16string& text : texts_)
            text = std::u16string(comparable(text, name_));
    }

    std::optional<Rank> rank(const RefItemLookup& entry, bool isInstalled) {
        if (type_ && RefEntityType::enumToString(entry.getEntityType()) != *type_)
            return std::nullopt;
        SearchedRecord record{.isInstalled = isInstalled, .isDeprecated = entry.getDeprecated()};
        if (searchesName_)
            record.name = comparable(entry.getName(), name_);
        if (searchesHref_)
            record.href = comparable(entry.getHref(), href_);
        if (searchesPurpose_)
            record.purpose = comparable(entry.getRefPurpose(), purpose_);
        return rankOf(texts_, record);
    }

    // Highlights the matches in the cells of entryCells() that are searched.
    void highlight(std::vector<Cell>& cells, const LineSplitter& splitter) const {
        cells[0].splitter = searchesName_ ? &splitter : nullptr;
        cells[2].splitter = searchesPurpose_ ? &splitter : nullptr;
        cells[4].splitter = searchesHref_ ? &splitter : nullptr;
    }

    std::vector<LinePart> split(std::string_view line) const {
        const std::u16string string = to_ustring(std::string(line));
        std::vector<LinePart> parts;
        std::size_t end = 0;
        for (const auto& [start, size] : matchesIn(string, texts_, foldsCase_)) {
            parts.push_back({to_string(string.substr(end, start - end)), false});
            parts.push_back({to_string(string.substr(start, size)), true});
            end = start + size;
        }
        parts.push_back({to_string(string.substr(end)), false});
        return parts;
    }

private:
    // The buffers keep their memory from one entry to the next.
    std::u16string_view comparable(const std::u16string& string, std::u16string& buffer) const {
        if (!foldsCase_)
            return string;
        foldCase(string, buffer);
        return buffer;
    }

    bool foldsCase_;
    bool searchesName_;
    bool searchesPurpose_;
    bool searchesHref_; // only without an option that narrows the search
    std::optional<std::string> type_;
    std::u16string name_;
    std::u16string href_;
    std::u16string purpose_;
    std::vector<std::u16string> texts_;
};

std::vector<Result> allMatches(Search& search, const LookupResults& index) {
    std::vector<Result> matches;
    forEachEntry(index, [&](const IndexEntry& entry) {
        if (const std::optional<Rank> rank = search.rank(*entry.record, entry.isInstalled))
            matches.push_back(
                {*rank, entry.section, &entry.header->getProduct(), entry.record, matches.size()});
    });
    return matches;
}

Results bestMatches(Search& search, const LookupResults& index, std::size_t limit) {
    Results results{allMatches(search, index), 0};
    results.total = results.best.size();
    const std::size_t kept = std::min(limit, results.total);
    const auto end = results.best.begin() + static_cast<std::ptrdiff_t>(kept);
    std::ranges::partial_sort(results.best, end, {}, [](const Result& result) {
        return std::tuple<const Rank&, const std::u16string&, std::size_t>(
            result.rank, result.entry->getName(), result.position);
    });
    results.best.erase(end, results.best.end());
    return results;
}

// The limit, or absent if the value is not a number.
std::optional<std::size_t> limitOf(const OptionValues& values) {
    const std::optional<std::string> value = values.value("--limit");
    const std::optional<std::size_t> limit = value ? numberFrom(*value) : kDefaultLimit;
    return limit == 0U ? kNoLimit : limit;
}

std::string_view wordOf(Match match) {
    switch (match) {
    case Match::Exact: return "exact";
    case Match::Prefix: return "prefix";
    case Match::Word: return "word";
    case Match::Substring: return "substring";
    case Match::Near: break;
    }
    return "near";
}

boost::json::value elementOf(const Result& result) {
    return {{"match", wordOf(result.rank.match)}, {"name", toJson(result.entry->getName())},
            {"section", toJson(*result.section)}, {"product", toJson(*result.product)},
            {"installed", result.isInstalled()},  {"record", toJson(*result.entry)}};
}

std::string queryOf(const Options& options) {
    return to_string(boost::join(options.arguments, u" "));
}

std::string documentOf(const Options& options, const Results& results) {
    boost::json::array elements;
    for (const Result& result : results.best)
        elements.push_back(elementOf(result));
    return toIndentedJson(
        {{"query", queryOf(options)}, {"total", results.total}, {"results", std::move(elements)}});
}

std::string jsonLinesOf(const Results& results) {
    std::string lines;
    for (const Result& result : results.best)
        lines += toJsonLine(elementOf(result));
    return lines;
}

std::string plainLinesOf(const Results& results) {
    std::string lines;
    for (const Result& result : results.best) {
        std::vector<std::u16string> fields =
            plainFields(*result.entry, *result.section, *result.product, result.isInstalled());
        fields.push_back(to_ustring(std::string(wordOf(result.rank.match))));
        lines += tabSeparatedLine(fields);
    }
    return lines;
}

std::string pageOf(const Search& search, const Results& results, const EnglishEntries& english,
                   const PageSetup& setup) {
    const LineSplitter splitter = [&](std::string_view line) { return search.split(line); };
    std::vector<std::vector<Cell>> installed;
    std::vector<std::vector<Cell>> notInstalled;
    for (const Result& result : results.best) {
        std::vector<Cell> cells =
            entryCells(*result.entry, *result.product,
                       {.isEnglish = english.hasEntry(*result.section, *result.entry)});
        search.highlight(cells, splitter);
        (result.isInstalled() ? installed : notInstalled).push_back(std::move(cells));
    }
    Page page(setup);
    page.records(groupedEntries(std::move(installed), std::move(notInstalled)));
    return page.take();
}

std::string outputOf(const Options& options, const Search& search, const Results& results,
                     const EnglishEntries& english, const PageSetup& setup) {
    switch (options.format) {
    case OutputFormat::Json: return documentOf(options, results);
    case OutputFormat::JsonLines: return jsonLinesOf(results);
    case OutputFormat::Plain: return plainLinesOf(results);
    case OutputFormat::Text: break;
    }
    return pageOf(search, results, english, setup);
}

// Only the JSON document has the number of all matches.
void addRemainder(Answer& answer, const Results& results, OutputFormat format) {
    const std::size_t more = results.total - results.best.size();
    if (more == 0 || format == OutputFormat::Json)
        return;
    const std::string remainder = fmt::format("and {} more; --limit 0 prints all", more);
    if (format == OutputFormat::Text)
        answer.output += remainder + '\n';
    else
        answer.complaints.push_back(remainder);
}

Answer runSearch(const Options& options, const PageSetup& setup) {
    const std::optional<std::size_t> limit = limitOf(options.values);
    if (!limit)
        return {.status = ExitStatus::WrongUsage,
                .complaints = {fmt::format("--limit must be a number, not \"{}\"; see refdoc "
                                           "search --help",
                                           *options.values.value("--limit"))}};
    const auto [index, english] = readLookupIndex();
    Search search(options);
    const Results results = bestMatches(search, index, *limit);
    Answer answer{.output = outputOf(options, search, results, english, setup)};
    addRemainder(answer, results, options.format);
    if (results.total == 0) {
        answer.status = ExitStatus::Negative;
        answer.complaints.push_back(
            index == LookupResults{}
                ? emptyIndexReason()
                : fmt::format("no entry of the lookup index matches \"{}\"; see refdoc lookup",
                              queryOf(options)));
    }
    return answer;
}

std::vector<Choice> typeChoices() {
    std::vector<Choice> choices;
    for (int type = RefEntityType::Function; type <= RefEntityType::Keyword; ++type)
        choices.push_back({RefEntityType::enumToString(static_cast<RefEntityType::Value>(type))});
    return choices;
}

std::vector<OptionEntry> searchOptions() {
    return {
        {.name = "--name", .help = "Search only the names; with --purpose, both"},
        {.name = "--purpose", .help = "Search only the purposes; with --name, both"},
        {"--type", "TYPE", ValueType::Choice,
         "Search only entries of this type, such as function or component", typeChoices()},
        {.name = "--case-sensitive", .help = "Distinguish upper and lower case"},
        {"--limit", "N", ValueType::Name, "The most results to print, 20 by default; 0 prints all"},
        plainOption("Print one result per line, with tabs between the fields of lookup --plain and "
                    "the way it matched"),
    };
}

} // namespace

CommandEntry searchCommand() {
    return {
        .name = "search",
        .help = "Search the names, links and purposes of the lookup index",
        .description =
            "An entry is found if every TEXT matches its name, link or purpose. Exact matches come "
            "first, then those at the start, whole words, other parts, and names with one or two "
            "typing errors. Among equal matches, those of installed products come first and "
            "deprecated entries last; the text output lists products that are not installed "
            "separately. Letter case is ignored.",
        .arguments = {{.name = "TEXT",
                       .type = ValueType::LookupName,
                       .isRequired = true,
                       .isList = true,
                       .help = "What to search for"}},
        .options = searchOptions(),
        .negative = "Nothing matches.",
        .examples = {{"refdoc --install samples search moving window",
                      "Find what has both words in its name, link or purpose."}},
        .run = runSearch,
    };
}

} // namespace refdoc
