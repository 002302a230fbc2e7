#include "tools/refdoc/session/HostOverrides.hpp"

#include "docparser/DocResourceParser.hpp"
#include "platform/InstallationManifest.hpp"
#include "platform/LanguageOverrides.hpp"
#include "platform/path/Path.hpp"
#include "tools/refdoc/session/LanguageNote.hpp"
#include "tools/refdoc/session/Languages.hpp"
#include "tools/refdoc/session/SupportFolder.hpp"

#include <utility>

namespace refdoc {

using platform::HostServices;
using platform::LanguageOverrides;
using reference::docparser::DocResourceParser;

namespace {

void applyFolders(const Options& options, const HostServices& services) {
    if (options.referenceRoot)
        DocResourceParser::setReferenceRoot(*options.referenceRoot);
    else if (options.installFolder)
        DocResourceParser::setReferenceRoot(
            (fl::filesystem::path(*options.installFolder) / u"help").string());

    if (options.supportFolder)
        DocResourceParser::setSupportPackageRoot(*options.supportFolder);
    else if (services.supportPackageRoot().empty())
        disableSupportFolder();
}

} // namespace

std::shared_ptr<const HostServices> selectedServices(const Options& options) {
    if (options.installFolder)
        return std::make_shared<platform::InstallationManifest>(*options.installFolder);
    return platform::defaultHostServices();
}

std::optional<std::vector<std::u16string>> selectedLanguages(const Options& options) {
    return options.supportedLanguages == kInferredLanguages ? inferLanguages(fileNames())
                                                            : options.supportedLanguages;
}

void applyOptions(const Options& options) {
    const std::shared_ptr<const HostServices> services = selectedServices(options);
    // Some operations treat a host that fails like one without packages or languages. A malformed
    // manifest is reported here, so that it cannot look like an empty one.
    services->docLanguage();
    platform::setHostServices(services);
    applyFolders(options, *services);
    platform::setHostServices(std::make_shared<LanguageOverrides>(services, options.language,
                                                                  selectedLanguages(options)));
    // Last, because a new support-package folder resets the test packages.
    if (options.installedProducts || options.supportPackages)
        DocResourceParser::setTestProducts(
            options.installedProducts.value_or(std::vector<std::u16string>()),
            options.supportPackages.value_or(std::vector<std::u16string>()));
    if (options.isLanguageStrict)
        expectSupportedLanguage(options);
}

LanguageGuard::LanguageGuard(const std::u16string& language) : services_(platform::hostServices()) {
    platform::setHostServices(
        std::make_shared<LanguageOverrides>(services_, language, std::nullopt));
}

LanguageGuard::~LanguageGuard() {
    platform::setHostServices(services_);
}

} // namespace refdoc
