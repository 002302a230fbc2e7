#include "tools/refdoc/explain/Origins.hpp"

#include <stdexcept>
#include <utility>

namespace refdoc {

using namespace reference::docparser;

namespace {

using Records = std::map<std::u16string, std::vector<SourceRecord>>;

Records byKey(std::vector<SourceRecord> list) {
    Records records;
    for (SourceRecord& record : list)
        records[record.key].push_back(std::move(record));
    return records;
}

bool isKept(const RecordAccount* decision) {
    return !decision || decision->fate == RecordFate::AddedName ||
           decision->fate == RecordFate::AddedHref;
}

// The decisions of an account about the records of the section underneath.
class Decisions {
public:
    explicit Decisions(const SectionAccount& section) {
        for (const RecordAccount& record : section.records)
            byName_[record.name].push_back(&record);
    }

    // Returns null if nothing was decided, as for items that only the English file has.
    const RecordAccount* of(const std::u16string& key, std::size_t index) const {
        const auto found = byName_.find(key);
        if (found == byName_.end())
            return nullptr;
        const std::vector<const RecordAccount*>& list = found->second;
        // A translation replaces all items of an href at once.
        if (list.front()->fate == RecordFate::Replaced)
            return list.front();
        return index < list.size() ? list[index] : nullptr;
    }

private:
    std::map<std::u16string, std::vector<const RecordAccount*>> byName_;
};

class Follower {
public:
    void follow(const SectionAccount& section, SourceSection source) {
        switch (section.fate) {
        case SectionFate::New: place(section, std::move(source)); break;
        case SectionFate::Overlay: placeOver(section, std::move(source)); break;
        case SectionFate::Merged: placeUnder(section, std::move(source)); break;
        case SectionFate::KeyTaken:
        case SectionFate::Unused: drop(section, std::move(source)); break;
        }
    }

    std::vector<SectionOrigins> take() {
        std::vector<SectionOrigins> result;
        for (const bool isInstalled : {true, false}) {
            for (auto& [key, section] : sections_) {
                if (section.isInstalled == isInstalled)
                    result.push_back(std::move(section));
            }
        }
        return result;
    }

private:
    SectionOrigins& sectionOf(const SectionAccount& section) {
        SectionOrigins& origins = sections_[section.key];
        origins.key = section.key;
        return origins;
    }

    void place(const SectionAccount& section, SourceSection source) {
        SectionOrigins& origins = sectionOf(section);
        origins.isInstalled = section.isInstalled;
        origins.header = std::move(source.header);
        origins.kept = byKey(std::move(source.records));
    }

    void placeOver(const SectionAccount& section, SourceSection source) {
        SectionOrigins& origins = sectionOf(section);
        const std::size_t file = source.header.file;
        const Origin under = std::exchange(origins.header, std::move(source.header));
        origins.lostHeaders.push_back({under, section.fate, file});
        const Records old = std::exchange(origins.kept, byKey(std::move(source.records)));
        combine(origins, old, Decisions(section));
    }

    void placeUnder(const SectionAccount& section, SourceSection source) {
        SectionOrigins& origins = sectionOf(section);
        origins.lostHeaders.push_back({std::move(source.header), section.fate, section.other});
        combine(origins, byKey(std::move(source.records)), Decisions(section));
    }

    static void combine(SectionOrigins& origins, const Records& under, const Decisions& decisions) {
        for (const auto& [key, records] : under) {
            for (std::size_t index = 0; index < records.size(); ++index) {
                const RecordAccount* decision = decisions.of(key, index);
                if (isKept(decision))
                    origins.kept[key].push_back(records[index]);
                else
                    origins.lost.push_back({records[index], decision->fate, decision->winner});
            }
        }
    }

    void drop(const SectionAccount& section, SourceSection source) {
        SectionOrigins& origins = sectionOf(section);
        const std::size_t file = source.header.file;
        for (SourceRecord& record : source.records)
            origins.lost.push_back({std::move(record), section.fate, file});
        origins.lostHeaders.push_back({std::move(source.header), section.fate, file});
    }

    std::map<std::u16string, SectionOrigins> sections_;
};

} // namespace

std::string_view toWord(const decltype(LostRecord::fate)& fate) noexcept {
    return std::visit([](auto value) { return reference::docparser::toWord(value); }, fate);
}

std::vector<SectionOrigins> findOrigins(const LoadAccount& account, SectionReader& reader) {
    const std::vector<SourceFile> files = sourceFiles(account);
    Follower follower;
    for (std::size_t index = 0; index < files.size(); ++index) {
        const FileAccount& file = account.files[index];
        if (file.sections.empty())
            continue;
        std::vector<SourceSection> sources = reader.read(file, index, files[index]);
        for (std::size_t number = 0; number < sources.size(); ++number)
            follower.follow(file.sections[number], std::move(sources[number]));
    }
    return follower.take();
}

void expectCounts(const RecordCounts& expected, const std::vector<SectionOrigins>& sections) {
    RecordCounts found;
    for (const SectionOrigins& section : sections) {
        for (const auto& [name, records] : section.kept)
            found[{section.key, name}] += records.size();
    }
    if (found != expected)
        throw std::runtime_error("files changed while they were explained; try again");
}

} // namespace refdoc
