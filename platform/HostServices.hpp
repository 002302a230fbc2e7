#pragma once

#include "platform/SeamExport.hpp"
#include "platform/docproduct/TopLevelDocProduct.hpp"

#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

namespace platform {

/// Provides what only the host application knows: its folder, language, installed products and
/// support packages.
///
/// Each function is called whenever its answer is needed, on any thread and on several at a time.
/// An implementation is thread-safe and caches answers that take long to find. Some functions are
/// called while the caller holds a lock: an implementation that calls the same operation of the
/// library deadlocks. It may throw; the header of each operation says what happens then.
///
/// All strings are UTF-16, except those of the products, which are UTF-8.
///
/// The functions of this class stay the same within a major version, because a new one would be
/// missing in host applications that were compiled earlier. Further functions will be in classes
/// derived from this one, which the library finds with dynamic_cast; a host application that does
/// not derive from them gets the behaviour of earlier versions.
class DOCPARSER_SEAM_EXPORT HostServices {
public:
    virtual ~HostServices();

    /// Returns the folder that the application is installed in. No operation of the parser calls
    /// it: fl::filesystem::get_install_path(), which determines the default reference root when the
    /// library is loaded, always asks the default services. Set another root with
    /// DocResourceParser::setReferenceRoot().
    virtual std::u16string installPath() const = 0;

    /// Returns the language that documentation is shown in, spelled as in file names: "en", "ja",
    /// "zh_CN".
    virtual std::u16string docLanguage() const = 0;

    /// Returns all languages that documentation can be shown in, English included, in any order. A
    /// file is a translation if its name ends in "_" and one of these except English.
    virtual std::vector<std::u16string> supportedDocLanguages() const = 0;

    /// Returns the installed products at the top level of the documentation. Called often, so an
    /// implementation should create the objects once and copy only the pointers. Null pointers are
    /// ignored.
    virtual std::vector<std::shared_ptr<const docproduct::TopLevelDocProduct>>
    installedTopLevelDocProducts() const = 0;

    /// Returns the folder that support packages are installed in; empty if there is none. The
    /// folder need not exist, and a separator at its end is ignored. The library caches the result.
    virtual std::u16string supportPackageRoot() const = 0;

    /// Returns the section keys of the hardware support packages that are installed under a
    /// support-package root. The library caches the result; an exception counts as no packages.
    /// \param root  the folder, without a separator at its end
    virtual std::unordered_set<std::u16string>
    installedHardwareSupportPackages(const std::u16string& root) const = 0;
};

/// Sets the services of the whole process. Null restores the default, an InstallationManifest of
/// the folder that this library is installed in.
///
/// Calls in progress keep the services that they started with. Any thread may call. What the
/// library has cached of the earlier services stays until
/// DocResourceParser::clearSupportPackageCaches() is called; the reference root does not change.
DOCPARSER_SEAM_EXPORT void setHostServices(std::shared_ptr<const HostServices> services);

/// Returns the current services, never null; they live at least as long as the pointer.
DOCPARSER_SEAM_EXPORT std::shared_ptr<const HostServices> hostServices();

/// Returns the services that are used until the host application sets its own; always the same
/// object.
DOCPARSER_SEAM_EXPORT std::shared_ptr<const HostServices> defaultHostServices();

} // namespace platform
