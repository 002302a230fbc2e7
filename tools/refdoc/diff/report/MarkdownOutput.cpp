#include "tools/refdoc/diff/report/ChangeWords.hpp"
#include "tools/refdoc/diff/report/DiffOutput.hpp"
#include "tools/refdoc/diff/report/MarkdownText.hpp"
#include "tools/refdoc/diff/words/WordDiff.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <utility>

namespace refdoc::diff {

namespace {

// The headings of a product, in their order.
enum class Group { Breaking, Deprecated, New, Changed };

constexpr std::array kGroups{std::pair(Group::Breaking, "Breaking changes"),
                             std::pair(Group::Deprecated, "Deprecated"),
                             std::pair(Group::New, "New"), std::pair(Group::Changed, "Changed")};

Group groupOf(const Change& change) {
    if (change.changeClass == ChangeClass::Breaking)
        return Group::Breaking;
    if (change.field == "/deprecationStatus" || change.field == "/deprecated")
        return Group::Deprecated;
    const bool isNew = change.oldValue.is_null() && change.changeClass == ChangeClass::Notable;
    return isNew ? Group::New : Group::Changed;
}

// The changes of one product as lists.
class ProductNotes {
public:
    explicit ProductNotes(const ProductChanges& product)
        : product_(product), words_(kReportContext), hasSections_(countsSections()) {}

    std::string write() {
        text_ = fmt::format("\n## {}\n", escapedMarkdown(product_.product));
        for (const auto& [group, heading] : kGroups) {
            bool isFirst = true;
            for (const Change& change : product_.changes) {
                if (groupOf(change) != group)
                    continue;
                if (std::exchange(isFirst, false))
                    text_ += fmt::format("\n### {}\n\n", heading);
                addEntry(change);
            }
        }
        return std::move(text_);
    }

private:
    // Whether the changes are in several sections, which have to be told apart.
    bool countsSections() const {
        const std::string* first = nullptr;
        for (const Change& change : product_.changes) {
            if (!change.section.empty() && first && *first != change.section)
                return true;
            if (!change.section.empty())
                first = &change.section;
        }
        return false;
    }

    void addEntry(const Change& change) {
        text_ += "- ";
        if (isFieldChange(change))
            addField(change);
        else
            addWhole(change);
        text_ += '\n';
    }

    // "Item added: `smooth` (`ref/smooth.html`)"
    void addWhole(const Change& change) {
        std::string event = eventText(change.id);
        event.front() = static_cast<char>(event.front() - 'a' + 'A');
        text_ += event + ": ";
        switch (change.id) {
        case ChangeId::ProductAdded:
        case ChangeId::ProductRemoved: text_ += contentsText(change); break;
        case ChangeId::SectionAdded:
        case ChangeId::SectionRemoved:
            text_ += codeSpan(change.section) + ", " + contentsText(change);
            break;
        default: addRecord(change);
        }
        if (change.id == ChangeId::ItemMoved)
            text_ += fmt::format(", {} % sure", change.certainty);
    }

    // "`smooth` (`ref/smooth.html`) in section `orchard`"
    void addRecord(const Change& change) {
        std::string place = codeSpan(change.href);
        if (!change.newHref.empty())
            place += " → " + codeSpan(change.newHref);
        if (const auto index = change.newIndex ? change.newIndex : change.oldIndex)
            place += fmt::format(", record {}", *index + 1);
        text_ += change.name.empty() ? place : fmt::format("{} ({})", codeSpan(change.name), place);
        if (hasSections_)
            text_ += " in section " + codeSpan(change.section);
    }

    void addField(const Change& change) {
        if (change.id == ChangeId::SectionChanged)
            text_ += "Header of section " + codeSpan(change.section);
        else
            addRecord(change);
        text_ += isLookupChange(change) ? " in the lookup index, " : ", ";
        text_ += escapedMarkdown(fieldText(change.field));
        const FieldEvent event = fieldEvent(change);
        const std::string oldText = valueText(change.oldValue);
        const std::string newText = valueText(change.newValue);
        switch (event) {
        case FieldEvent::Added: text_ += " added: " + codeSpan(newText); return;
        case FieldEvent::Removed: text_ += " removed: " + codeSpan(oldText); return;
        case FieldEvent::Reordered: text_ += ", order: "; break;
        case FieldEvent::Changed: text_ += ": "; break;
        }
        addRuns(words_.compare(oldText, newText));
    }

    // HTML, because the markup of Markdown has no effect within a word.
    void addRuns(const std::vector<TextRun>& runs) {
        for (const TextRun& run : runs) {
            switch (run.fate) {
            case TextRun::Fate::Kept: text_ += escapedMarkdown(run.text); break;
            case TextRun::Fate::Skipped: text_ += ellipsis(runs, run); break;
            case TextRun::Fate::Removed: addMarked("del", run.text); break;
            case TextRun::Fate::Added: addMarked("ins", run.text); break;
            }
        }
    }

    void addMarked(std::string_view element, std::string_view text) {
        text_ += fmt::format("<{0}>{1}</{0}>", element, escapedMarkdown(text));
    }

    const ProductChanges& product_;
    WordDiff words_;
    bool hasSections_;
    std::string text_;
};

class MarkdownOutput : public DiffOutput {
public:
    std::string head() const override { return "# Documentation changes\n"; }

    std::string product(const ProductChanges& product) const override {
        return ProductNotes(product).write();
    }

    std::string tail(const Summary& summary) const override {
        std::string text;
        if (!summary.damagedFiles.empty())
            text += "\n## Damaged files\n\n";
        for (const DamagedFile& file : summary.damagedFiles)
            text += fmt::format("- {} ({}): {}\n", codeSpan(file.path), toWord(file.side),
                                escapedMarkdown(file.error));
        std::string last = summaryText(summary);
        last.front() = last.front() == 'n' ? 'N' : last.front();
        return text + '\n' + last + ".\n";
    }
};

} // namespace

std::unique_ptr<DiffOutput> markdownOutput() {
    return std::make_unique<MarkdownOutput>();
}

} // namespace refdoc::diff
