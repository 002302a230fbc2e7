#pragma once

#include "platform/HostServices.hpp"

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

namespace platform {

/// The services of another host, with other languages. For programs that let their users choose a
/// language.
class LanguageOverrides final : public HostServices {
public:
    /// \param base       provides what is not overridden; not null
    /// \param language   the documentation language, which joins the supported ones; absent for
    ///                   that of `base`
    /// \param supported  the supported languages; absent for those of `base`
    LanguageOverrides(std::shared_ptr<const HostServices> base,
                      std::optional<std::u16string> language,
                      std::optional<std::vector<std::u16string>> supported)
        : base_(std::move(base)),
          language_(std::move(language)),
          supported_(std::move(supported)) {}

    std::u16string docLanguage() const override {
        return language_ ? *language_ : base_->docLanguage();
    }

    std::vector<std::u16string> supportedDocLanguages() const override {
        std::vector<std::u16string> languages =
            supported_ ? *supported_ : base_->supportedDocLanguages();
        if (language_ && std::ranges::find(languages, *language_) == languages.end())
            languages.push_back(*language_);
        return languages;
    }

    std::u16string installPath() const override { return base_->installPath(); }

    std::vector<std::shared_ptr<const docproduct::TopLevelDocProduct>>
    installedTopLevelDocProducts() const override {
        return base_->installedTopLevelDocProducts();
    }

    std::u16string supportPackageRoot() const override { return base_->supportPackageRoot(); }

    std::unordered_set<std::u16string>
    installedHardwareSupportPackages(const std::u16string& root) const override {
        return base_->installedHardwareSupportPackages(root);
    }

private:
    std::shared_ptr<const HostServices> base_;
    std::optional<std::u16string> language_;
    std::optional<std::vector<std::u16string>> supported_;
};

} // namespace platform
