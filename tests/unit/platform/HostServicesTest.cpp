#include "platform/HostServices.hpp"

#include "platform/InstallationManifest.hpp"
#include "platform/catalogue/DocProductCollector.hpp"
#include "platform/install/InstallPath.hpp"
#include "platform/install/InstalledPackages.hpp"
#include "platform/language/DocLanguage.hpp"
#include "platform/supportpackage/SupportPackageRootReader.hpp"
#include "platform/system/NativePath.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <thread>

namespace platform {

namespace {

using docproduct::DocProductCacheManager;
using docproduct::DocProductCollector;
using docproduct::ProductFamily;
using docproduct::TopLevelDocProduct;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

std::shared_ptr<const TopLevelDocProduct> product(std::string shortName) {
    return std::make_shared<const TopLevelDocProduct>("", "", std::move(shortName), "", "", "",
                                                      std::vector<ProductFamily>());
}

class FixedHost : public HostServices {
public:
    explicit FixedHost(std::u16string language = u"de") : language_(std::move(language)) {}

    std::u16string installPath() const override { return u"/opt/fixed"; }
    std::u16string docLanguage() const override { return language_; }
    std::vector<std::u16string> supportedDocLanguages() const override {
        return {u"en", u"de", u"en"};
    }
    std::vector<std::shared_ptr<const TopLevelDocProduct>>
    installedTopLevelDocProducts() const override {
        return {nullptr, product("orchard"), nullptr, product("garden"), product("orchard")};
    }
    std::u16string supportPackageRoot() const override { return u"/opt/packages"; }
    std::unordered_set<std::u16string>
    installedHardwareSupportPackages(const std::u16string& root) const override {
        return {u"sensorkit", u"under " + root};
    }

private:
    std::u16string language_;
};

class HostServicesTest : public testing::Test {
public:
    ~HostServicesTest() override { setHostServices(nullptr); }
};

TEST_F(HostServicesTest, AreTheDefaultOnesUntilTheHostSetsItsOwn) {
    EXPECT_EQ(hostServices(), defaultHostServices());
    EXPECT_EQ(defaultHostServices(), defaultHostServices());
    const auto* const manifest =
        dynamic_cast<const InstallationManifest*>(defaultHostServices().get());
    ASSERT_NE(manifest, nullptr);
    EXPECT_EQ(manifest->installPath(),
              fromNativePath(std::filesystem::path(PLATFORM_TESTS_INSTALL_PREFIX)))
        << "in a build tree, the prefix that the library was built for";
}

TEST_F(HostServicesTest, AreTheLastOnesSetUntilNullRestoresTheDefault) {
    const auto first = std::make_shared<const FixedHost>();
    const auto second = std::make_shared<const FixedHost>();
    setHostServices(first);
    EXPECT_EQ(hostServices(), first);
    setHostServices(second);
    EXPECT_EQ(hostServices(), second);
    setHostServices(nullptr);
    EXPECT_EQ(hostServices(), defaultHostServices());
}

TEST_F(HostServicesTest, AreReleasedWhenReplaced) {
    auto services = std::make_shared<const FixedHost>();
    const std::weak_ptr<const FixedHost> watched = services;
    setHostServices(std::move(services));
    EXPECT_FALSE(watched.expired());
    const std::shared_ptr<const HostServices> inUse = hostServices();
    setHostServices(nullptr);
    EXPECT_EQ(inUse->docLanguage(), u"de") << "a caller keeps the services that it requested";
    EXPECT_EQ(watched.use_count(), 1);
}

// Restores the default services while it answers a question.
class ReplacedHost final : public FixedHost {
public:
    explicit ReplacedHost(bool& isDestroyed) : isDestroyed_(isDestroyed) {}
    ~ReplacedHost() override { isDestroyed_ = true; }

