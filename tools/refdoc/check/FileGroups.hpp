#pragma once

#include "docparser/account/LoadAccount.hpp"
#include "tools/refdoc/session/SourceTexts.hpp"

#include <map>
#include <vector>

namespace refdoc::check {

using CheckedFiles = std::map<SourceFile, reference::docparser::FileAccount>;
using FileGroup = std::vector<const CheckedFiles::value_type*>;

/// Returns the files in groups, such that files of the same type with a common section are in the
/// same group. Threads can check different groups at a time, because a finding that is pending
/// about a section is reported by one group only.
///
/// In a group, English files come first, because they report what translations share with them;
/// apart from that, files have the order of the map. Groups have the order of their first files.
std::vector<FileGroup> groupsOf(const CheckedFiles& files);

} // namespace refdoc::check
