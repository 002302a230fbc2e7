#include "tests/stress/StressHost.hpp"

#include "tests/system/FakeHost.hpp"

#include <utility>

namespace docparser_tests {

StressHost::StressHost(std::u16string packageRoot)
    : packageRoot_(std::move(packageRoot)), products_{makeProduct("hostproduct")} {}

std::u16string StressHost::installPath() const {
    return u"/no/such/installation";
}

std::u16string StressHost::docLanguage() const {
    return u"de";
}

std::vector<std::u16string> StressHost::supportedDocLanguages() const {
    return {u"en", u"de"};
}

std::vector<std::shared_ptr<const docproduct::TopLevelDocProduct>>
StressHost::installedTopLevelDocProducts() const {
    return products_;
}

std::u16string StressHost::supportPackageRoot() const {
    return packageRoot_;
}

std::unordered_set<std::u16string>
StressHost::installedHardwareSupportPackages(const std::u16string&) const {
    return {u"hostkit"};
}

} // namespace docparser_tests
