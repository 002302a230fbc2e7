#pragma once

#include "docparser/ReferenceRoots.hpp"
#include "docparser/discovery/InstalledProducts.hpp"

#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace reference::docparser {

/// The process-wide settings: the folders of resource files, and which products and support
/// packages count as installed.
///
/// Values are replaced, never changed in place: callers get a shared snapshot that never changes.
/// Locks are held while values are exchanged and while the application's services determine what is
/// installed, never while resource files are read. Operations that need several locks acquire them
/// together, with the back-off of std::lock, so that none waits for a lock while it holds another.
///
/// A service that calls the operation that called it deadlocks. Every service may read and set the
/// reference roots and read resource files; the catalogue may also ask for the support packages.
class Settings {
public:
    /// Returns the settings of the process; they are constructed when the library is loaded, or by
    /// the first operation if that is called earlier.
    static Settings& instance();

    std::shared_ptr<const ReferenceRoots> getReferenceRoots();
    void setReferenceRoot(std::u16string root);

    /// \throws whatever the catalogue throws
    std::shared_ptr<const TopLevelProducts> getTopLevelProducts();

    /// Returns the cached folder, or queries the support-package root reader. Takes no lock.
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

    // Clears both caches; the caller holds supportPackageMutex_.
    void dropSupportPackages();

    std::mutex settingsMutex_; // guards currentRoots_
    std::shared_ptr<const ReferenceRoots> currentRoots_;

    std::mutex productsMutex_; // guards topLevelProductsProvider_ and is held while it is called
    ProductsProvider topLevelProductsProvider_ = getCatalogueProducts;

    // Null while not yet computed. Read and filled without a lock, so every access is an atomic
    // operation of <memory>: std::atomic<std::shared_ptr> of GCC 12 releases a reader with relaxed
    // ordering, which races with the next writer.
    std::shared_ptr<const std::u16string> supportPackageFolder_;

    std::mutex supportPackageMutex_; // guards hardwareSupportPackages_ and is held while it is made
    std::shared_ptr<const SupportPackages> hardwareSupportPackages_; // null: not yet computed
};

} // namespace reference::docparser
