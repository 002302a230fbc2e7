#pragma once

#include "docparser/account/LoadAccount.hpp"
#include "tools/refdoc/check/findings/Finding.hpp"

#include <optional>
#include <span>
#include <vector>

namespace refdoc::check {

// Rules about folders, files and sections that the library does not use, according to its load
// account.

std::span<const Rule* const> fileRules();

/// Returns whether a file was read, so that its content can be checked.
bool wasRead(const reference::docparser::FileAccount& account);

/// Returns the finding about a file that was not read; none if it was skipped for a reason that is
/// not an error.
/// \throws std::runtime_error  the retrieval failed: out of memory, or a host service failed
std::optional<Finding> findUnreadable(const reference::docparser::FileAccount& account);

/// Returns the findings about sections of a file whose key another section has.
/// \param file  the file or entry of the account
std::vector<Finding> findDroppedSections(const reference::docparser::FileAccount& account,
                                         const SourceFile& file);

/// Adds the findings about folders of the current reference root that are missing or misnamed.
/// \param hasNames  whether the full resources document names, which need lookup records
void addFolderFindings(bool hasNames, Findings& findings);

} // namespace refdoc::check
