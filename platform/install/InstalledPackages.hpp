#pragma once

#include "platform/Export.hpp"

#include <string>
#include <unordered_set>

namespace install::product_impl::utils {

/// The names of the hardware support packages that are installed under a support-package root.
/// \param root  the folder, without a separator at its end
/// \throws whatever the host throws
DOCPARSER_PLATFORM_EXPORT std::unordered_set<std::u16string>
getInstalledHardwareSupportPackages(const std::u16string& root);

} // namespace install::product_impl::utils
