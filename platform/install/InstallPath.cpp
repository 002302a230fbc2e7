#include "platform/install/InstallPath.hpp"

#include "platform/HostServices.hpp"

namespace fl::filesystem {

std::u16string get_install_path() {
    return platform::defaultHostServices()->installPath();
}

} // namespace fl::filesystem
