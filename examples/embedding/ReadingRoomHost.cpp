#include "ReadingRoomHost.hpp"

#include <utility>

namespace {

using docproduct::TopLevelDocProduct;

// The library uses only the short name; the other strings are for the application.
std::shared_ptr<const TopLevelDocProduct> makeProduct(const std::string& shortName) {
    return std::make_shared<const TopLevelDocProduct>(TopLevelDocProduct::fromShortName(shortName));
}

} // namespace

ReadingRoomHost::ReadingRoomHost(std::u16string installFolder, std::u16string language)
    : installFolder_(std::move(installFolder)),
      language_(std::move(language)),
      // Created once: the library queries them often, and copying pointers is cheap.
      products_{makeProduct("orchard"), makeProduct("cellar")} {}

std::u16string ReadingRoomHost::installPath() const {
    return installFolder_;
}

std::u16string ReadingRoomHost::docLanguage() const {
    return language_;
}

std::vector<std::u16string> ReadingRoomHost::supportedDocLanguages() const {
    return {u"en", u"de", u"ja"};
}

std::vector<std::shared_ptr<const TopLevelDocProduct>>
ReadingRoomHost::installedTopLevelDocProducts() const {
    return products_;
}

std::u16string ReadingRoomHost::supportPackageRoot() const {
    return installFolder_ + u"/supportpackages";
}

std::unordered_set<std::u16string>
ReadingRoomHost::installedHardwareSupportPackages(const std::u16string& /*root*/) const {
    return {u"hivescale"};
}
