#include "docparser/discovery/InstalledProducts.hpp"

#include "docparser/shared/Constants.hpp"
#include "platform/Failure.hpp"
#include "platform/i18n/Converter.hpp"
#include "platform/install/InstalledPackages.hpp"
#include "platform/path/Path.hpp"
#include "platform/supportpackage/SupportPackageRootReader.hpp"

#include <algorithm>
#include <utility>

namespace reference::docparser {

using docproduct::DocProductCacheManager;
using docproduct::DocProductCollector;
using docproduct::TopLevelDocProduct;

std::shared_ptr<const TopLevelProducts> getCatalogueProducts() {
    return DocProductCollector::getInstalledTopLevelDocProducts(
        DocProductCacheManager::getInstance().getDocProductCache());
}

std::u16string findSupportPackageFolder() {
    return folderBelow(supportpackage::SupportPackageRootReader().getSupportPackageRootNoCreate(),
                       kSupportPackageLevels);
}

SupportPackages findHardwareSupportPackages(const std::u16string& folder) {
    fl::filesystem::path root = fl::filesystem::make_native_form(folder);
    for (std::size_t level = 0; level < kSupportPackageLevels.size(); ++level)
        root = fl::filesystem::remove_filename(root);

    SupportPackages packages;
    // If the query fails, no support package counts as installed, but the documentation is still
    // read.
    platform::ignoreFailure([&] {
        packages = install::product_impl::utils::getInstalledHardwareSupportPackages(root.string());
    });
    return packages;
}

std::shared_ptr<const TopLevelProducts> makeTestProducts(const std::vector<std::u16string>& names) {
    TopLevelProducts products;
    products.reserve(names.size());
    for (const std::u16string& name : names) {
        products.push_back(std::make_shared<const TopLevelDocProduct>(
            "testDisplayName", "testHelpLocation", fl::i18n::to_string(name), "testBaseCode",
            "testAltShortName", "testAvailability", std::vector<docproduct::ProductFamily>()));
    }
    return std::make_shared<const TopLevelProducts>(std::move(products));
}

std::shared_ptr<const SupportPackages>
makeTestSupportPackages(const std::vector<std::u16string>& names) {
    SupportPackages packages;
    packages.max_load_factor(1.0F);
    packages.reserve(names.size());
    packages.insert(names.begin(), names.end());
    return std::make_shared<const SupportPackages>(std::move(packages));
}

bool containsShortName(const TopLevelProducts& products, const std::string& shortName) {
    return std::ranges::any_of(
        products, [&](const auto& product) { return product->getShortName() == shortName; });
}

} // namespace reference::docparser
