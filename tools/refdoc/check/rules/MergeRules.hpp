#pragma once

#include "docparser/account/LoadAccount.hpp"
#include "tools/refdoc/check/findings/Finding.hpp"
#include "tools/refdoc/check/findings/PathNames.hpp"

#include <boost/json/value.hpp>

#include <compare>
#include <cstddef>
#include <map>
#include <set>
#include <span>
#include <string>
#include <vector>

namespace refdoc::check {

// Rules about lookup records that are lost when the library merges sections.

std::span<const Rule* const> mergeRules();

/// The records that were lost, from the load accounts of all languages. A record that a translation
/// replaces is not lost, nor is one that is equal to the record that it lost to.
class MergeLosses {
public:
    /// Adds the losses of an account.
    /// \param sources  the files of the account, in its order
    void add(const reference::docparser::LoadAccount& account,
             const std::vector<SourceFile>& sources);

    /// Reads the records that are compared from a file, after all accounts have been added. Several
    /// threads may call at a time, with different files.
    /// \param sections  the file's sections, as the library read them
    /// \returns         the locations of these records, whose positions the caller finds; valid
    ///                  as long as this object
    std::vector<Location*> read(const SourceFile& file,
                                const std::vector<reference::docparser::SectionAccount>& sections,
                                const boost::json::value& document);

    /// Adds the findings, after all files have been read.
    void report(const PathNames& names, Findings& findings) const;

private:
    struct Record {
        Location location{};
        std::size_t contentHash = 0;
    };
    using Records = std::multimap<std::u16string, Record>;             // by href, in file order
    using RecordsByName = std::map<std::string, Records, std::less<>>; // by UTF-8 name
    using FileRecords = std::map<std::u16string, RecordsByName>;       // by section
    using Files = std::map<SourceFile, FileRecords>;

    // The records of one name in a file. Points into files_.
    struct Side {
        const SourceFile* file;
        const std::u16string* section;
        const std::string* name;
        const Records* records;

        auto operator<=>(const Side&) const = default;
    };

    struct Loss {
        Side loser;
        Side winner;
        std::u16string href;
        std::size_t occurrence; // which of the loser's records with this name and href
        bool isSameHref;        // the winner has the href; else it has as many records of the name
        bool isHidden;          // by a translation; else by another file of the same language

        auto operator<=>(const Loss&) const = default;
    };

    using FoundByFile = std::map<const SourceFile*, std::vector<Finding>>;

    void addSection(const reference::docparser::SectionAccount& section,
                    const reference::docparser::LoadAccount& account,
                    const std::vector<Files::value_type*>& files);
    static Side sideOf(Files::value_type& file, const std::u16string& section,
                       const std::string& name);
    static Location firstOf(const Records& records);
    static const Record* lostRecord(const Loss& loss);
    static bool hasEqual(const Loss& loss, const Record& lost);
    static void report(const Loss& loss, const Record& lost, const PathNames& names,
                       FoundByFile& found);

    std::set<Loss> losses_;
    Files files_; // all lookup files; losses point into it
};

} // namespace refdoc::check
