#pragma once

#include "docparser/account/LoadAccount.hpp"
#include "tools/refdoc/check/rules/Finding.hpp"
#include "tools/refdoc/check/rules/Questions.hpp"
#include "tools/refdoc/session/SourceTexts.hpp"

#include <vector>

namespace refdoc::check {

/// Checks the content of a file that the library has read, and answers what is asked of it.
/// \param account  what became of the file
void checkContent(const reference::docparser::FileAccount& account, const SourceFile& file,
                  SourceTexts& texts, Questions& questions, std::vector<Finding>& findings);

} // namespace refdoc::check
