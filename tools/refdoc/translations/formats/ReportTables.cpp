#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/terminal/DisplayText.hpp"
#include "tools/refdoc/translations/formats/EntryWords.hpp"
#include "tools/refdoc/translations/formats/ReportFormats.hpp"

#include <boost/algorithm/string/replace.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <vector>

namespace refdoc::translations {

namespace {

using Fields = std::vector<std::string>;

// Calls use(product, its language report, "items" or "lookup", the comparison).
template <class Use>
void forEachComparison(const Report& report, const Use& use) {
    for (const ProductReport& product : report.products) {
        for (const LanguageReport& language : product.languages) {
            if (!language.items.isEmpty())
                use(product, language, std::string_view("items"), language.items);
            if (!language.lookup.isEmpty())
                use(product, language, std::string_view("lookup"), language.lookup);
        }
    }
}

std::string numberText(std::size_t number) {
    return std::to_string(number);
}

// Comma-separated values.

std::string csvField(const std::string& field) {
    if (field.find_first_of(",\"") == std::string::npos)
        return field;
    return '"' + boost::algorithm::replace_all_copy(field, "\"", "\"\"") + '"';
}

std::string csvLine(Fields fields) {
    std::ranges::transform(fields, fields.begin(), csvField);
    return fmt::format("{}\n", fmt::join(fields, ","));
}

std::string csvNumbers(const Report& report) {
    std::string lines = csvLine({"product", "language", "list", "english", "translated", "share",
                                 "missing", "orphaned", "identical", "outOfStep", "dropped"});
    forEachComparison(report, [&](const ProductReport& product, const LanguageReport& language,
                                  std::string_view list, const Comparison& comparison) {
        Counts counts;
        counts.add(comparison);
        Fields fields{
            visibleLine(product.product), visibleLine(language.language), std::string(list),
            numberText(counts.english),   numberText(counts.translated),  percentText(counts)};
        for (const Defect defect : kDefects)
            fields.push_back(numberText(counts.of(defect)));
        lines += csvLine(std::move(fields));
    });
    return lines;
}

std::string fieldsText(const Entry& entry) {
    return fmt::format("{}", fmt::join(entry.fields, " "));
}

Fields csvFieldsOf(const Entry& entry) {
    const Position position = entry.position.value_or(Position());
    const Replacement replacement = entry.replacement.value_or(Replacement());
    const auto& place = position.place;
    return {std::string(toWord(entry.defect)),
            visibleLine(entry.section),
            visibleLine(entry.name),
            visibleLine(entry.href),
            fieldsText(entry),
            visibleLine(replacement.name),
            visibleLine(replacement.href),
            visibleLine(position.path),
            visibleLine(position.entry),
            place ? numberText(place->line) : "",
            place ? numberText(place->column) : ""};
}

std::string csvEntries(const Report& report) {
    std::string lines =
        csvLine({"product", "language", "list", "class", "section", "name", "href", "fields",
                 "likelyName", "likelyHref", "path", "entry", "line", "column"});
    forEachComparison(report, [&](const ProductReport& product, const LanguageReport& language,
                                  std::string_view list, const Comparison& comparison) {
        for (const Entry& entry : comparison.entries) {
            Fields fields{visibleLine(product.product), visibleLine(language.language),
                          std::string(list)};
            std::ranges::move(csvFieldsOf(entry), std::back_inserter(fields));
            lines += csvLine(std::move(fields));
        }
    });
    return lines;
}

// Markdown.

std::size_t longestRun(std::string_view text, char character) {
    std::size_t longest = 0;
    std::size_t run = 0;
    for (const char each : text) {
        run = each == character ? run + 1 : 0;
        longest = std::max(longest, run);
    }
    return longest;
}

// Returns a string as code, in which nothing is markup; empty for an empty string. The fence is
// longer than any run of backticks within.
std::string codeOf(const std::u16string& text) {
    const std::string line = visibleLine(text);
    if (line.empty())
        return {};
    const std::string fence(longestRun(line, '`') + 1, '`');
    const bool needsSpaces = line.front() == '`' || line.back() == '`';
    const std::string space = needsSpaces ? " " : "";
    return fence + space + line + space + fence;
}

// In a table, the character between cells has to be escaped even in code.
std::string cellOf(const std::u16string& text) {
    return boost::algorithm::replace_all_copy(codeOf(text), "|", "\\|");
}

std::string markdownRow(const Fields& fields) {
    return fmt::format("| {} |\n", fmt::join(fields, " | "));
}

Fields numbersOf(const Counts& counts) {
    Fields fields{percentText(counts) + " %", numberText(counts.english)};
    for (const Defect defect : kDefects)
        fields.push_back(numberText(counts.of(defect)));
    return fields;
}

std::string tableHead(const Fields& names) {
    Fields titles = names;
    for (const char* title :
         {"translated", "English", "missing", "orphaned", "identical", "out of step", "dropped"})
        titles.emplace_back(title);
    Fields rules(names.size(), "---");
    rules.resize(titles.size(), "---:");
    return markdownRow(titles) + markdownRow(rules);
}

std::string row(Fields fields, const Counts& counts) {
    std::ranges::move(numbersOf(counts), std::back_inserter(fields));
    return markdownRow(fields);
}

std::string totalsTable(const Report& report) {
    std::string table = tableHead({"Language", "of"});
    const std::vector<Totals> totals = totalsOf(report);
    for (std::size_t index = 0; index < totals.size(); ++index) {
        const std::string language = cellOf(report.languages[index]);
        table += row({language, "items"}, totals[index].items);
        table += row({language, "lookup entries"}, totals[index].lookup);
    }
    return table;
}

std::string incompleteTable(const Report& report) {
    std::string rows;
    forEachComparison(report, [&](const ProductReport& product, const LanguageReport& language,
                                  std::string_view list, const Comparison& comparison) {
        if (comparison.entries.empty())
            return;
        Counts counts;
        counts.add(comparison);
        rows += row({cellOf(product.product), cellOf(language.language),
                     list == "items" ? "items" : "lookup entries"},
                    counts);
    });
    return rows.empty() ? "" : '\n' + tableHead({"Product", "Language", "of"}) + rows;
}

std::string markdownRemark(const Entry& entry) {
    if (entry.replacement) {
        const Replacement& replacement = *entry.replacement;
        return ", now probably " +
               codeOf(replacement.href == entry.href ? replacement.name : replacement.href);
    }
    const std::string fields = fl::i18n::to_string(remarkOn(entry));
    return fields.empty() ? "" : ": " + fields;
}

std::string markdownEntry(const Entry& entry) {
    const std::string name = entry.name.empty() ? "" : codeOf(entry.name) + ' ';
    const std::string position = codeOf(positionText(entry));
    return fmt::format("- {} {}{}{}{}\n", fl::i18n::to_string(titleOf(entry.defect)), name,
                       codeOf(entry.href), markdownRemark(entry),
                       position.empty() ? "" : ", " + position);
}

std::string markdownEntries(const Report& report) {
    std::string text;
    forEachComparison(report, [&](const ProductReport& product, const LanguageReport& language,
                                  std::string_view list, const Comparison& comparison) {
        if (comparison.entries.empty())
            return;
        text +=
            fmt::format("\n### {} {}, {}\n\n", codeOf(product.product), codeOf(language.language),
                        list == "items" ? "items" : "lookup entries");
        for (const Entry& entry : comparison.entries)
            text += markdownEntry(entry);
    });
    return text;
}

} // namespace

std::string toCsv(const Report& report, Depth depth) {
    return depth == Depth::Entries ? csvEntries(report) : csvNumbers(report);
}

std::string toMarkdown(const Report& report, Depth depth) {
    return "## Translations\n\n" + totalsTable(report) + incompleteTable(report) +
           (depth == Depth::Entries ? markdownEntries(report) : "");
}

} // namespace refdoc::translations
