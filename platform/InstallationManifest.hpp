#pragma once

#include "platform/HostServices.hpp"
#include "platform/SeamExport.hpp"

#include <memory>
#include <mutex>
#include <string>
#include <unordered_set>
#include <vector>

namespace platform {

/// Host services that are described by `installation.json` in an install folder.
///
/// The file is one JSON object. All keys are optional; unknown keys are ignored:
///
/// | key                       | type             | default         |
/// |---------------------------|------------------|-----------------|
/// | "docLanguage"             | string           | "en"            |
/// | "supportedDocLanguages"   | array of strings | "en" only       |
/// | "topLevelProducts"        | array of objects | no products     |
/// | "supportPackageRoot"      | string           | no folder       |
/// | "hardwareSupportPackages" | array of strings | no packages     |
///
/// A product has a "shortName" and may have "displayName", "helpLocation", "baseCode",
/// "altShortName", "availability" (strings) and "families" (array of strings). A relative
/// "supportPackageRoot" is relative to the install folder; an empty one means no folder. If a key
/// occurs twice in an object, the last one is used.
///
/// Without the file, English is the only language and nothing is installed. The file is read once,
/// by the first call; each call returns the same product objects. While the file is malformed,
/// unreadable or larger than ReadLimits::fileBytes, every call except installPath() reads it again
/// and throws std::runtime_error, which names the file and the line and column, or the key.
class DOCPARSER_SEAM_EXPORT InstallationManifest final : public HostServices {
public:
    /// \param installFolder  the folder of the manifest; not accessed before the first call
    explicit InstallationManifest(std::u16string installFolder);
    ~InstallationManifest() override;

    std::u16string installPath() const override;
    std::u16string docLanguage() const override;
    std::vector<std::u16string> supportedDocLanguages() const override;
    std::vector<std::shared_ptr<const docproduct::TopLevelDocProduct>>
    installedTopLevelDocProducts() const override;
    std::u16string supportPackageRoot() const override;

    /// Returns the packages that the manifest lists; `root` is ignored.
    std::unordered_set<std::u16string>
    installedHardwareSupportPackages(const std::u16string& root) const override;

private:
    struct Content;

    std::shared_ptr<const Content> content() const;

    std::u16string installFolder_;
    mutable std::mutex mutex_;                       // guards content_
    mutable std::shared_ptr<const Content> content_; // null until the file has been read
};

} // namespace platform
