#pragma once

#include "docparser/retrieval/FileReport.hpp"
#include "docparser/retrieval/LookupReadContext.hpp"

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace reference::docparser {

/// Tells an account how the sections of lookup files were combined.
///
/// What a merge decided is read off its effect, so that its rules stand in one place. To know which
/// file each record comes from, this follows all records of the result for as long as it lives.
class LookupAccount {
public:
    using Items = LookupMap::mapped_type::Items;

    explicit LookupAccount(LoadAccount& account) : account_(account) {}

    LoadAccount& account() noexcept { return account_; }

    /// Tells that a section is the first of its key.
    /// \param items  what the result has of it now
    void placed(FileReport& report, const std::u16string& key, bool isInstalled,
                const Items& items);

    /// Runs a merge and tells what it did.
    /// \param report  the file whose section came to one that was there
    /// \param isOver  whether it went over it; else under
    /// \param target  the section on top, before the merge
    /// \param source  the section underneath
    /// \param merge   merges the two
    void merged(FileReport& report, const std::u16string& key, bool isInstalled, bool isOver,
                const Items& target, const Items& source, const std::function<void()>& merge);

private:
    // Of the records of each name the files that they come from, in the order of the records.
    using Origins = std::map<std::u16string, std::vector<std::size_t>>;

    struct Section {
        std::size_t owner = 0; // the file that its header comes from
        Origins origins;
    };

    // How many records the section on top had of the names that both had.
    using Counts = std::map<std::u16string, std::size_t>;

    static Origins originsOf(const Items& items, std::size_t file);
    static Counts commonNames(const Items& target, const Items& source);
    static std::vector<RecordAccount> decisions(const Items& target, const Items& source,
                                                const Counts& common, Origins& targetOrigins,
                                                Origins& sourceOrigins);

    Section& sectionOf(const std::u16string& key, bool isInstalled) {
        return (isInstalled ? installed_ : notInstalled_)[key];
    }

    LoadAccount& account_;
    std::map<std::u16string, Section> installed_;
    std::map<std::u16string, Section> notInstalled_;
};

/// The account that the readers of a retrieval tell; null when nobody asks.
inline LoadAccount* loadAccountOf(const LookupReadContext& context) noexcept {
    return context.account ? &context.account->account() : nullptr;
}

} // namespace reference::docparser
