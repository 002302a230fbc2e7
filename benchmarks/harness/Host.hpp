#pragma once

#include "platform/HostServices.hpp"

#include <utility>

namespace reference::docparser::benchmarks {

/// A host without products and support packages.
class Host final : public platform::HostServices {
public:
    Host(std::u16string language, std::vector<std::u16string> supported)
        : language_(std::move(language)), supported_(std::move(supported)) {}

    std::u16string installPath() const override { return {}; }
    std::u16string docLanguage() const override { return language_; }
    std::vector<std::u16string> supportedDocLanguages() const override { return supported_; }
    std::vector<std::shared_ptr<const docproduct::TopLevelDocProduct>>
    installedTopLevelDocProducts() const override {
        return {};
    }
    std::u16string supportPackageRoot() const override { return {}; }
    std::unordered_set<std::u16string>
    installedHardwareSupportPackages(const std::u16string&) const override {
        return {};
    }

private:
    std::u16string language_;
    std::vector<std::u16string> supported_;
};

} // namespace reference::docparser::benchmarks
