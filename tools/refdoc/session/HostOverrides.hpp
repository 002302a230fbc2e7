#pragma once

#include "platform/HostServices.hpp"
#include "tools/refdoc/cli/Options.hpp"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace refdoc {

/// Returns the host services that the options select, without the languages that the options set.
std::shared_ptr<const platform::HostServices> selectedServices(const Options& options);

/// Returns the languages of --langs; absent if it was not given. "auto" means those of the files in
/// the current folders.
/// \throws whatever the host services throw
std::optional<std::vector<std::u16string>> selectedLanguages(const Options& options);

/// Applies the options to the process: host services, reference root, support-package folder, test
/// products.
/// \throws UsageError          the language is not supported, and the options ask for one that is
/// \throws std::runtime_error  the installation manifest is malformed, even if the command would
///                             not have needed it
void applyOptions(const Options& options);

/// Makes a language current on this thread while the object exists; it joins the supported
/// languages. Other threads keep theirs, also those that this one starts.
class LanguageGuard {
public:
    explicit LanguageGuard(const std::u16string& language);
    ~LanguageGuard();
    LanguageGuard(const LanguageGuard&) = delete;
    LanguageGuard& operator=(const LanguageGuard&) = delete;

private:
    const std::shared_ptr<const platform::HostServices> services_;
    // The services of the guard around it; null without one.
    const std::shared_ptr<const platform::HostServices>* before_;
};

} // namespace refdoc
