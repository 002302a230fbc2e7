#include "docparser/Settings.hpp"

#include "docparser/shared/Constants.hpp"
#include "platform/install/InstallPath.hpp"

#include <utility>

namespace reference::docparser {

namespace {

std::shared_ptr<const ReferenceRoots> makeRoots(std::u16string root) {
    return std::make_shared<const ReferenceRoots>(std::move(root));
}

// The default reference root, which is determined once.
const std::u16string& defaultReferenceRoot() {
    static const std::u16string root =
        folderBelow(fl::filesystem::get_install_path(), kReferenceRootLevels);
    return root;
}

[[maybe_unused]] const Settings& builtAtLoad = Settings::instance();

} // namespace

Settings& Settings::instance() {
    static Settings settings;
    return settings;
}

Settings::Settings() : currentRoots_(makeRoots(defaultReferenceRoot())) {}

std::shared_ptr<const ReferenceRoots> Settings::getReferenceRoots() {
    const std::lock_guard lock(settingsMutex_);
    return currentRoots_;
}

void Settings::setReferenceRoot(std::u16string root) {
    const std::lock_guard lock(settingsMutex_);
    currentRoots_ = makeRoots(std::move(root));
}

std::shared_ptr<const TopLevelProducts> Settings::getTopLevelProducts() {
    const std::lock_guard lock(productsMutex_);
    return topLevelProductsProvider_();
}

std::shared_ptr<const std::u16string> Settings::getSupportPackageFolder() {
    std::shared_ptr<const std::u16string> cached = std::atomic_load(&supportPackageFolder_);
    if (cached)
        return cached;
    auto found = std::make_shared<const std::u16string>(findSupportPackageFolder());
    // Threads that determined it at the same time all return what the first one stored.
    if (std::atomic_compare_exchange_strong(&supportPackageFolder_, &cached, found))
        return found;
    return cached;
}

void Settings::setSupportPackageFolder(std::u16string folder) {
    // Allocated first: if that fails, the old folder and the cached packages stay.
    auto newFolder = std::make_shared<const std::u16string>(std::move(folder));
    clearSupportPackageCaches();
    std::atomic_store(&supportPackageFolder_, std::move(newFolder));
}

std::shared_ptr<const SupportPackages> Settings::getHardwareSupportPackages() {
    const std::lock_guard lock(supportPackageMutex_);
    if (!hardwareSupportPackages_) {
        const std::shared_ptr<const std::u16string> folder = getSupportPackageFolder();
        hardwareSupportPackages_ =
            std::make_shared<const SupportPackages>(findHardwareSupportPackages(*folder));
    }
    return hardwareSupportPackages_;
}

void Settings::clearSupportPackageCaches() {
    const std::lock_guard lock(supportPackageMutex_);
    dropSupportPackages();
}

void Settings::dropSupportPackages() {
    std::atomic_store(&supportPackageFolder_, {});
    hardwareSupportPackages_.reset();
}

void Settings::setTestProducts(const std::vector<std::u16string>& topLevelNames,
                               const std::vector<std::u16string>& supportPackageNames) {
    const std::scoped_lock lock(productsMutex_, supportPackageMutex_);
    topLevelProductsProvider_ = [products = makeTestProducts(topLevelNames)] { return products; };
    hardwareSupportPackages_ = makeTestSupportPackages(supportPackageNames);
}

void Settings::restoreDefaults() {
    // Acquired together: a package query holds the third lock and may read the roots, so it must
    // never wait for a thread that holds the first two.
    const std::scoped_lock lock(settingsMutex_, productsMutex_, supportPackageMutex_);
    currentRoots_ = makeRoots(defaultReferenceRoot());
    topLevelProductsProvider_ = getCatalogueProducts;
    dropSupportPackages();
}

} // namespace reference::docparser
