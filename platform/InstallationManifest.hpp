#pragma once

#include "platform/HostServices.hpp"
#include "platform/SeamExport.hpp"

#include <memory>
#include <mutex>
#include <string>
#include <unordered_set>
#include <vector>

namespace platform {

/// Host services that read their answers from `installation.json` in an install folder.
///
/// The file is one JSON object; all its keys are optional and unknown keys are left alone:
///
/// | key                       | kind             | absent          |
/// |---------------------------|------------------|-----------------|
/// | "docLanguage"             | string           | "en"            |
/// | "supportedDocLanguages"   | array of strings | "en" alone      |
/// | "topLevelProducts"        | array of objects | no product      |
/// | "supportPackageRoot"      | string           | no such folder  |
/// | "hardwareSupportPackages" | array of strings | no package      |
///
/// A product has a "shortName" and may have "displayName", "helpLocation", "baseCode",
/// "altShortName", "availability" (strings) and "families" (array of strings). A relative
/// "supportPackageRoot" starts at the install folder; an empty one is as good as none. Of a key
/// that stands twice in an object the last counts.
///
/// Without the file there is English alone and nothing is installed. The file is read at the first
/// question, once; the product objects are the same at each call. While it is malformed, can't be
/// read or is larger than ReadLimits::fileBytes, each question but installPath() reads it anew and
/// throws std::runtime_error, whose text names the file and the line and column, or the key.
class DOCPARSER_SEAM_EXPORT InstallationManifest final : public HostServices {
public:
    /// \param installFolder  the folder that holds the manifest; not touched before the first
    ///                       question
    explicit InstallationManifest(std::u16string installFolder);
    ~InstallationManifest() override;

    std::u16string installPath() const override;
    std::u16string docLanguage() const override;
    std::vector<std::u16string> supportedDocLanguages() const override;
    std::vector<std::shared_ptr<const docproduct::TopLevelDocProduct>>
    installedTopLevelDocProducts() const override;
    std::u16string supportPackageRoot() const override;

    /// The packages that the manifest names, whatever the root.
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