    std::u16string docLanguage() const override {
        setHostServices(nullptr);
        return isDestroyed_ ? u"destroyed too early" : FixedHost::docLanguage();
    }

private:
    bool& isDestroyed_;
};

TEST_F(HostServicesTest, CanBeReplacedDuringTheirOwnAnswer) {
    bool isDestroyed = false;
    setHostServices(std::make_shared<const ReplacedHost>(isDestroyed));
    EXPECT_EQ(doclanguage::DocLanguage::getInstance().getDocLanguage(), u"de");
    EXPECT_TRUE(isDestroyed);
    EXPECT_EQ(hostServices(), defaultHostServices());
}

// Requests the current services in its destructor.
class AskingHost final : public FixedHost {
public:
    explicit AskingHost(std::shared_ptr<const HostServices>& seen) : seen_(seen) {}
    ~AskingHost() override { seen_ = hostServices(); }

private:
    std::shared_ptr<const HostServices>& seen_;
};

TEST_F(HostServicesTest, AreDestroyedOutsideTheLockAfterTheirReplacement) {
    std::shared_ptr<const HostServices> seen;
    const auto successor = std::make_shared<const FixedHost>();
    setHostServices(std::make_shared<const AskingHost>(seen));
    setHostServices(successor);
    EXPECT_EQ(seen, successor);
}

TEST_F(HostServicesTest, CanBeReplacedWhileOtherThreadsAsk) {
    std::thread host([] {
        for (int i = 0; i < 500; ++i)
            setHostServices(std::make_shared<const FixedHost>(i % 2 == 0 ? u"de" : u"ja"));
    });
    for (int i = 0; i < 500; ++i) {
        const std::shared_ptr<const HostServices> services = hostServices();
        ASSERT_NE(services, nullptr);
        if (services != defaultHostServices()) {
            const std::u16string language = services->docLanguage();
            EXPECT_TRUE(language == u"de" || language == u"ja");
        }
    }
    host.join();
    EXPECT_EQ(hostServices()->docLanguage(), u"ja");
}

TEST_F(HostServicesTest, AreAskedByTheLanguageServiceOnEachCall) {
    const doclanguage::DocLanguage& service = doclanguage::DocLanguage::getInstance();
    EXPECT_EQ(&service, &doclanguage::DocLanguage::getInstance());
    setHostServices(std::make_shared<const FixedHost>(u"zh_CN"));
    EXPECT_EQ(service.getDocLanguage(), u"zh_CN");
    EXPECT_THAT(service.getSupportedDocLanguages(), ElementsAre(u"en", u"de", u"en"));
    setHostServices(std::make_shared<const FixedHost>(u""));
    EXPECT_EQ(service.getDocLanguage(), u"");
}

TEST_F(HostServicesTest, AreAskedByTheCatalogueWhichSkipsNullProducts) {
    setHostServices(std::make_shared<const FixedHost>());
    const docproduct::DocProductCache& cache =
        DocProductCacheManager::getInstance().getDocProductCache();
    EXPECT_EQ(&cache, &DocProductCacheManager::getInstance().getDocProductCache());
    const auto products = DocProductCollector::getInstalledTopLevelDocProducts(cache);
    ASSERT_NE(products, nullptr);
    EXPECT_THAT(*products, ElementsAre(testing::Pointee(*product("orchard")),
                                       testing::Pointee(*product("garden")),
                                       testing::Pointee(*product("orchard"))));
}

TEST_F(HostServicesTest, AreAskedForTheSupportPackageRoot) {
    setHostServices(std::make_shared<const FixedHost>());
    EXPECT_EQ(supportpackage::SupportPackageRootReader().getSupportPackageRootNoCreate(),
              u"/opt/packages");
}

TEST_F(HostServicesTest, AreAskedForThePackagesUnderTheGivenRoot) {
    setHostServices(std::make_shared<const FixedHost>());
    EXPECT_THAT(install::product_impl::utils::getInstalledHardwareSupportPackages(u"/a"),
                UnorderedElementsAre(u"sensorkit", u"under /a"));
}

TEST_F(HostServicesTest, DoNotChangeTheInstallFolder) {
    setHostServices(std::make_shared<const FixedHost>());
    EXPECT_EQ(hostServices()->installPath(), u"/opt/fixed");
    EXPECT_EQ(fl::filesystem::get_install_path(), defaultHostServices()->installPath());
}

class FailingHost final : public FixedHost {
public:
    std::u16string docLanguage() const override { throw std::runtime_error("no language"); }
    std::vector<std::shared_ptr<const TopLevelDocProduct>>
    installedTopLevelDocProducts() const override {
        throw std::runtime_error("no catalogue");
    }
};

TEST_F(HostServicesTest, PassTheirExceptionsToTheCaller) {
    setHostServices(std::make_shared<const FailingHost>());
    EXPECT_THROW(doclanguage::DocLanguage::getInstance().getDocLanguage(), std::runtime_error);
    EXPECT_THROW(
        DocProductCacheManager::getInstance().getDocProductCache().getTopLevelDocProducts(),
        std::runtime_error);
}

} // namespace

} // namespace platform
