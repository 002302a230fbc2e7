#include "docparser/retrieval/LookupFiles.hpp"

#include "platform/HostServices.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

namespace reference::docparser {
namespace {

// A host whose services all throw.
class SilentHost final : public platform::HostServices {
public:
    std::u16string installPath() const override { throw asked(); }
    std::u16string docLanguage() const override { throw asked(); }
    std::vector<std::u16string> supportedDocLanguages() const override { throw asked(); }
    std::vector<std::shared_ptr<const docproduct::TopLevelDocProduct>>
    installedTopLevelDocProducts() const override {
        throw asked();
    }
    std::u16string supportPackageRoot() const override { throw asked(); }
    std::unordered_set<std::u16string>
    installedHardwareSupportPackages(const std::u16string&) const override {
        throw asked();
    }

private:
    static std::logic_error asked() { return std::logic_error("the host was asked"); }
};

class CollectLookupFilesTest : public testing::Test {
public:
    CollectLookupFilesTest() { platform::setHostServices(std::make_shared<SilentHost>()); }
    ~CollectLookupFilesTest() override { platform::setHostServices(nullptr); }
};

TEST_F(CollectLookupFilesTest, NeitherAsksNorReadsWithoutALookupFolder) {
    const auto parse = [](std::string, const std::u16string&, RetrievalObserver&) -> LookupMap {
        throw std::logic_error("a text was parsed");
    };
    const auto isInstalled = [](const std::u16string&) -> bool {
        throw std::logic_error("a key was asked for");
    };
    EXPECT_EQ(collectLookupFiles(u"", parse, isInstalled, unobserved), LookupResults());
}

TEST_F(CollectLookupFilesTest, PassesExceptionsOfTheLanguageServiceToTheCaller) {
    const auto parse = [](std::string, const std::u16string&, RetrievalObserver&) {
        return LookupMap();
    };
    const auto isInstalled = [](const std::u16string&) { return true; };
    EXPECT_THROW(collectLookupFiles(u"/no/such/folder", parse, isInstalled, unobserved),
                 std::logic_error);
}

} // namespace
} // namespace reference::docparser
