#include "tools/refdoc/session/HostOverrides.hpp"

#include "docparser/DocResourceParser.hpp"
#include "platform/InstallationManifest.hpp"
#include "platform/LanguageOverrides.hpp"
#include "platform/path/Path.hpp"
#include "tools/refdoc/session/LanguageNote.hpp"
#include "tools/refdoc/session/Languages.hpp"
#include "tools/refdoc/session/SupportFolder.hpp"

#include <unordered_set>
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

// What the guard of this thread has chosen; null without one. A pointer, because programs built
// with MinGW may free the variables of a thread before they run their destructors.
constinit thread_local const std::shared_ptr<const HostServices>* servicesOfThread = nullptr;

// Lets each thread have services of its own.
class ServicesByThread final : public HostServices {
public:
    // \param others  for threads without a guard; not null
    explicit ServicesByThread(std::shared_ptr<const HostServices> others)
        : others_(std::move(others)) {}

    std::shared_ptr<const HostServices> current() const {
        return servicesOfThread ? *servicesOfThread : others_;
    }

    std::u16string installPath() const override { return current()->installPath(); }
    std::u16string docLanguage() const override { return current()->docLanguage(); }

    std::vector<std::u16string> supportedDocLanguages() const override {
        return current()->supportedDocLanguages();
    }

    std::vector<std::shared_ptr<const docproduct::TopLevelDocProduct>>
    installedTopLevelDocProducts() const override {
        return current()->installedTopLevelDocProducts();
    }

    std::u16string supportPackageRoot() const override { return current()->supportPackageRoot(); }

    std::unordered_set<std::u16string>
    installedHardwareSupportPackages(const std::u16string& root) const override {
        return current()->installedHardwareSupportPackages(root);
    }

private:
    std::shared_ptr<const HostServices> others_;
};

// Returns the services of this thread. Prepares those of the process for guards, which changes
// nothing for threads without one.
std::shared_ptr<const HostServices> preparedServices() {
    const std::shared_ptr<const HostServices> services = platform::hostServices();
    if (const auto* byThread = dynamic_cast<const ServicesByThread*>(services.get()))
        return byThread->current();
    platform::setHostServices(std::make_shared<ServicesByThread>(services));
    return services;
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
    // Prepared for guards of other threads, which must not replace new services by those of before.
    platform::setHostServices(std::make_shared<ServicesByThread>(services));
    applyFolders(options, *services);
    platform::setHostServices(
        std::make_shared<ServicesByThread>(std::make_shared<LanguageOverrides>(
            services, options.language, selectedLanguages(options))));
    // Last, because a new support-package folder resets the test packages.
    if (options.installedProducts || options.supportPackages)
        DocResourceParser::setTestProducts(
            options.installedProducts.value_or(std::vector<std::u16string>()),
            options.supportPackages.value_or(std::vector<std::u16string>()));
    if (options.isLanguageStrict)
        expectSupportedLanguage(options);
}

LanguageGuard::LanguageGuard(const std::u16string& language)
    : services_(std::make_shared<LanguageOverrides>(preparedServices(), language, std::nullopt)),
      before_(std::exchange(servicesOfThread, &services_)) {}

LanguageGuard::~LanguageGuard() {
    servicesOfThread = before_;
}

} // namespace refdoc
