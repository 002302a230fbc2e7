#include "docparser/c/Installation.hpp"

#include "docparser/DocResourceParser.hpp"
#include "platform/InstallationManifest.hpp"
#include "platform/LanguageOverrides.hpp"
#include "platform/path/Path.hpp"

#include <utility>

namespace reference::docparser::c {

using platform::HostServices;

namespace {

std::u16string referenceRootOf(const HostServices& services) {
    return (fl::filesystem::path(services.installPath()) / u"help").string();
}

std::shared_ptr<const HostServices> servicesOf(const std::optional<std::u16string>& folder) {
    if (folder)
        return std::make_shared<const platform::InstallationManifest>(*folder);
    return platform::defaultHostServices();
}

} // namespace

Installation& Installation::instance() {
    static Installation installation;
    return installation;
}

Installation::Installation() : services_(platform::hostServices()) {}

// Services that a function replaces are destroyed after it has released the lock: their destructor
// may be host code, which may call the interface.

void Installation::select(const std::optional<std::u16string>& folder) {
    std::shared_ptr<const HostServices> services = servicesOf(folder);
    // Some operations treat a host that fails like one without packages or languages. A malformed
    // manifest is reported here, so that it cannot look like an empty one.
    services->docLanguage();
    const std::shared_ptr<const HostServices> replaced = platform::hostServices();
    const std::lock_guard lock(mutex_);
    // First, because it is the only step that can fail.
    DocResourceParser::setReferenceRoot(referenceRootOf(*services));
    platform::setHostServices(services);
    DocResourceParser::clearSupportPackageCaches();
    services_.swap(services);
}

std::u16string Installation::referenceRoot() const {
    const std::lock_guard lock(mutex_);
    return referenceRootOf(*services_);
}

void Installation::setLanguages(std::optional<std::u16string> current,
                                std::optional<std::vector<std::u16string>> supported) {
    const std::shared_ptr<const HostServices> replaced = platform::hostServices();
    const std::lock_guard lock(mutex_);
    platform::setHostServices(std::make_shared<const platform::LanguageOverrides>(
        services_, std::move(current), std::move(supported)));
}

} // namespace reference::docparser::c
