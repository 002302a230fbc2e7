// The services that forward to platform::hostServices(), and the base classes of the exceptions.

#include "platform/HostServices.hpp"
#include "platform/catalogue/DocProductCollector.hpp"
#include "platform/except/IException.hpp"
#include "platform/install/InstalledPackages.hpp"
#include "platform/language/DocLanguage.hpp"
#include "platform/supportpackage/SupportPackageRootReader.hpp"

namespace foundation::core::except {

IException::~IException() noexcept = default;
IInternalException::~IInternalException() noexcept = default;

} // namespace foundation::core::except

namespace doclanguage {

DocLanguage& DocLanguage::getInstance() {
    static DocLanguage service;
    return service;
}

std::u16string DocLanguage::getDocLanguage() const {
    return platform::hostServices()->docLanguage();
}

std::vector<std::u16string> DocLanguage::getSupportedDocLanguages() const {
    return platform::hostServices()->supportedDocLanguages();
}

} // namespace doclanguage

namespace docproduct {

TopLevelDocProduct::TopLevelDocProduct(std::string, std::string, std::string shortName, std::string,
                                       std::string, std::string, std::vector<ProductFamily>)
    : DocProduct(std::move(shortName)) {}

DocProductCacheManager& DocProductCacheManager::getInstance() {
    static DocProductCacheManager manager;
    return manager;
}

std::shared_ptr<const std::vector<std::shared_ptr<const TopLevelDocProduct>>>
DocProductCollector::getInstalledTopLevelDocProducts(const DocProductCache&) {
    auto products = platform::hostServices()->installedTopLevelDocProducts();
    std::erase(products, nullptr);
    return std::make_shared<const std::vector<std::shared_ptr<const TopLevelDocProduct>>>(
        std::move(products));
}

} // namespace docproduct

namespace install::product_impl::utils {

std::unordered_set<std::u16string> getInstalledHardwareSupportPackages(const std::u16string& root) {
    return platform::hostServices()->installedHardwareSupportPackages(root);
}

} // namespace install::product_impl::utils

namespace supportpackage {

std::u16string SupportPackageRootReader::getSupportPackageRootNoCreate() const {
    return platform::hostServices()->supportPackageRoot();
}

} // namespace supportpackage
