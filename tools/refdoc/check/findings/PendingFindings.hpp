#pragma once

#include "docparser/account/LoadAccount.hpp"
#include "tools/refdoc/check/findings/Finding.hpp"

#include <boost/json/value.hpp>

#include <atomic>
#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace refdoc::check {

/// What a pending finding is about: a record by its name and href, an item by its href, a see-also
/// link of an item by its URL, or, if all are empty, the section.
struct RecordKey {
    std::u16string_view name{};
    std::u16string_view href{};
    std::u16string_view link{};
};

/// Findings about what the library returned, until the files are read that it comes from.
class PendingFindings {
public:
    /// Which of the files with the section report a finding.
    enum class Reporter {
        EveryFile, ///< each file that has the record
        FirstFile  ///< the first file that is read and has the record
    };

    /// Adds a finding, unless the record has one of the same rule.
    /// \param cause  see Finding
    void add(const Rule& rule, reference::docparser::FileRole role, const std::u16string& section,
             const RecordKey& record, Reporter reporter, std::string message,
             std::string cause = {});

    /// Adds to `findings` what is pending about the records of a file. Several threads may call at
    /// a time, with files that have different roles or no section in common.
    /// \param account   of the file, which the library has read
    /// \param document  the file's content
    void report(const reference::docparser::FileAccount& account,
                const boost::json::value& document, std::vector<Finding>& findings);

private:
    struct Pending {
        const Rule* rule;
        std::string message;
        std::string cause;
        Reporter reporter;
        std::size_t reportedBy = 0; ///< number of the section that reported it last
    };
    // By a key that is made of the bytes of the JSON text.
    using Section = std::unordered_multimap<std::string, Pending>;

    class SectionReport;

    std::map<reference::docparser::FileRole, std::map<std::u16string, Section>> sections_;
    std::atomic<std::size_t> sectionCount_ = 0; // sections of files that were compared
};

} // namespace refdoc::check
