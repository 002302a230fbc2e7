#pragma once

#include "platform/SeamExport.hpp"
#include "platform/docproduct/TopLevelDocProduct.hpp"

#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

namespace platform {

/// What only the host application can know: the one seam between it and the libraries here.
///
/// The answers are asked for at each use, on whatever thread needs them and several at a time: an
/// implementation is thread-safe, and keeps what takes long to find. Some are asked for under a
/// lock of whoever asks; an answer that called the asking operation would wait for itself. It may
/// throw; the header of each operation that asks says where that ends.
///
/// All texts are UTF-16 but those of the products, which are UTF-8.
class DOCPARSER_SEAM_EXPORT HostServices {
public:
    virtual ~HostServices();

    /// The folder that the application is installed in. fl::filesystem::get_install_path() asks the
    /// default services for it, and no other ones.
    virtual std::u16string installPath() const = 0;

    /// The language that documentation is shown in: "en", "ja", "zh_CN", ... It is spelled as the
    /// names of the files spell it.
    virtual std::u16string docLanguage() const = 0;

    /// Every language that documentation can be shown in, English included, in any order. What
    /// makes a file a translation is a name that ends in "_" and one of these but English.
    virtual std::vector<std::u16string> supportedDocLanguages() const = 0;

    /// The installed products that stand at the top level of the documentation. Asked for
    /// often: the objects are best made beforehand, so that only their pointers are copied here.
    /// Null pointers are left out.
    virtual std::vector<std::shared_ptr<const docproduct::TopLevelDocProduct>>
    installedTopLevelDocProducts() const = 0;

    /// The folder that support packages are installed in; empty when there is none. It need not
    /// exist, and a separator at its end makes no difference. Whoever asks keeps the answer.
    virtual std::u16string supportPackageRoot() const = 0;

    /// The hardware support packages that are installed under a support-package root, by the keys
    /// of their sections. Whoever asks keeps the answer; a failure counts as no packages.
    /// \param root  the folder, without a separator at its end
    virtual std::unordered_set<std::u16string>
    installedHardwareSupportPackages(const std::u16string& root) const = 0;
};

/// Makes `services` the answers of the whole process; null goes back to the default, an
/// InstallationManifest of the folder that this library is installed in.
///
/// Calls under way keep the services that they began with. Any thread may call.
DOCPARSER_SEAM_EXPORT void setHostServices(std::shared_ptr<const HostServices> services);

/// The services in force, never null; the caller keeps them alive as long as it holds the pointer.
DOCPARSER_SEAM_EXPORT std::shared_ptr<const HostServices> hostServices();

/// The services that are in force until a host sets its own, always the same object.
DOCPARSER_SEAM_EXPORT std::shared_ptr<const HostServices> defaultHostServices();

} // namespace platform
