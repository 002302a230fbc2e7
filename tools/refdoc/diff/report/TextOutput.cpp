#include "tools/refdoc/diff/report/ChangeWords.hpp"
#include "tools/refdoc/diff/report/DiffOutput.hpp"
#include "tools/refdoc/diff/report/ReportLines.hpp"
#include "tools/refdoc/diff/words/WordDiff.hpp"
#include "tools/refdoc/terminal/DisplayText.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace refdoc::diff {

namespace {

constexpr std::size_t kFieldIndent = 2;

Paint paintOf(ChangeClass changeClass) {
    switch (changeClass) {
    case ChangeClass::Breaking: return Paint::Alarm;
    case ChangeClass::Notable: return Paint::Caution;
    case ChangeClass::Textual: return Paint::Dim;
    }
    return Paint::Plain;
}

// Prints the changes of one product.
class ProductText {
public:
    explicit ProductText(const PageSetup& setup) : lines_(setup), words_(kReportContext) {}

    std::string print(const ProductChanges& product) {
        std::vector<const Change*> changes;
        for (const Change& change : product.changes)
            changes.push_back(&change);
        std::ranges::stable_sort(changes, {}, &Change::section);
        lines_.title(product.product, '=');
        for (const Change* change : changes)
            printChange(*change);
        return lines_.take();
    }

private:
    void printChange(const Change& change) {
        if (change.section != section_) {
            section_ = change.section;
            lines_.title("Section " + section_, '-');
            record_ = nullptr;
        }
        const bool isOfRecord = change.id == ChangeId::ItemChanged || isLookupField(change);
        if (isOfRecord && !(record_ && isSameRecord(*record_, change)))
            printRecord(change);
        record_ = isOfRecord || change.id == ChangeId::ItemMoved ? &change : nullptr;

        if (isFieldChange(change))
            addField(change);
        else
            addWhole(change);
        lines_.endLine(isOfRecord ? kFieldIndent : 0, toWord(change.changeClass),
                       paintOf(change.changeClass));
    }

    static bool isLookupField(const Change& change) { return change.id == ChangeId::LookupChanged; }

    static bool isSameRecord(const Change& left, const Change& right) {
        return isLookupField(left) == isLookupField(right) && left.href == right.href &&
               left.newHref == right.newHref && left.name == right.name &&
               left.oldIndex == right.oldIndex && left.newIndex == right.newIndex;
    }

    void printRecord(const Change& change) {
        lines_.add(isLookupField(change) ? "entry " : "item ");
        addRecord(change, Paint::Heading);
        lines_.endLine();
    }

    // "smooth (ref/smooth.html)"
    void addRecord(const Change& change, Paint paint) {
        if (!change.name.empty()) {
            lines_.add(visibleLine(change.name), paint);
            lines_.add(" (");
        }
        lines_.add(visibleLine(change.href), change.name.empty() ? paint : Paint::Plain);
        if (!change.newHref.empty())
            lines_.add(" → " + visibleLine(change.newHref));
        if (const auto index = change.newIndex ? change.newIndex : change.oldIndex)
            lines_.add(fmt::format(", record {}", *index + 1));
        if (!change.name.empty())
            lines_.add(")");
    }

    void addWhole(const Change& change) {
        lines_.add(eventText(change.id));
        lines_.add(": ");
        if (change.id <= ChangeId::SectionRemoved) {
            lines_.add(contentsText(change));
            return;
        }
        addRecord(change, Paint::Plain);
        if (change.id == ChangeId::ItemMoved)
            lines_.add(fmt::format(", {} % sure", change.certainty));
    }

    void addField(const Change& change) {
        const FieldEvent event = fieldEvent(change);
        if (change.id == ChangeId::SectionChanged)
            lines_.add("header, ");
        lines_.add(visibleLine(fieldText(change.field)));
        switch (event) {
        case FieldEvent::Added: lines_.add(" added: "); break;
        case FieldEvent::Removed: lines_.add(" removed: "); break;
        case FieldEvent::Reordered: lines_.add(", order: "); break;
        case FieldEvent::Changed: lines_.add(": "); break;
        }
        const std::string oldText = visibleLine(valueText(change.oldValue));
        const std::string newText = visibleLine(valueText(change.newValue));
        if (event == FieldEvent::Added || event == FieldEvent::Removed)
            lines_.add(oldText + newText);
        else if (oldText == newText) // they differ in characters that look the same here
            addRuns({{TextRun::Fate::Removed, oldText}, {TextRun::Fate::Added, newText}});
        else
            addRuns(words_.compare(oldText, newText));
    }

    void addRuns(const std::vector<TextRun>& runs) {
        for (const TextRun& run : runs) {
            switch (run.fate) {
            case TextRun::Fate::Kept: lines_.add(run.text); break;
            case TextRun::Fate::Skipped: lines_.add(ellipsis(runs, run), Paint::Dim); break;
            case TextRun::Fate::Removed: addMarked("[-", run.text, "-]", Paint::Removed); break;
            case TextRun::Fate::Added: addMarked("{+", run.text, "+}", Paint::Added); break;
            }
        }
    }

    void addMarked(std::string_view before, std::string_view text, std::string_view after,
                   Paint paint) {
        lines_.add(before, paint);
        lines_.add(text, paint);
        lines_.add(after, paint);
    }

    ReportLines lines_;
    WordDiff words_;
    std::string section_;
    const Change* record_ = nullptr; // whose title was printed
};

class TextOutput : public DiffOutput {
public:
    explicit TextOutput(const PageSetup& setup) : setup_(setup) {}

    std::string product(const ProductChanges& product) const override {
        return ProductText(setup_).print(product);
    }

    std::string separator() const override { return "\n"; }

    std::string tail(const Summary& summary) const override {
        return fmt::format("{}{}\n", summary.total() > 0 ? "\n" : "", summaryText(summary));
    }

private:
    PageSetup setup_;
};

} // namespace

std::unique_ptr<DiffOutput> textOutput(const PageSetup& setup) {
    return std::make_unique<TextOutput>(setup);
}

} // namespace refdoc::diff
