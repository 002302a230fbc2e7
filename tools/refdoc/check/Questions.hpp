#pragma once

#include "docparser/account/LoadAccount.hpp"
#include "tools/refdoc/check/Finding.hpp"

#include <boost/json/value.hpp>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace refdoc::check {

using reference::docparser::FileRole;
using reference::docparser::SectionAccount;

/// What a question about a record goes by. What is empty counts for nothing.
struct RecordKey {
    std::u16string name{}; ///< of a lookup record
    std::u16string href{};
    std::u16string link{}; ///< of an item: the see-also link that is meant

    bool operator==(const RecordKey&) const = default;
};

struct RecordKeyHash {
    std::size_t operator()(const RecordKey& key) const noexcept {
        const std::hash<std::u16string> hash;
        return (hash(key.name) * 31 + hash(key.href)) * 31 + hash(key.link);
    }
};

/// Where a record stands in one file, and what it says.
struct RecordAnswer {
    std::string pointer;
    std::size_t contentHash = 0;
};

/// A finding that any file with the section may have to bear. Asked before the files are read,
/// answered while they are.
struct SectionQuestion {
    RuleId rule;
    std::string message;
    bool isAskedOnce; ///< the first file that can answer bears the finding alone
};

/// The questions about a section, by the record they are about; an empty key is the section itself.
using SectionQuestions = std::unordered_multimap<RecordKey, SectionQuestion, RecordKeyHash>;

/// All that is asked before the files are read.
class Questions {
public:
    /// Asks something of any file with this section, unless it has been asked before.
    /// \param isAskedOnce   the first file that can answer bears the finding alone
    /// \param makeMessage   makeMessage() is the finding's message
    template <class MakeMessage>
    void askSection(FileRole role, const std::u16string& section, RuleId rule, RecordKey record,
                    bool isAskedOnce, MakeMessage makeMessage) {
        SectionQuestions& questions = sections_[role][section];
        const auto [first, last] = questions.equal_range(record);
        const bool isAsked = std::any_of(
            first, last, [&](const auto& question) { return question.second.rule == rule; });
        if (!isAsked)
            questions.emplace(std::move(record), SectionQuestion{rule, makeMessage(), isAskedOnce});
    }

    /// Asks for all records of one name in a section of a file.
    void askRecords(const SourceFile& file, const std::u16string& section,
                    const std::u16string& name) {
        records_[file][section].try_emplace(name);
    }

    /// Answers what is asked of this file.
    /// \param sections  as the library saw them
    /// \param document  the file's content
    void answer(const SourceFile& file, FileRole role, const std::vector<SectionAccount>& sections,
                const boost::json::value& document, std::vector<Finding>& findings);

    /// The records of a name in a section of a file, by href, in file order. Only for what was
    /// asked, after the file was read.
    const std::multimap<std::u16string, RecordAnswer>& records(const SourceFile& file,
                                                               const std::u16string& section,
                                                               const std::u16string& name) const;

private:
    struct FileHash {
        std::size_t operator()(const SourceFile& file) const noexcept {
            const std::hash<std::u16string> hash;
            return hash(file.path) * 31 + hash(file.entry);
        }
    };
    using Asked = std::map<FileRole, std::map<std::u16string, SectionQuestions>>;
    using ByHref = std::multimap<std::u16string, RecordAnswer>;
    using ByName = std::map<std::u16string, ByHref>;

    void answerRecords(const SectionAccount& section, const boost::json::value& document,
                       ByName& names);

    Asked sections_;
    std::unordered_set<const SectionQuestion*> answered_; // of those that are asked once
    std::unordered_map<SourceFile, std::map<std::u16string, ByName>, FileHash> records_;
};

} // namespace refdoc::check
