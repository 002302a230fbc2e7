#include "platform/install/InstalledPackages.hpp"

#include "platform/HostServices.hpp"

namespace install::product_impl::utils {

std::unordered_set<std::u16string> getInstalledHardwareSupportPackages(const std::u16string& root) {
    return platform::hostServices()->installedHardwareSupportPackages(root);
}

} // namespace install::product_impl::utils
