#pragma once

#include "docparser/account/LoadAccount.hpp"
#include "tools/refdoc/check/findings/Finding.hpp"
#include "tools/refdoc/session/SourceTexts.hpp"

#include <set>
#include <span>
#include <string>
#include <vector>

namespace refdoc::check {

// Rules about the names of files and entries.

std::span<const Rule* const> nameRules();

/// A file or entry in a folder of resource files.
struct NamedFile {
    SourceFile source;
    bool isIgnored; ///< the library ignores it because of its name

    auto operator<=>(const NamedFile&) const = default;
};

/// Returns the name of the product that a file belongs to by its name, or that an entry belongs to
/// by the name of its package: without folders, extension and locale suffix.
std::u16string productNameOf(const SourceFile& file, const std::vector<std::u16string>& languages);

/// Adds the files and entries that the lookup retrieval of an account considered.
void addLookupFiles(const reference::docparser::LoadAccount& account,
                    const std::vector<SourceFile>& sources, std::set<NamedFile>& files);

/// Returns the files of a folder of full resources.
std::set<NamedFile> listResourceFolder(const std::u16string& folder);

/// Adds findings about ignored files that look like resource files.
/// \param texts  reads the first bytes of files
void addIgnoredFiles(const std::set<NamedFile>& files, SourceTexts& texts, Findings& findings);

/// Adds findings about files that look like translations but are not.
/// \param files      of one folder, including the entries of its packages
/// \param products   the names of all products
/// \param languages  all supported languages
void addLanguageFindings(const std::set<NamedFile>& files, const std::set<std::u16string>& products,
                         const std::vector<std::u16string>& languages, Findings& findings);

/// Adds findings about translated lookup files whose product name contains their language.
void addCutNames(const std::set<NamedFile>& files, const std::vector<std::u16string>& languages,
                 Findings& findings);

/// Adds findings about packages whose number of entries changes how they are read.
/// \param files  with all entries of the packages
void addPackageFindings(const std::set<NamedFile>& files,
                        const std::vector<std::u16string>& languages, Findings& findings);

/// Adds findings about files of the support-package folder that are never read.
/// \param considered  the paths of all files that the retrievals considered
void addShadowedFiles(const std::set<NamedFile>& files, const std::set<std::u16string>& considered,
                      Findings& findings);

} // namespace refdoc::check
