#include "fuzz/support/FuzzHost.hpp"

#include "platform/docproduct/TopLevelDocProduct.hpp"

#include <utility>

namespace docparser_fuzz {

using docproduct::TopLevelDocProduct;

FuzzHost::FuzzHost(std::u16string language, std::u16string packageRoot)
    : language_(std::move(language)), packageRoot_(std::move(packageRoot)) {}

std::u16string FuzzHost::installPath() const {
    return u"/no/such/installation";
}

std::u16string FuzzHost::docLanguage() const {
    return language_;
}

std::vector<std::u16string> FuzzHost::supportedDocLanguages() const {
    return {u"en", u"de", u"zh_CN", language_};
}

std::vector<std::shared_ptr<const TopLevelDocProduct>>
FuzzHost::installedTopLevelDocProducts() const {
    return {
        std::make_shared<const TopLevelDocProduct>(TopLevelDocProduct::fromShortName("orchard"))};
}

std::u16string FuzzHost::supportPackageRoot() const {
    return packageRoot_;
}

std::unordered_set<std::u16string>
FuzzHost::installedHardwareSupportPackages(const std::u16string&) const {
    return {u"kit"};
}

} // namespace docparser_fuzz
