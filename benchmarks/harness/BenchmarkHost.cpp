#include "benchmarks/harness/BenchmarkHost.hpp"

#include "docparser/DocResourceParser.hpp"
#include "platform/HostServices.hpp"

#include <utility>

namespace reference::docparser::benchmarks {

namespace {

class BenchmarkHost final : public platform::HostServices {
public:
    explicit BenchmarkHost(std::u16string language) : language_(std::move(language)) {}

    std::u16string installPath() const override { return {}; }
    std::u16string docLanguage() const override { return language_; }
    std::vector<std::u16string> supportedDocLanguages() const override {
        return {u"en", u"de", u"ja", u"ru"};
    }
    std::vector<std::shared_ptr<const docproduct::TopLevelDocProduct>>
    installedTopLevelDocProducts() const override {
        return {};
    }
    std::u16string supportPackageRoot() const override { return {}; }
    std::unordered_set<std::u16string>
    installedHardwareSupportPackages(const std::u16string&) const override {
        return {};
    }

private:
    std::u16string language_;
};

} // namespace

void setBenchmarkHost(const std::u16string& language,
                      const std::vector<std::u16string>& installed) {
    platform::setHostServices(std::make_shared<BenchmarkHost>(language));
    DocResourceParser::setTestProducts(installed, {});
}

} // namespace reference::docparser::benchmarks
