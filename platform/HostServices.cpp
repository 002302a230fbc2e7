#include "platform/HostServices.hpp"

#include "platform/InstallationManifest.hpp"
#include "platform/system/InstallationPrefix.hpp"

#include <mutex>
#include <utility>

namespace platform {

namespace {

// Constructed on first use, because static initialisers of other libraries may already need it.
struct Current {
    std::mutex mutex; // guards services; never held while a service is called
    std::shared_ptr<const HostServices> services = defaultHostServices();
};

Current& current() {
    static Current instance;
    return instance;
}

} // namespace

HostServices::~HostServices() = default;

std::shared_ptr<const HostServices> defaultHostServices() {
    static const std::shared_ptr<const HostServices> services =
        std::make_shared<const InstallationManifest>(installationPrefix());
    return services;
}

void setHostServices(std::shared_ptr<const HostServices> services) {
    if (!services)
        services = defaultHostServices();
    Current& state = current();
    const std::lock_guard lock(state.mutex);
    // The old services are destroyed after the lock is released: their destructor is host code.
    state.services.swap(services);
}

std::shared_ptr<const HostServices> hostServices() {
    Current& state = current();
    const std::lock_guard lock(state.mutex);
    return state.services;
}

} // namespace platform
