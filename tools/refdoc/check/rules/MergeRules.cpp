#include "tools/refdoc/check/rules/MergeRules.hpp"

#include "platform/i18n/Converter.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <functional>
#include <string_view>
#include <tuple>
#include <utility>

namespace refdoc::check {

namespace json = boost::json;

using fl::i18n::to_string;
using reference::docparser::FileAccount;
using reference::docparser::FileRole;
using reference::docparser::LoadAccount;
using reference::docparser::RecordAccount;
using reference::docparser::RecordFate;
using reference::docparser::SectionAccount;

namespace {

constexpr Rule kDroppedRecord{
    "dropped-record", Severity::Warning, "a record is lost when two lookup files are merged",
    "If two files have a section with the same key, the file that is read first keeps all its "
    "records. The other file adds the records of names that the first does not have. For a name "
    "that both have, it adds the records with new links, but only if it has more records of the "
    "name than the first. All its other records are dropped. Records that are equal in both files "
    "are not reported. Keep all records of a name in one file."};

constexpr Rule kHiddenRecord{
    "hidden-record", Severity::Warning, "a translation hides a record that it does not have",
    "A translated lookup file takes precedence over the English file. For a name that both have, "
    "English records with other links are added only if the English file has more records of the "
    "name. Add the record to the translation."};

bool isLoss(const RecordAccount& record) {
    return record.fate == RecordFate::DroppedHref || record.fate == RecordFate::DroppedCount;
}

// Reads an href as the library does.
std::u16string hrefOf(const json::value& record) {
    const std::string_view href = record.at("href").as_string();
    return fl::i18n::codecvt_ascii_to_ustring(/*strict=*/false).convert(href.data(), href.size());
}

} // namespace

std::span<const Rule* const> mergeRules() {
    static constexpr const Rule* kRules[] = {&kDroppedRecord, &kHiddenRecord};
    return kRules;
}

void MergeLosses::add(const LoadAccount& account, const std::vector<SourceFile>& sources) {
    std::vector<Files::value_type*> files;
    for (std::size_t index = 0; index < sources.size(); ++index)
        files.push_back(account.files[index].role == FileRole::Lookup
                            ? &*files_.try_emplace(sources[index]).first
                            : nullptr);
    for (const FileAccount& file : account.files) {
        if (file.role != FileRole::Lookup)
            continue;
        for (const SectionAccount& section : file.sections) {
            if (std::ranges::any_of(section.records, isLoss))
                addSection(section, account, files);
        }
    }
}

void MergeLosses::addSection(const SectionAccount& section, const LoadAccount& account,
                             const std::vector<Files::value_type*>& files) {
    std::map<std::tuple<std::size_t, std::u16string_view, std::u16string_view>, std::size_t> seen;
    for (const RecordAccount& record : section.records) {
        const std::size_t occurrence = seen[{record.file, record.name, record.href}]++;
        if (!isLoss(record))
            continue;
        const bool isSameHref = record.fate == RecordFate::DroppedHref;
        const bool isHidden =
            account.files[record.file].isTranslation != account.files[record.winner].isTranslation;
        // The purpose of a translation is to replace records with the same link.
        if (isHidden && isSameHref)
            continue;
        const std::string name = to_string(record.name);
        losses_.insert({sideOf(*files[record.file], section.key, name),
                        sideOf(*files[record.winner], section.key, name), record.href, occurrence,
                        isSameHref, isHidden});
    }
}

MergeLosses::Side MergeLosses::sideOf(Files::value_type& file, const std::u16string& section,
                                      const std::string& name) {
    auto& [key, names] = *file.second.try_emplace(section).first;
    const auto& [nameKey, records] = *names.try_emplace(name).first;
    return {&file.first, &key, &nameKey, &records};
}

std::vector<Location*> MergeLosses::read(const SourceFile& file,
                                         const std::vector<SectionAccount>& sections,
                                         const json::value& document) {
    std::vector<Location*> locations;
    const auto compared = files_.find(file);
    if (compared == files_.end())
        return locations;
    for (const SectionAccount& section : sections) {
        const auto names = compared->second.find(section.key);
        if (names == compared->second.end() ||
            section.fate == reference::docparser::SectionFate::KeyTaken)
            continue;
        std::size_t index = 0;
        for (const json::value& record :
             document.at_pointer(section.pointer).at("refItems").as_array()) {
            const auto records =
                names->second.find(std::string_view(record.at("name").as_string()));
            if (records != names->second.end())
                locations.push_back(
                    &records->second
                         .emplace(hrefOf(record),
                                  Record{{.pointer = fmt::format("{}/refItems/{}", section.pointer,
                                                                 index)},
                                         std::hash<json::value>()(record)})
                         ->second.location);
            ++index;
        }
    }
    return locations;
}

void MergeLosses::report(const PathNames& names, Findings& findings) const {
    FoundByFile foundByFile;
    for (const Loss& loss : losses_) {
        const Record* lost = lostRecord(loss);
        if (lost && !hasEqual(loss, *lost))
            report(loss, *lost, names, foundByFile);
    }
    for (auto& [file, found] : foundByFile)
        addFindings(found, *file, findings);
}

// Returns null if the file has changed since the library read it.
const MergeLosses::Record* MergeLosses::lostRecord(const Loss& loss) {
    const auto [first, last] = loss.loser.records->equal_range(loss.href);
    const auto count = static_cast<std::size_t>(std::distance(first, last));
    if (loss.occurrence >= count)
        return nullptr;
    return &std::next(first, static_cast<std::ptrdiff_t>(loss.occurrence))->second;
}

bool MergeLosses::hasEqual(const Loss& loss, const Record& lost) {
    const auto [first, last] = loss.winner.records->equal_range(loss.href);
    return std::any_of(first, last, [&](const auto& entry) {
        return &entry.second != &lost && entry.second.contentHash == lost.contentHash;
    });
}

// Returns the first record in file order; the whole file if it has changed and has none.
Location MergeLosses::firstOf(const Records& records) {
    const auto offsetOf = [](const auto& entry) {
        return entry.second.location.position ? entry.second.location.position->offset : 0;
    };
    const auto first = std::ranges::min_element(records, {}, offsetOf);
    return first == records.end() ? Location() : first->second.location;
}

void MergeLosses::report(const Loss& loss, const Record& lost, const PathNames& names,
                         FoundByFile& found) {
    const Side& loser = loss.loser;
    const Side& winner = loss.winner;
    const std::string href = to_string(loss.href);
    Finding finding{.rule = loss.isHidden ? &kHiddenRecord : &kDroppedRecord,
                    .identity = fmt::format("{}\n{}\n{}\n{}", to_string(*loser.section),
                                            *loser.name, href, loss.occurrence),
                    .cause = to_string(*loser.section)};
    if (loss.isHidden) {
        finding.location = firstOf(*winner.records);
        finding.message = fmt::format(
            "the translation hides the record \"{}\" with the link \"{}\" of {} because it has at "
            "least as many records of the name",
            *loser.name, href, names.nameOf(*loser.file));
        finding.related.push_back({*loser.file, lost.location, "the hidden record"});
        found[winner.file].push_back(std::move(finding));
        return;
    }
    finding.location = lost.location;
    finding.message =
        fmt::format("the record \"{}\" with the link \"{}\" is lost in the merge: {} has {}",
                    *loser.name, href, names.nameOf(*winner.file),
                    loss.isSameHref ? "a record of the name with this link"
                                    : "at least as many records of the name");
    const auto kept = winner.records->find(loss.href);
    finding.related.push_back(
        {*winner.file,
         kept == winner.records->end() ? firstOf(*winner.records) : kept->second.location,
         "the record that is kept"});
    found[loser.file].push_back(std::move(finding));
}

} // namespace refdoc::check
