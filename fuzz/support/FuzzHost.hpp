#pragma once

#include "platform/HostServices.hpp"

#include <string>

namespace docparser_fuzz {

/// A host with one installed product, "orchard", one support package, "kit", and a language that
/// the input chooses.
class FuzzHost : public platform::HostServices {
public:
    explicit FuzzHost(std::u16string language, std::u16string packageRoot);

    std::u16string installPath() const override;
    std::u16string docLanguage() const override;
    std::vector<std::u16string> supportedDocLanguages() const override;
    std::vector<std::shared_ptr<const docproduct::TopLevelDocProduct>>
    installedTopLevelDocProducts() const override;
    std::u16string supportPackageRoot() const override;
    std::unordered_set<std::u16string>
    installedHardwareSupportPackages(const std::u16string& root) const override;

private:
    std::u16string language_;
    std::u16string packageRoot_;
};

} // namespace docparser_fuzz
