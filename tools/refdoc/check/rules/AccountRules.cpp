#include "tools/refdoc/check/rules/AccountRules.hpp"

#include "platform/i18n/Converter.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <optional>
#include <stdexcept>
#include <tuple>
#include <utility>

namespace refdoc::check {

using fl::i18n::to_string;
using reference::docparser::Fate;
using reference::docparser::FileAccount;
using reference::docparser::RecordAccount;
using reference::docparser::RecordFate;
using reference::docparser::SectionFate;

namespace {

std::string withReason(std::string_view message, std::string_view reason) {
    return reason.empty() ? std::string(message) : fmt::format("{}: {}", message, reason);
}

// The cause alone, of a reason that names the package before it.
std::string_view causeOf(const FileAccount& file) {
    const std::string_view reason = file.reason;
    const std::size_t path = reason.find(to_string(file.path));
    const std::size_t cause = path == reason.npos ? path : reason.find(": ", path);
    return cause == reason.npos ? reason : reason.substr(cause + 2);
}

Finding unreadable(const FileAccount& file, const SourceFile& source) {
    if (file.role == FileRole::Package)
        return {
            RuleId::UnreadablePackage,
            {.file = source},
            withReason("the package can't be opened, and nothing of it is used", causeOf(file))};
    if (!file.entry.empty())
        return {RuleId::UnreadableEntry,
                {.file = source},
                withReason("the entry can't be delivered", causeOf(file))};
    if (file.fate == Fate::Missing)
        return {RuleId::UnreadableFile,
                {.file = source},
                "there is no file behind the name: a link leads nowhere"};
    return {RuleId::UnreadableFile,
            {.file = source},
            withReason("the file can't be read and counts as missing", file.reason)};
}

std::optional<Finding> findingOf(const FileAccount& file, const SourceFile& source) {
    switch (file.fate) {
    case Fate::Missing:
        // A full resource file need not exist; one that was seen in a folder should.
        if (file.role == FileRole::Resources)
            return std::nullopt;
        [[fallthrough]];
    case Fate::Unreadable: return unreadable(file, source);
    case Fate::NotRegular:
        return Finding{RuleId::NotAFile,
                       {.file = source},
                       "a folder, pipe or device bears the name of a resource file"};
    case Fate::OverLimit:
        return Finding{
            RuleId::OverLimit, {.file = source}, withReason("the file is not read", causeOf(file))};
    case Fate::Failed: throw std::runtime_error(withReason("the check failed", file.reason));
    case Fate::Used:
    case Fate::Overlay:
    case Fate::Merged:
    case Fate::SkippedLanguage:
    case Fate::SkippedName:
    case Fate::Malformed: break;
    }
    return std::nullopt;
}

// The section that a later one of its file lost its key to.
const SectionAccount& ownerOf(const FileAccount& file, const std::u16string& key) {
    return *std::ranges::find(file.sections, key, &SectionAccount::key);
}

Finding droppedSection(const FileAccount& file, const SourceFile& source,
                       const SectionAccount& section) {
    const std::string key = to_string(section.key);
    const SectionAccount& owner = ownerOf(file, section.key);
    Finding finding{.rule = RuleId::RepeatedSectionKey,
                    .spot = {.file = source, .pointer = section.pointer + "/baseCode"},
                    .message = fmt::format("the section is dropped: an earlier section of the file "
                                           "has the key \"{}\"",
                                           key),
                    .identity = key,
                    .related = {}};
    std::string ownerKey = "/baseCode";
    if (owner.pointer.empty()) {
        finding.rule = RuleId::BaseCodeIsHelpFolder;
        finding.message = fmt::format(
            "the section is dropped: its base code \"{}\" is the help folder of the main section",
            key);
        ownerKey = "/helpFolder";
    }
    finding.related.push_back(
        {{.file = source, .pointer = owner.pointer + ownerKey}, "the section that is kept"});
    return finding;
}

bool isLoss(const RecordAccount& record) {
    return record.fate == RecordFate::DroppedHref || record.fate == RecordFate::DroppedCount;
}

void addLossesOf(const SectionAccount& section, const LoadAccount& account,
                 const std::vector<SourceFile>& sources, std::set<Loss>& losses) {
    if (std::ranges::none_of(section.records, isLoss))
        return;
    std::map<std::tuple<std::size_t, std::u16string_view, std::u16string_view>, std::size_t> seen;
    for (const RecordAccount& record : section.records) {
        const std::size_t occurrence = seen[{record.file, record.name, record.href}]++;
        if (!isLoss(record))
            continue;
        const bool isSameHref = record.fate == RecordFate::DroppedHref;
        const bool isHidden =
            account.files[record.file].isTranslation != account.files[record.winner].isTranslation;
        // A translation is there to replace what has the same link.
        if (isHidden && isSameHref)
            continue;
        losses.insert({section.key, sources[record.file], sources[record.winner], record.name,
                       record.href, occurrence, isSameHref, isHidden});
    }
}

using Records = std::multimap<std::u16string, RecordAnswer>;

// The place of the first record in file order; of equally long pointers the least comes first.
std::optional<std::string> firstOf(const Records& records) {
    const auto before = [](const auto& left, const auto& right) {
        const std::string& a = left.second.pointer;
        const std::string& b = right.second.pointer;
        return std::pair(a.size(), std::string_view(a)) < std::pair(b.size(), std::string_view(b));
    };
    const auto first = std::ranges::min_element(records, before);
    return first == records.end() ? std::nullopt : std::optional(first->second.pointer);
}

// The record that was lost; null when the file has changed meanwhile.
const RecordAnswer* lostRecord(const Loss& loss, const Records& records) {
    const auto [first, last] = records.equal_range(loss.href);
    const auto left = static_cast<std::size_t>(std::distance(first, last));
    if (loss.occurrence >= left)
        return nullptr;
    return &std::next(first, static_cast<std::ptrdiff_t>(loss.occurrence))->second;
}

bool hasEqual(const Records& winners, const Loss& loss, const RecordAnswer& lost) {
    const auto [first, last] = winners.equal_range(loss.href);
    return std::any_of(first, last, [&](const auto& entry) {
        const bool isItself = loss.winner == loss.loser && &entry.second == &lost;
        return !isItself && entry.second.contentHash == lost.contentHash;
    });
}

std::string identityOf(const Loss& loss) {
    return fmt::format("{}\n{}\n{}\n{}", to_string(loss.section), to_string(loss.name),
                       to_string(loss.href), loss.occurrence);
}

Finding droppedRecord(const Loss& loss, const RecordAnswer& lost, const Records& winners,
                      const PathNames& names) {
    const std::string_view rule =
        loss.isSameHref ? "has the name with this link" : "has no fewer records of the name";
    const auto winner = winners.find(loss.href);
    return {.rule = RuleId::DroppedRecord,
            .spot = {.file = loss.loser, .pointer = lost.pointer},
            .message = fmt::format("the record \"{}\" with the link \"{}\" is lost in the merge: "
                                   "{} {}",
                                   to_string(loss.name), to_string(loss.href),
                                   names.nameOf(loss.winner), rule),
            .identity = identityOf(loss),
            .related = {
                {{.file = loss.winner,
                  .pointer = winner == winners.end() ? firstOf(winners) : winner->second.pointer},
                 "the record that is kept"}}};
}

Finding hiddenRecord(const Loss& loss, const RecordAnswer& lost, const Records& winners,
                     const PathNames& names) {
    return {.rule = RuleId::HiddenRecord,
            .spot = {.file = loss.winner, .pointer = firstOf(winners)},
            .message =
                fmt::format("the translation hides the record \"{}\" with the link \"{}\" of "
                            "{}, for it has no fewer records of the name",
                            to_string(loss.name), to_string(loss.href), names.nameOf(loss.loser)),
            .identity = identityOf(loss),
            .related = {{{.file = loss.loser, .pointer = lost.pointer}, "the hidden record"}}};
}

} // namespace

void addAccountFindings(const LoadAccount& account, const std::vector<SourceFile>& sources,
                        std::vector<Finding>& findings) {
    for (std::size_t index = 0; index < sources.size(); ++index) {
        const FileAccount& file = account.files[index];
        if (std::optional<Finding> finding = findingOf(file, sources[index]))
            findings.push_back(std::move(*finding));
        for (const SectionAccount& section : file.sections) {
            if (section.fate == SectionFate::KeyTaken)
                findings.push_back(droppedSection(file, sources[index], section));
        }
    }
}

void addLosses(const LoadAccount& account, const std::vector<SourceFile>& sources,
               std::set<Loss>& losses) {
    for (const FileAccount& file : account.files) {
        if (file.role != FileRole::Lookup)
            continue;
        for (const SectionAccount& section : file.sections)
            addLossesOf(section, account, sources, losses);
    }
}

void askAbout(const std::set<Loss>& losses, Questions& questions) {
    for (const Loss& loss : losses) {
        questions.askRecords(loss.loser, loss.section, loss.name);
        questions.askRecords(loss.winner, loss.section, loss.name);
    }
}

void addLossFindings(const std::set<Loss>& losses, const Questions& questions,
                     const PathNames& names, std::vector<Finding>& findings) {
    for (const Loss& loss : losses) {
        const Records& losers = questions.records(loss.loser, loss.section, loss.name);
        const Records& winners = questions.records(loss.winner, loss.section, loss.name);
        const RecordAnswer* lost = lostRecord(loss, losers);
        if (!lost || hasEqual(winners, loss, *lost))
            continue;
        findings.push_back(loss.isHidden ? hiddenRecord(loss, *lost, winners, names)
                                         : droppedRecord(loss, *lost, winners, names));
    }
}

} // namespace refdoc::check
