#pragma once

#include "docparser/account/LoadAccount.hpp"

#include <string>

namespace refdoc {

/// Makes the library find no files of support packages. Without a support-package root, it would
/// look for them in the folder "help" of the root of the file system.
void disableSupportFolder();

/// Returns the folder of the support packages' resource files; empty if there is none.
/// \throws whatever the host services throw
std::u16string supportFolder();

/// Removes what a retrieval of full resources recorded about the folder that does not exist.
void removeDisabledFolder(reference::docparser::LoadAccount& account);

} // namespace refdoc
