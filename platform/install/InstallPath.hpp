#pragma once

#include "platform/Export.hpp"

#include <string>

namespace fl::filesystem {

/// The folder that the application is installed in, as the default host services report it.
///
/// It is a fact of the installation and does not follow platform::setHostServices().
DOCPARSER_PLATFORM_EXPORT std::u16string get_install_path();

} // namespace fl::filesystem
