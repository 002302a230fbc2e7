#include "tools/refdoc/translations/Positions.hpp"

#include "tools/refdoc/explain/Origins.hpp"

namespace refdoc::translations {

using reference::docparser::FileAccount;
using reference::docparser::FileRole;
using reference::docparser::LoadAccount;

Positions::Positions(const LoadAccount& account, SectionReader& reader, bool isTranslation) {
    const auto add = [&](const std::u16string& section, const SourceRecord& record,
                         Records& records) {
        const FileAccount& file = account.files[record.origin.file];
        if (file.isTranslation != isTranslation)
            return;
        const std::u16string name = file.role == FileRole::Lookup ? record.key : std::u16string();
        records.try_emplace({section, name, record.href},
                            Position{file.path, file.entry, record.origin.place});
    };
    for (const SectionOrigins& section : findOrigins(account, reader)) {
        for (const auto& [key, records] : section.kept) {
            for (const SourceRecord& record : records)
                add(section.key, record, kept_);
        }
        for (const LostRecord& lost : section.lost)
            add(section.key, lost.record, lost_);
    }
}

std::optional<Position> Positions::find(const Entry& entry) const {
    const auto* records = entry.defect == Defect::Dropped ? &lost_ : &kept_;
    const auto found = records->find({entry.section, entry.name, entry.href});
    return found == records->end() ? std::nullopt : std::optional(found->second);
}

void addPositions(Comparison& comparison, const Positions& english, const Positions& translation) {
    for (Entry& entry : comparison.entries)
        entry.position = (entry.defect == Defect::Missing ? english : translation).find(entry);
}

} // namespace refdoc::translations
