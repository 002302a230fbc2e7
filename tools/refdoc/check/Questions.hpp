#pragma once

#include "docparser/account/LoadAccount.hpp"
#include "tools/refdoc/check/Finding.hpp"

#include <boost/json/value.hpp>

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <tuple>
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

    auto operator<=>(const RecordKey&) const = default;
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
    RecordKey record; ///< all empty: the section itself
    std::string message;
    bool isAskedOnce; ///< the first file that can answer bears the finding alone

    /// A question that was asked in another language is the same.
    auto operator<=>(const SectionQuestion& other) const {
        return std::tie(rule, record) <=> std::tie(other.rule, other.record);
    }
    bool operator==(const SectionQuestion& other) const {
        return rule == other.rule && record == other.record;
    }
};

/// All that is asked before the files are read.
class Questions {
public:
    /// Asks something of any file with this section, unless it has been asked before.
    /// \param isAskedOnce   the first file that can answer bears the finding alone
    /// \param makeMessage   makeMessage() is the finding's message
    template <class MakeMessage>
    void askSection(FileRole role, const std::u16string& section, RuleId rule, RecordKey record,
                    bool isAskedOnce, MakeMessage makeMessage) {
        auto& questions = sections_[{role, section}];
        SectionQuestion question{rule, std::move(record), {}, isAskedOnce};
        const auto place = questions.lower_bound(question);
        if (place != questions.end() && *place == question)
            return;
        question.message = makeMessage();
        questions.insert(place, std::move(question));
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
    using Asked = std::map<std::pair<FileRole, std::u16string>, std::set<SectionQuestion>>;
    using ByHref = std::multimap<std::u16string, RecordAnswer>;
    using ByName = std::map<std::u16string, ByHref>;

    void answerRecords(const SectionAccount& section, const boost::json::value& document,
                       ByName& names);

    Asked sections_;
    std::set<const SectionQuestion*> answered_; // of those that are asked once
    std::map<SourceFile, std::map<std::u16string, ByName>> records_;
};

} // namespace refdoc::check
