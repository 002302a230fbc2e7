#include "docparser/account/AccountRecorder.hpp"

#include "docparser/parsing/RefItemLookup.hpp"
#include "platform/path/Path.hpp"

#include <algorithm>
#include <iterator>

namespace reference::docparser {

namespace {

Fate fateOfUsedFile(const std::vector<SectionAccount>& sections) {
    const auto has = [&](SectionFate fate) {
        return std::ranges::find(sections, fate, &SectionAccount::fate) != sections.end();
    };
    if (has(SectionFate::Overlay))
        return Fate::Overlay;
    return has(SectionFate::Merged) ? Fate::Merged : Fate::Used;
}

} // namespace

// The records of a name that was never combined all come from the owner.
AccountRecorder::FileIndex AccountRecorder::Section::originOf(const std::u16string& name,
                                                              std::size_t index) const {
    const auto known = origins.find(name);
    return known == origins.end() ? owner : known->second[index];
}

std::vector<AccountRecorder::FileIndex>&
AccountRecorder::Section::originsOf(const std::u16string& name, std::size_t count) {
    return origins.try_emplace(name, count, owner).first->second;
}

std::optional<std::size_t> AccountRecorder::NameIndex::find(const std::u16string& mergedName,
                                                            const LookupRecords& target,
                                                            const std::u16string& href) {
    if (name != &mergedName)
        *this = {.name = &mergedName};
    for (; size < target.size(); ++size)
        byHref.try_emplace(target[size].getHref(), size);
    const auto found = byHref.find(href);
    return found == byHref.end() ? std::nullopt : std::optional(found->second);
}

template <class Step>
void AccountRecorder::record(Step step) noexcept {
    if (!account_.isComplete)
        return;
    try {
        step();
    } catch (...) {
        // A failure to record must not affect the retrieval.
        account_.isComplete = false;
    }
}

void AccountRecorder::appendTo(LoadAccount& target) noexcept {
    const FileIndex offset = target.files.size();
    for (FileAccount& file : account_.files) {
        for (SectionAccount& section : file.sections) {
            section.other += offset;
            for (RecordAccount& each : section.records) {
                each.file += offset;
                each.winner += offset;
            }
        }
    }
    record([&] {
        target.files.insert(target.files.end(), std::move_iterator(account_.files.begin()),
                            std::move_iterator(account_.files.end()));
    });
    target.isComplete = target.isComplete && account_.isComplete;
}

// The file counts as failed until it is concluded, in case the recording ends early.
FileAccount& AccountRecorder::addFile(FileRole role, const std::u16string& name) {
    FileAccount file{.role = role, .fate = Fate::Failed};
    if (open_.empty()) {
        file.path = name;
    } else {
        file.path = current().path;
        file.entry = name;
    }
    return account_.files.emplace_back(std::move(file));
}

void AccountRecorder::fileSkipped(const std::u16string& folder, const std::u16string& name,
                                  Fate fate) noexcept {
    record([&] {
        FileAccount& file =
            addFile(FileRole::Lookup,
                    folder.empty() ? name : (fl::filesystem::path(folder) / name).string());
        file.isTranslation = fate == Fate::SkippedLanguage;
        file.fate = fate;
    });
}

void AccountRecorder::fileConsidered(FileRole role, const std::u16string& name,
                                     bool isTranslation) noexcept {
    record([&] {
        addFile(role, name).isTranslation = isTranslation;
        open_.push_back({.index = account_.files.size() - 1});
    });
}

void AccountRecorder::readFailed(const std::exception_ptr& cause) noexcept {
    record([&] {
        open_.back().readFailure =
            cause ? reasonOfReading(cause) : reasonOfOpening(current().path, nullptr);
    });
}

void AccountRecorder::fileRead(const std::string& text) noexcept {
    record([&] { open_.back().text = text; });
}

void AccountRecorder::sectionFound(const std::u16string& key, bool isFirstOfKey) noexcept {
    record([&] {
        std::vector<SectionAccount>& sections = current().sections;
        open_.back().sections.try_emplace(key, sections.size());
        std::string pointer;
        if (!sections.empty())
            pointer = "/supportPackages/" + std::to_string(sections.size() - 1);
        sections.push_back({.key = key,
                            .pointer = std::move(pointer),
                            .fate = isFirstOfKey ? SectionFate::Unused : SectionFate::KeyTaken,
                            .other = open_.back().index});
    });
}

void AccountRecorder::sectionPlaced(const std::u16string& key, SectionFate fate,
                                    bool isInstalled) noexcept {
    record([&] {
        placedSection_ = open_.back().sections.at(key);
        target_ = &sections_[{isInstalled, key}];
        targetHrefs_ = {};

        Section placed{.owner = open_.back().index};
        SectionAccount& section = placedSection();
        section.fate = fate;
        section.isInstalled = isInstalled;
        section.other = fate == SectionFate::New ? placed.owner : target_->owner;
        if (fate != SectionFate::Merged)
            std::swap(*target_, placed);
        source_ = std::move(placed);
    });
}

void AccountRecorder::itemReplaced(const std::u16string& href) noexcept {
    record([&] {
        placedSection().records.push_back({.name = href,
                                           .href = href,
                                           .fate = RecordFate::Replaced,
                                           .file = source_.owner,
                                           .winner = target_->owner});
    });
}

void AccountRecorder::nameAdded(const std::u16string& name, const LookupRecords& source) noexcept {
    record([&] {
        const std::vector<FileIndex>& origins = source_.originsOf(name, source.size());
        for (std::size_t index = 0; index < source.size(); ++index)
            placedSection().records.push_back({.name = name,
                                               .href = source[index].getHref(),
                                               .fate = RecordFate::AddedName,
                                               .file = origins[index],
                                               .winner = origins[index]});
        target_->origins[name] = origins;
    });
}

void AccountRecorder::recordAppended(const std::u16string& name, const LookupRecords& target,
                                     const LookupRecords& source, std::size_t index) noexcept {
    record([&] {
        const FileIndex origin = source_.originOf(name, index);
        target_->originsOf(name, target.size() - 1).push_back(origin);
        placedSection().records.push_back({.name = name,
                                           .href = source[index].getHref(),
                                           .fate = RecordFate::AddedHref,
                                           .file = origin,
                                           .winner = origin});
    });
}

void AccountRecorder::recordDropped(const std::u16string& name, const LookupRecords& target,
                                    const LookupRecords& source, std::size_t index) noexcept {
    record([&] {
        const std::u16string& href = source[index].getHref();
        // It lost to the record with the same href or, if there is none, to the records of its
        // name.
        const std::optional<std::size_t> sameHref = targetHrefs_.find(name, target, href);
        placedSection().records.push_back(
            {.name = name,
             .href = href,
             .fate = sameHref ? RecordFate::DroppedHref : RecordFate::DroppedCount,
             .file = source_.originOf(name, index),
             .winner = target_->originOf(name, sameHref.value_or(0))});
    });
}

void AccountRecorder::fileConcluded(const std::exception_ptr& failure) noexcept {
    record([&] {
        FileAccount& file = current();
        const OpenFile& open = open_.back();
        // A merge reports the names that it adds before the names that both sections have.
        for (SectionAccount& section : file.sections)
            std::ranges::stable_sort(section.records, {}, &RecordAccount::name);
        if (open.readFailure)
            applyReason(*open.readFailure, file);
        else if (!failure)
            file.fate = fateOfUsedFile(file.sections);
        else if (file.role == FileRole::Package)
            applyReason(reasonOfOpening(file.path, failure), file);
        else
            applyReason(reasonOfUse(failure, open.text), file);
        open_.pop_back();
    });
}

} // namespace reference::docparser
