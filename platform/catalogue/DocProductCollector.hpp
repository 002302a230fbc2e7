#pragma once

#include "platform/Export.hpp"
#include "platform/docproduct/TopLevelDocProduct.hpp"

#include <memory>
#include <vector>

namespace docproduct {

/// The installed products, as the catalogue returns them.
using TopLevelDocProducts = std::vector<std::shared_ptr<const TopLevelDocProduct>>;

/// The catalogue of the installed products. It stores none; each call asks the host application.
class DOCPARSER_PLATFORM_EXPORT DocProductCache {
public:
    /// Returns the products that the host application reports, in its order, without null pointers.
    /// \throws whatever the host application throws
    std::shared_ptr<const TopLevelDocProducts> getTopLevelDocProducts() const;
};

/// Gives access to the catalogue of the process.
class DOCPARSER_PLATFORM_EXPORT DocProductCacheManager {
public:
    /// Returns the only manager, which lives as long as the process. Any thread may call.
    static DocProductCacheManager& getInstance();

    /// Returns the catalogue, which lives as long as the process.
    const DocProductCache& getDocProductCache() const noexcept { return cache_; }

private:
    DocProductCacheManager() = default;

    DocProductCache cache_;
};

/// Queries a catalogue.
class DOCPARSER_PLATFORM_EXPORT DocProductCollector {
public:
    /// Returns the installed products at the top level of the documentation, in the order of the
    /// host application. Neither the list nor an element is null.
    /// \throws whatever the host application throws
    static std::shared_ptr<const TopLevelDocProducts>
    getInstalledTopLevelDocProducts(const DocProductCache& cache);
};

} // namespace docproduct
