#pragma once

#include "platform/Export.hpp"

#include <string>
#include <unordered_set>

namespace install::product_impl::utils {

/// Returns the names of the hardware support packages under a support-package root.
/// \param root  the folder, without a separator at its end
/// \throws whatever the host application throws
DOCPARSER_PLATFORM_EXPORT std::unordered_set<std::u16string>
getInstalledHardwareSupportPackages(const std::u16string& root);

} // namespace install::product_impl::utils
