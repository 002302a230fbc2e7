#pragma once

#include "docparser/account/FailureReason.hpp"
#include "docparser/account/LoadAccount.hpp"
#include "docparser/shared/RetrievalObserver.hpp"

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace reference::docparser {

/// Records one retrieval into an account of its own.
///
/// A failure to record, such as a failed allocation, ends the recording: later events are ignored
/// and the account is not complete.
class AccountRecorder final : public RetrievalObserver {
public:
    /// Appends the recorded files to an account and adjusts their indices. Call it once, at the
    /// end.
    void appendTo(LoadAccount& target) noexcept;

    void fileSkipped(const std::u16string& folder, const std::u16string& name,
                     Fate fate) noexcept override;
    void fileConsidered(FileRole role, const std::u16string& name,
                        bool isTranslation) noexcept override;
    void readFailed(const std::exception_ptr& cause) noexcept override;
    void fileRead(const std::string& text) noexcept override;
    void sectionFound(const std::u16string& key, bool isFirstOfKey) noexcept override;
    void sectionPlaced(const std::u16string& key, SectionFate fate,
                       bool isInstalled) noexcept override;
    void itemReplaced(const std::u16string& href) noexcept override;
    void nameAdded(const std::u16string& name, const LookupRecords& source) noexcept override;
    void recordAppended(const std::u16string& name, const LookupRecords& target,
                        const LookupRecords& source, std::size_t index) noexcept override;
    void recordDropped(const std::u16string& name, const LookupRecords& target,
                       const LookupRecords& source, std::size_t index) noexcept override;
    void fileConcluded(const std::exception_ptr& failure) noexcept override;

private:
    using FileIndex = std::size_t;

    struct OpenFile {
        FileIndex index;
        std::string text{};
        std::optional<FailureReason> readFailure{};
        // The first section of each key, as an index into the account's sections.
        std::unordered_map<std::u16string, std::size_t> sections{};
    };

    // Where the records of one section of the result come from.
    struct Section {
        FileIndex owner = 0; // the file of its header
        // Of the names whose records do not all come from the owner: the file of each record.
        std::map<std::u16string, std::vector<FileIndex>> origins{};

        FileIndex originOf(const std::u16string& name, std::size_t index) const;
        std::vector<FileIndex>& originsOf(const std::u16string& name, std::size_t count);
    };

    // The target's records of the name that is being merged.
    struct NameIndex {
        const std::u16string* name = nullptr;
        std::size_t size = 0; // how many of the records are in `byHref`
        std::unordered_map<std::u16string_view, std::size_t> byHref{};

        // Returns the index of the first record with the href, if there is one.
        std::optional<std::size_t> find(const std::u16string& mergedName,
                                        const LookupRecords& target, const std::u16string& href);
    };

    template <class Step>
    void record(Step step) noexcept;
    FileAccount& addFile(FileRole role, const std::u16string& name);
    FileAccount& current() { return account_.files[open_.back().index]; }
    SectionAccount& placedSection() { return current().sections[placedSection_]; }

    LoadAccount account_;
    std::vector<OpenFile> open_; // the current file is last, after its package
    std::map<std::pair<bool, std::u16string>, Section> sections_; // of the result, by isInstalled
    // The sections that were combined last.
    std::size_t placedSection_ = 0; // its index in the current file
    Section* target_ = nullptr;
    Section source_;
    NameIndex targetHrefs_;
};

} // namespace reference::docparser
