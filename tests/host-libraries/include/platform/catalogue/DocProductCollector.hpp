#pragma once

#include "platform/docproduct/TopLevelDocProduct.hpp"

#include <memory>
#include <vector>

namespace docproduct {

class DocProductCache {};

class DocProductCacheManager {
public:
    static DocProductCacheManager& getInstance();
    const DocProductCache& getDocProductCache() const noexcept { return cache_; }

private:
    DocProductCache cache_;
};

class DocProductCollector {
public:
    static std::shared_ptr<const std::vector<std::shared_ptr<const TopLevelDocProduct>>>
    getInstalledTopLevelDocProducts(const DocProductCache& cache);
};

} // namespace docproduct
