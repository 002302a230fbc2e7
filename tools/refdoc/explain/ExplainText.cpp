#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/explain/Explanation.hpp"
#include "tools/refdoc/explain/RuleText.hpp"
#include "tools/refdoc/terminal/Page.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <set>
#include <string_view>

namespace refdoc {

using namespace reference::docparser;
using fl::i18n::to_ustring;

namespace {

// Wide enough for "dropped" and the most frequent fates of files.
constexpr std::size_t kLabelWidth = 9;

std::u16string padded(std::string_view label) {
    return to_ustring(fmt::format("{:<{}}", label, kLabelWidth));
}

// Adds "label    place", with the remark below the place.
void addPlace(Page& page, std::size_t indent, Cell label, std::u16string place,
              const std::u16string& remark) {
    const std::size_t width = std::max(label.text.size(), kLabelWidth) + 1;
    page.words(indent, {std::move(label), {std::move(place)}});
    if (!remark.empty())
        page.text(indent + width, remark, Paint::Dim);
}

bool isContributing(const FileAccount& file) {
    return file.fate == Fate::Used || file.fate == Fate::Overlay || file.fate == Fate::Merged;
}

// Whether the file would be used if it were repaired.
bool isProblem(const FileAccount& file) {
    return !isContributing(file) && file.fate != Fate::SkippedLanguage &&
           file.fate != Fate::SkippedName && file.fate != Fate::Missing;
}

std::string_view remarkOn(Fate fate) {
    switch (fate) {
    case Fate::SkippedLanguage: return "a translation into a language other than the current one";
    case Fate::SkippedName: return "its name is not that of a product file";
    case Fate::Missing: return "the file does not exist";
    case Fate::NotRegular: return "a folder, pipe, socket or device has the name";
    default: return "";
    }
}

std::u16string remarkOn(const FileAccount& file) {
    std::string remark = file.reason.empty() ? std::string(remarkOn(file.fate)) : file.reason;
    if (!file.pointer.empty())
        remark += ", at " + file.pointer;
    return to_ustring(remark);
}

void addFile(Page& page, const FileAccount& file) {
    const Paint paint = isProblem(file)        ? Paint::Alarm
                        : isContributing(file) ? Paint::Plain
                                               : Paint::Dim;
    addPlace(page, 2, {padded(toWord(file.fate)), paint}, placeText(file, file.place),
             remarkOn(file));
}

// The files that the sections refer to.
std::set<std::size_t> filesOf(const Explanation& explanation) {
    std::set<std::size_t> files;
    for (const SectionOrigins& section : explanation.sections) {
        files.insert(section.header.file);
        for (const auto& [key, records] : section.kept) {
            for (const SourceRecord& record : records)
                files.insert(record.origin.file);
        }
        for (const LostRecord& lost : section.lost)
            files.insert(lost.record.origin.file);
        for (const LostHeader& lost : section.lostHeaders)
            files.insert(lost.header.file);
    }
    return files;
}

// "12 more: 9 used, 3 skipped-language"
void addCounts(Page& page, const std::map<std::string_view, std::size_t>& counts,
               std::string_view noun) {
    std::size_t sum = 0;
    std::vector<std::string> parts;
    for (const auto& [word, count] : counts) {
        sum += count;
        parts.push_back(fmt::format("{} {}", count, word));
    }
    if (sum > 0)
        page.text(2, to_ustring(fmt::format("{} {}: {}", sum, noun, fmt::join(parts, ", "))),
                  Paint::Dim);
}

void addFiles(Page& page, const Explanation& explanation) {
    page.heading(0, u"Files considered");
    // The index has many files, so those without the name are only counted.
    const bool all = explanation.product.has_value();
    const std::set<std::size_t> sources = filesOf(explanation);
    bool isAnyShown = false;
    std::map<std::string_view, std::size_t> others;
    for (std::size_t index = 0; index < explanation.account.files.size(); ++index) {
        const FileAccount& file = explanation.account.files[index];
        if (all || sources.contains(index) || isProblem(file)) {
            addFile(page, file);
            isAnyShown = true;
        } else {
            ++others[toWord(file.fate)];
        }
    }
    addCounts(page, others, isAnyShown ? "more" : "without it");
    if (explanation.account.files.empty())
        page.text(2, u"none");
}

// Lays out one section of an explanation.
class SectionText {
public:
    SectionText(Page& page, const Explanation& explanation, const SectionOrigins& section)
        : page_(page),
          files_(explanation.account.files),
          section_(section),
          isLookup_(explanation.name.has_value()) {}

    void add() {
        page_.emptyLine();
        page_.title(u"Section " + section_.key +
                        (isLookup_ && !section_.isInstalled ? u", not installed" : u""),
                    '-');
        addPlace(page_, 2, {padded("header")}, place(section_.header), u"");
        for (const LostHeader& lost : section_.lostHeaders)
            addDropped(2, lost.header, ruleOf(lost, files_));
        for (const auto& [key, records] : recordsByKey())
            addRecords(key, records);
    }

private:
    std::u16string place(const Origin& origin) const {
        return placeText(files_[origin.file], origin.place);
    }

    // The records with one key: those of the result and those that lost.
    struct Records {
        const std::vector<SourceRecord>* kept = nullptr;
        std::vector<const LostRecord*> lost{};
    };

    std::map<std::u16string_view, Records> recordsByKey() const {
        std::map<std::u16string_view, Records> records;
        for (const auto& [key, kept] : section_.kept)
            records[key].kept = &kept;
        for (const LostRecord& lost : section_.lost)
            records[lost.record.key].lost.push_back(&lost);
        return records;
    }

    void addRecords(std::u16string_view key, const Records& records) {
        page_.heading(2, key);
        if (records.kept) {
            for (const SourceRecord& record : *records.kept)
                addPlace(page_, 4, {padded("from")}, place(record.origin), describe(record));
        }
        for (const LostRecord* lost : records.lost)
            addDropped(4, lost->record.origin,
                       describe(lost->record) + u"\n" + ruleOf(*lost, files_));
    }

    void addDropped(std::size_t indent, const Origin& origin, const std::u16string& why) {
        addPlace(page_, indent, {padded("dropped"), Paint::Caution}, place(origin), why);
    }

    std::u16string describe(const SourceRecord& record) const {
        return isLookup_ ? record.href + u": " + record.refPurpose : record.refPurpose;
    }

    Page& page_;
    const std::vector<FileAccount>& files_;
    const SectionOrigins& section_;
    bool isLookup_;
};

} // namespace

std::string explanationPage(const Explanation& explanation, const PageSetup& setup) {
    Page page(setup);
    std::u16string title = explanation.product ? *explanation.product : *explanation.name;
    if (explanation.href)
        title += u", " + *explanation.href;
    page.title(title, '=');
    page.text(0, u"documentation language: " + explanation.language, Paint::Dim);
    addFiles(page, explanation);
    for (const SectionOrigins& section : explanation.sections)
        SectionText(page, explanation, section).add();
    return page.take();
}

} // namespace refdoc
