#pragma once

#include "docparser/ReferenceRoots.hpp"
#include "docparser/discovery/InstalledProducts.hpp"

#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace reference::docparser {

/// The process-wide settings: where resources are looked for, and what counts as installed.
///
/// Values are replaced, never changed in place: whoever asks gets a shared snapshot that stays as
/// it is. Locks are held for the exchange of values and while the application's services are asked
/// what is installed, never while resource files are read. Who needs several takes them together,
/// with std::lock's back-off, and so waits for none while it holds another.
///
/// A service that calls back into the operation that asked it would wait for itself. From any
/// answer the reference roots may be taken and set and resource files be read; from the
/// catalogue's, the support packages be asked for as well.
class Settings {
public:
    /// The settings of the process; built at load, or by the first operation should that come
    /// earlier.
    static Settings& instance();

    std::shared_ptr<const ReferenceRoots> getReferenceRoots();
    void setReferenceRoot(std::u16string root);

    /// \throws std::bad_function_call never in practice; whatever the catalogue throws
    std::shared_ptr<const TopLevelProducts> getTopLevelProducts();

    /// The cached folder, or the one that the support-package root reader leads to. Takes no lock.
    std::shared_ptr<const std::u16string> getSupportPackageFolder();
    void setSupportPackageFolder(std::u16string folder);

    std::shared_ptr<const SupportPackages> getHardwareSupportPackages();
    void clearSupportPackageCaches();

    void setTestProducts(const std::vector<std::u16string>& topLevelNames,
                         const std::vector<std::u16string>& supportPackageNames);
    void restoreDefaults();

private:
    using ProductsProvider = std::function<std::shared_ptr<const TopLevelProducts>()>;

    Settings();

    // Empties both caches; the caller holds supportPackageMutex_.
    void dropSupportPackages();

    std::mutex settingsMutex_; // guards currentRoots_
    std::shared_ptr<const ReferenceRoots> currentRoots_;

    std::mutex productsMutex_; // guards topLevelProductsProvider_ and is held while it is called
    ProductsProvider topLevelProductsProvider_ = getCatalogueProducts;

    // Null while not yet computed. Read and filled without a lock, so every access is an atomic
    // operation of <memory>: std::atomic<std::shared_ptr> of GCC 12 lets a reader go with relaxed
    // ordering, which races with the next writer.
    std::shared_ptr<const std::u16string> supportPackageFolder_;

    std::mutex supportPackageMutex_; // guards hardwareSupportPackages_ and is held while it is made
    std::shared_ptr<const SupportPackages> hardwareSupportPackages_; // null: not yet computed
};

} // namespace reference::docparser
