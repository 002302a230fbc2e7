#pragma once

#include "platform/Export.hpp"
#include "platform/docproduct/TopLevelDocProduct.hpp"

#include <memory>
#include <vector>

namespace docproduct {

/// The installed products of the documentation, as the catalogue hands them out.
using TopLevelDocProducts = std::vector<std::shared_ptr<const TopLevelDocProduct>>;

/// The catalogue's view of the installed products: the host's answer, asked for at each use.
class DOCPARSER_PLATFORM_EXPORT DocProductCache {
public:
    /// The products that the host names now, in its order.
    /// \throws whatever the host throws
    std::shared_ptr<const TopLevelDocProducts> getTopLevelDocProducts() const;
};

/// Hands out the process's one catalogue.
class DOCPARSER_PLATFORM_EXPORT DocProductCacheManager {
public:
    /// The one manager of the process; it lives as long. Any thread may call.
    static DocProductCacheManager& getInstance();

    /// The catalogue; it lives as long as the process.
    const DocProductCache& getDocProductCache() const noexcept { return cache_; }

private:
    DocProductCacheManager() = default;

    DocProductCache cache_;
};

/// Questions to a catalogue.
class DOCPARSER_PLATFORM_EXPORT DocProductCollector {
public:
    /// The installed products at the top level of the documentation, never null, in the host's
    /// order and without null elements.
    /// \throws whatever the host throws
    static std::shared_ptr<const TopLevelDocProducts>
    getInstalledTopLevelDocProducts(const DocProductCache& cache);
};

} // namespace docproduct
