#include "platform/catalogue/DocProductCollector.hpp"

#include "platform/HostServices.hpp"

#include <utility>

namespace docproduct {

std::shared_ptr<const TopLevelDocProducts> DocProductCache::getTopLevelDocProducts() const {
    TopLevelDocProducts products = platform::hostServices()->installedTopLevelDocProducts();
    std::erase(products, nullptr);
    return std::make_shared<const TopLevelDocProducts>(std::move(products));
}

DocProductCacheManager& DocProductCacheManager::getInstance() {
    static DocProductCacheManager manager;
    return manager;
}

std::shared_ptr<const TopLevelDocProducts>
DocProductCollector::getInstalledTopLevelDocProducts(const DocProductCache& cache) {
    return cache.getTopLevelDocProducts();
}

} // namespace docproduct
