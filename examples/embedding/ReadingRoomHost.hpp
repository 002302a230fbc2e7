#pragma once

#include <platform/HostServices.hpp>

#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

/// The host services of the reading room. Immutable after construction, so any thread may call at
/// any time.
class ReadingRoomHost final : public platform::HostServices {
public:
    /// \param installFolder  contains "help" and "supportpackages"
    /// \param language       the language to read in: "en", "de" or "ja"
    ReadingRoomHost(std::u16string installFolder, std::u16string language);

    std::u16string installPath() const override;
    std::u16string docLanguage() const override;
    std::vector<std::u16string> supportedDocLanguages() const override;
    std::vector<std::shared_ptr<const docproduct::TopLevelDocProduct>>
    installedTopLevelDocProducts() const override;
    std::u16string supportPackageRoot() const override;
    std::unordered_set<std::u16string>
    installedHardwareSupportPackages(const std::u16string& root) const override;

private:
    std::u16string installFolder_;
    std::u16string language_;
    std::vector<std::shared_ptr<const docproduct::TopLevelDocProduct>> products_;
};
