#include "docparser/retrieval/OverlayAccount.hpp"

#include "docparser/retrieval/FileReport.hpp"

namespace reference::docparser {

OverlayAccount::OverlayAccount(LoadAccount* account) noexcept : account_(account) {
    if (!account)
        return;
    // What the overlay does not come to is not used.
    for (SectionAccount& section : account->files.back().sections) {
        if (section.fate == SectionFate::New)
            section.fate = SectionFate::Unused;
    }
}

void OverlayAccount::added(const std::u16string& key) {
    if (!account_)
        return;
    SectionAccount& section = sectionAccountOf(account_->files.back(), key);
    section.fate = SectionFate::New;
    section.other = account_->files.size() - 1;
}

void OverlayAccount::overlaid(const std::u16string& key,
                              const DocResource<property::RefItem>::Items& replaced) {
    if (!account_)
        return;
    const std::size_t translated = account_->files.size() - 1;
    const std::size_t english = translated - 1;
    account_->files.back().fate = Fate::Overlay;
    SectionAccount& section = sectionAccountOf(account_->files.back(), key);
    section.fate = SectionFate::Overlay;
    section.other = english;
    for (const auto& [href, items] : replaced)
        section.records.push_back({href, href, RecordFate::Replaced, english, translated});
}

} // namespace reference::docparser
