#pragma once

#include "docparser/account/LoadAccount.hpp"
#include "tools/refdoc/translations/comparison/Report.hpp"

#include <string>
#include <vector>

namespace refdoc::translations {

/// Adds the files of a retrieval that exist but cannot be used.
/// \param language       the language of the files
/// \param isTranslation  of the files that are wanted; see FileAccount
void addDamaged(const reference::docparser::LoadAccount& account, const std::u16string& language,
                bool isTranslation, std::vector<DamagedFile>& damaged);

/// Returns the complaint about a damaged file, in UTF-8.
std::string complaintAbout(const DamagedFile& damaged);

} // namespace refdoc::translations
