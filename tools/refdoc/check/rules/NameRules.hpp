#pragma once

#include "docparser/account/LoadAccount.hpp"
#include "tools/refdoc/check/rules/Finding.hpp"
#include "tools/refdoc/session/SourceTexts.hpp"

#include <set>
#include <string>
#include <vector>

namespace refdoc::check {

// Findings about the names of files and entries.

/// A file or entry that lies where resource files lie.
struct NamedFile {
    SourceFile source;
    bool isIgnored; ///< the library passed it over because of its name

    auto operator<=>(const NamedFile&) const = default;
};

/// The files and entries that the lookup retrieval of an account considered.
void addLookupFiles(const reference::docparser::LoadAccount& account,
                    const std::vector<SourceFile>& sources, std::set<NamedFile>& files);

/// The files of a folder of full resources.
std::set<NamedFile> listResourceFolder(const std::u16string& folder);

/// What is ignored though it looks like a resource file.
/// \param texts  for a look at the first bytes
void addIgnoredFiles(const std::set<NamedFile>& files, SourceTexts& texts,
                     std::vector<Finding>& findings);

/// What looks like a translation and is none.
/// \param files      of one folder, or entries and files together
/// \param languages  all that are supported
void addLanguageFindings(const std::set<NamedFile>& files,
                         const std::vector<std::u16string>& languages,
                         std::vector<Finding>& findings);

/// Packages whose number of entries makes a difference that was hardly meant.
/// \param files  with all entries of the packages
void addPackageFindings(const std::set<NamedFile>& files,
                        const std::vector<std::u16string>& languages,
                        std::vector<Finding>& findings);

} // namespace refdoc::check
