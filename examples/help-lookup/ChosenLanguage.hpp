#pragma once

#include <platform/HostServices.hpp>

#include <memory>
#include <mutex>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

/// Other host services, except that the user chooses the language.
class ChosenLanguage final : public platform::HostServices {
public:
    explicit ChosenLanguage(std::shared_ptr<const platform::HostServices> services)
        : services_(std::move(services)) {}

    /// Any thread may call. Calls of the library that are in progress may still use the old one.
    void choose(std::u16string language) {
        const std::lock_guard lock(mutex_);
        language_ = std::move(language);
    }

    std::u16string docLanguage() const override {
        const std::lock_guard lock(mutex_);
        return language_;
    }

    std::u16string installPath() const override { return services_->installPath(); }
    std::vector<std::u16string> supportedDocLanguages() const override {
        return services_->supportedDocLanguages();
    }
    std::vector<std::shared_ptr<const docproduct::TopLevelDocProduct>>
    installedTopLevelDocProducts() const override {
        return services_->installedTopLevelDocProducts();
    }
    std::u16string supportPackageRoot() const override { return services_->supportPackageRoot(); }
    std::unordered_set<std::u16string>
    installedHardwareSupportPackages(const std::u16string& root) const override {
        return services_->installedHardwareSupportPackages(root);
    }

private:
    std::shared_ptr<const platform::HostServices> services_;
    mutable std::mutex mutex_; // guards language_
    std::u16string language_ = u"en";
};
