#include "tools/refdoc/session/LookupIndex.hpp"

#include <algorithm>

namespace refdoc {

using reference::docparser::DocResourceParser;
using reference::docparser::FileAccount;
using reference::docparser::LoadAccount;
using reference::docparser::RecordAccount;
using reference::docparser::RecordFate;
using reference::docparser::SectionAccount;
using reference::docparser::SectionFate;
using reference::property::RefItemLookup;
using Tools = DocResourceParser::ParsingTools;

EnglishEntries::EnglishEntries(const LoadAccount& account) {
    for (const FileAccount& file : account.files) {
        for (const SectionAccount& section : file.sections)
            add(account, file.isTranslation, section);
    }
}

void EnglishEntries::add(const LoadAccount& account, bool isTranslation,
                         const SectionAccount& added) {
    Section& section = sections_[added.key];
    switch (added.fate) {
    case SectionFate::New:
    case SectionFate::Overlay: section = {.isTranslation = isTranslation}; break;
    case SectionFate::Merged: break;
    case SectionFate::KeyTaken:
    case SectionFate::Unused: return;
    }
    for (const RecordAccount& record : added.records) {
        if (record.fate == RecordFate::AddedName || record.fate == RecordFate::AddedHref)
            section.otherEntries.insert_or_assign({record.name, record.href},
                                                  account.files[record.file].isTranslation);
    }
}

bool EnglishEntries::hasSection(const std::u16string& key) const {
    const auto section = sections_.find(key);
    return section != sections_.end() && !section->second.isTranslation &&
           std::ranges::none_of(section->second.otherEntries,
                                [](const auto& entry) { return entry.second; });
}

bool EnglishEntries::hasEntry(const std::u16string& key, const RefItemLookup& entry) const {
    const auto found = sections_.find(key);
    if (found == sections_.end())
        return false;
    const Section& section = found->second;
    const auto other = section.otherEntries.find({entry.getName(), entry.getHref()});
    return other == section.otherEntries.end() ? !section.isTranslation : !other->second;
}

LookupIndex readLookupIndex() {
    if (Tools::getCurrentLocale() == Tools::kEnglishLocale)
        return {DocResourceParser::getResourceLookupFiles(), EnglishEntries()};
    LoadAccount account;
    const LoadAccount::Scope scope(account);
    LookupResults entries = DocResourceParser::getResourceLookupFiles();
    return {std::move(entries), EnglishEntries(account)};
}

} // namespace refdoc
