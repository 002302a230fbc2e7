#pragma once

#include "platform/HostServices.hpp"

#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

namespace docparser_tests {

/// A German host with one product, "hostproduct", and one support package, "hostkit". Unlike
/// FakeHost it does not record questions. Thread-safe.
class StressHost : public platform::HostServices {
public:
    explicit StressHost(std::u16string packageRoot);

    std::u16string installPath() const override;
    std::u16string docLanguage() const override;
    std::vector<std::u16string> supportedDocLanguages() const override;
    std::vector<std::shared_ptr<const docproduct::TopLevelDocProduct>>
    installedTopLevelDocProducts() const override;
    std::u16string supportPackageRoot() const override;
    std::unordered_set<std::u16string>
    installedHardwareSupportPackages(const std::u16string& root) const override;

private:
    std::u16string packageRoot_;
    std::vector<std::shared_ptr<const docproduct::TopLevelDocProduct>> products_;
};

} // namespace docparser_tests
