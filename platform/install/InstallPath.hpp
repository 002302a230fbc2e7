#pragma once

#include "platform/Export.hpp"

#include <string>

namespace fl::filesystem {

/// Returns the folder that the application is installed in, as the default host services report it.
/// platform::setHostServices() does not change it.
DOCPARSER_PLATFORM_EXPORT std::u16string get_install_path();

} // namespace fl::filesystem
