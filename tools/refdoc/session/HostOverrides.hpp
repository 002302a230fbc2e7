#pragma once

#include "platform/HostServices.hpp"
#include "tools/refdoc/cli/Options.hpp"

#include <memory>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

namespace refdoc {

/// Host services with other languages: everything else is what the services behind them say.
class LanguageOverrides final : public platform::HostServices {
public:
    /// \param base       asked for what is not overridden; not null
    /// \param language   the documentation language; joins the supported ones when it is not among
    ///                   them. Absent: the base's
    /// \param supported  the supported languages. Absent: the base's
    LanguageOverrides(std::shared_ptr<const platform::HostServices> base,
                      std::optional<std::u16string> language,
                      std::optional<std::vector<std::u16string>> supported);

    std::u16string installPath() const override;
    std::u16string docLanguage() const override;
    std::vector<std::u16string> supportedDocLanguages() const override;
    std::vector<std::shared_ptr<const docproduct::TopLevelDocProduct>>
    installedTopLevelDocProducts() const override;
    std::u16string supportPackageRoot() const override;
    std::unordered_set<std::u16string>
    installedHardwareSupportPackages(const std::u16string& root) const override;

private:
    std::shared_ptr<const platform::HostServices> base_;
    std::optional<std::u16string> language_;
    std::optional<std::vector<std::u16string>> supported_;
};

/// The services that the options choose, before any option overrules what they say.
std::shared_ptr<const platform::HostServices> servicesBehind(const Options& options);

/// Brings the process to the state that the options ask for: host services, reference root,
/// support-package folder, test products.
/// \throws std::runtime_error  the installation manifest is malformed, whether or not the command
///                             would have needed it
void applyOptions(const Options& options);

} // namespace refdoc
