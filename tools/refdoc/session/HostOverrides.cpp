#include "tools/refdoc/session/HostOverrides.hpp"

#include "docparser/DocResourceParser.hpp"
#include "platform/InstallationManifest.hpp"
#include "platform/path/Path.hpp"

#include <algorithm>
#include <utility>

namespace refdoc {

using platform::HostServices;
using reference::docparser::DocResourceParser;

LanguageOverrides::LanguageOverrides(std::shared_ptr<const HostServices> base,
                                     std::optional<std::u16string> language,
                                     std::optional<std::vector<std::u16string>> supported)
    : base_(std::move(base)), language_(std::move(language)), supported_(std::move(supported)) {}

std::u16string LanguageOverrides::installPath() const {
    return base_->installPath();
}

std::u16string LanguageOverrides::docLanguage() const {
    return language_ ? *language_ : base_->docLanguage();
}

std::vector<std::u16string> LanguageOverrides::supportedDocLanguages() const {
    std::vector<std::u16string> languages =
        supported_ ? *supported_ : base_->supportedDocLanguages();
    if (language_ && std::ranges::find(languages, *language_) == languages.end())
        languages.push_back(*language_);
    return languages;
}

std::vector<std::shared_ptr<const docproduct::TopLevelDocProduct>>
LanguageOverrides::installedTopLevelDocProducts() const {
    return base_->installedTopLevelDocProducts();
}

std::u16string LanguageOverrides::supportPackageRoot() const {
    return base_->supportPackageRoot();
}

std::unordered_set<std::u16string>
LanguageOverrides::installedHardwareSupportPackages(const std::u16string& root) const {
    return base_->installedHardwareSupportPackages(root);
}

std::shared_ptr<const HostServices> servicesBehind(const Options& options) {
    if (options.installFolder)
        return std::make_shared<platform::InstallationManifest>(*options.installFolder);
    return platform::defaultHostServices();
}

void applyOptions(const Options& options) {
    const std::shared_ptr<const HostServices> services = servicesBehind(options);
    // Some operations take a failing host for one without packages or languages; a malformed
    // manifest is reported here, before it can look like an empty one.
    services->docLanguage();
    platform::setHostServices(std::make_shared<LanguageOverrides>(services, options.language,
                                                                  options.supportedLanguages));

    if (options.referenceRoot)
        DocResourceParser::setReferenceRoot(*options.referenceRoot);
    else if (options.installFolder)
        DocResourceParser::setReferenceRoot(
            (fl::filesystem::path(*options.installFolder) / u"help").string());

    if (options.supportFolder)
        DocResourceParser::setSupportPackageRoot(*options.supportFolder);
    // Last, for a new support-package folder makes the library forget the test packages.
    if (options.installedProducts || options.supportPackages)
        DocResourceParser::setTestProducts(
            options.installedProducts.value_or(std::vector<std::u16string>()),
            options.supportPackages.value_or(std::vector<std::u16string>()));
}

} // namespace refdoc
