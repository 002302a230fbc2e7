#pragma once

#include "platform/Export.hpp"
#include "platform/docproduct/TopLevelDocProduct.hpp"

#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

namespace platform {

/// What only the host application can know: the one seam between it and the libraries here.
///
/// The answers are asked for at each use, on whatever thread needs them, so an implementation is
/// thread-safe. It may throw; the header of each operation that asks says where that ends. It must
/// not call the operation that it is asked by: some of them hold a lock while they ask.
class DOCPARSER_PLATFORM_EXPORT HostServices {
public:
    virtual ~HostServices();

    /// The folder that the application is installed in.
    virtual std::u16string installPath() const = 0;

    /// The language that documentation is shown in: "en", "ja", "zh_CN", ...
    virtual std::u16string docLanguage() const = 0;

    /// Every language that documentation can be shown in, English included.
    virtual std::vector<std::u16string> supportedDocLanguages() const = 0;

    /// The installed products that stand at the top level of the documentation.
    virtual std::vector<std::shared_ptr<const docproduct::TopLevelDocProduct>>
    installedTopLevelDocProducts() const = 0;

    /// The folder that support packages are installed in; empty when there is none.
    virtual std::u16string supportPackageRoot() const = 0;

    /// The hardware support packages that are installed under a support-package root.
    /// \param root  the folder, without a separator at its end
    virtual std::unordered_set<std::u16string>
    installedHardwareSupportPackages(const std::u16string& root) const = 0;
};

/// Makes `services` the answers of the whole process; null goes back to the default, an
/// InstallationManifest of the folder that this library is installed in.
///
/// Calls under way keep the services that they began with. Any thread may call.
DOCPARSER_PLATFORM_EXPORT void setHostServices(std::shared_ptr<const HostServices> services);

/// The services in force, never null; the caller keeps them alive as long as it holds the pointer.
DOCPARSER_PLATFORM_EXPORT std::shared_ptr<const HostServices> hostServices();

/// The services that are in force until a host sets its own, always the same object.
DOCPARSER_PLATFORM_EXPORT std::shared_ptr<const HostServices> defaultHostServices();

} // namespace platform
