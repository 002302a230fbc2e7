#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/terminal/Page.hpp"
#include "tools/refdoc/translations/formats/EntryWords.hpp"
#include "tools/refdoc/translations/formats/ReportFormats.hpp"

#include <fmt/format.h>

#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

namespace refdoc::translations {

using fl::i18n::to_ustring;

namespace {

constexpr std::size_t kBarLength = 10;

std::u16string numberText(std::size_t number) {
    return to_ustring(std::to_string(number));
}

// "########.. 83.3 %". Only a complete bar means that everything is translated.
std::u16string barOf(const Counts& counts) {
    const std::size_t filled = counts.share() * kBarLength / 1000;
    return to_ustring(fmt::format("{:#>{}}{:.>{}} {:>5} %", "", filled, "", kBarLength - filled,
                                  percentText(counts)));
}

Paint paintOf(const Counts& counts) {
    return counts.share() == 1000 ? Paint::Plain
           : counts.share() == 0  ? Paint::Alarm
                                  : Paint::Caution;
}

Table countsTable() {
    return Table({u"Product", u"Language", u"Translated", u"English", u"Missing", u"Orphaned",
                  u"Identical", u"Out of step", u"Dropped", u"Remark"});
}

void addRow(Table& table, Cell product, const std::u16string& language, const Counts& counts,
            bool isLookup, const std::u16string& remark = {}) {
    std::vector<Cell> cells{std::move(product),
                            {language},
                            {barOf(counts), paintOf(counts)},
                            {numberText(counts.english)}};
    for (const Defect defect : kDefects)
        cells.push_back(
            {defect == Defect::Dropped && !isLookup ? u"" : numberText(counts.of(defect))});
    cells.push_back({remark, Paint::Caution});
    table.addRow(std::move(cells));
}

// What a table is about: the items or the lookup records.
struct Subject {
    std::u16string_view title;
    Comparison LanguageReport::*comparison;
    Counts Totals::*totals;
    bool isLookup;
};

constexpr Subject kSubjects[] = {
    {u"Items", &LanguageReport::items, &Totals::items, /*isLookup=*/false},
    {u"Lookup entries", &LanguageReport::lookup, &Totals::lookup, /*isLookup=*/true}};

Table tableOf(const Report& report, const Subject& subject) {
    Table table = countsTable();
    for (const ProductReport& product : report.products) {
        for (const LanguageReport& language : product.languages) {
            const Comparison& comparison = language.*subject.comparison;
            if (comparison.isEmpty())
                continue;
            Counts counts;
            counts.add(comparison);
            const bool lacksEnglish = !subject.isLookup && !product.hasEnglish;
            addRow(table, {product.product}, language.language, counts, subject.isLookup,
                   lacksEnglish ? u"no English file" : u"");
        }
    }
    return table;
}

void addTotals(const Report& report, const Subject& subject, Table& table) {
    if (report.products.size() < 2 || table.isEmpty())
        return;
    const std::vector<Totals> totals = totalsOf(report);
    for (std::size_t index = 0; index < totals.size(); ++index)
        addRow(table, {u"all products", Paint::Heading}, report.languages[index],
               totals[index].*subject.totals, subject.isLookup);
}

void addEntries(Page& page, const std::vector<Entry>& entries) {
    Table table;
    for (const Entry& entry : entries)
        table.addRow({{titleOf(entry.defect), Paint::Dim},
                      {entry.name},
                      {entry.href},
                      {remarkOn(entry), Paint::Caution},
                      {positionText(entry), Paint::Dim}});
    page.records(table);
}

void addDetails(Page& page, const Report& report, const Subject& subject) {
    for (const ProductReport& product : report.products) {
        for (const LanguageReport& language : product.languages) {
            const std::vector<Entry>& entries = (language.*subject.comparison).entries;
            if (entries.empty())
                continue;
            page.heading(0, product.product + u", " + language.language);
            addEntries(page, entries);
        }
    }
}

} // namespace

std::string toText(const Report& report, Depth depth, const PageSetup& setup) {
    Page page(setup);
    for (const Subject& subject : kSubjects) {
        Table table = tableOf(report, subject);
        if (table.isEmpty())
            continue;
        addTotals(report, subject, table);
        if (!page.isEmpty())
            page.emptyLine();
        page.title(subject.title, '-');
        page.records(table);
        if (depth == Depth::Entries)
            addDetails(page, report, subject);
    }
    return page.take();
}

} // namespace refdoc::translations
