#pragma once

#include "docparser/account/LoadAccount.hpp"
#include "tools/refdoc/check/findings/Finding.hpp"

#include <span>
#include <vector>

namespace refdoc::check {

// Rules about files and sections that the library does not use, according to its load account.

std::span<const Rule* const> fileRules();

/// Returns whether a file was read or has a finding of these rules. Other files are skipped for a
/// reason that is not an error.
/// \throws std::runtime_error  the retrieval failed: out of memory, or a host service failed
bool isChecked(const reference::docparser::FileAccount& account);

/// Returns whether a file was read, so that its content can be checked.
bool wasRead(const reference::docparser::FileAccount& account);

/// Adds the findings about a file that was not read, or about the sections of one that was.
/// \param file  the file or entry of the account
void addFileFindings(const reference::docparser::FileAccount& account, const SourceFile& file,
                     std::vector<Finding>& findings);

} // namespace refdoc::check
