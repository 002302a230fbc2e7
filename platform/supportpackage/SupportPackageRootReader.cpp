#include "platform/supportpackage/SupportPackageRootReader.hpp"

#include "platform/HostServices.hpp"

namespace supportpackage {

std::u16string SupportPackageRootReader::getSupportPackageRootNoCreate() const {
    return platform::hostServices()->supportPackageRoot();
}

} // namespace supportpackage
