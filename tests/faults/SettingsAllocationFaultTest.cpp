#include "platform/InstallationManifest.hpp"
#include "tests/faults/FaultTest.hpp"

#include <memory>
#include <optional>
#include <unordered_set>

namespace docparser_tests {
namespace {

using reference::docparser::ReferenceRoots;
using SupportPackages = std::unordered_set<std::u16string>;
using Products = std::vector<std::shared_ptr<const docproduct::TopLevelDocProduct>>;

// The new value of a setting, too long for small-string storage.
const std::u16string kOtherFolder = u"/another/folder/of/the/same/kind";

std::vector<std::string> shortNames(const Products& products) {
    std::vector<std::string> names;
    for (const auto& product : products)
        names.push_back(product->getShortName());
    return names;
}

class SettingsAllocationFaultTest : public FaultTest {
protected:
    // An operation that returns its result or throws std::bad_alloc. The next call must succeed.
    template <class Result>
    Operation<Result> asking(std::function<Result()> act) const {
        const Result expected = act();
        return operation<Result>(act, [act, expected](const Outcome<Result>& outcome) {
            if (outcome.ending != Ending::BadAlloc) {
                EXPECT_EQ(outcome.result, expected);
            }
            EXPECT_EQ(act(), expected) << "the next call";
        });
    }

    // An operation that changes a setting, or throws std::bad_alloc and leaves it unchanged.
    // \param value  returns the setting; called before and after the change
    template <class Value>
    Operation<bool> changing(const std::function<void()>& change,
                             const std::function<Value()>& value) const {
        const auto before = std::make_shared<std::optional<Value>>();
        Operation<bool> result = operation<bool>(
            [change] {
                change();
                return true;
            },
            [before, value](const Outcome<bool>& outcome) {
                if (outcome.ending == Ending::Result) {
                    EXPECT_NE(value(), **before);
                } else {
                    EXPECT_EQ(outcome.ending, Ending::BadAlloc);
                    EXPECT_EQ(value(), **before);
                }
            });
        result.prepare = [this, before, value] {
            reset();
            before->emplace(value());
        };
        result.restore = [this, before] {
            before->reset();
            reset();
        };
        return result;
    }
};

TEST_F(SettingsAllocationFaultTest, FailedAllocationLeavesReferenceRootUnchanged) {
    const auto setting = changing<std::shared_ptr<const ReferenceRoots>>(
        [] { DocResourceParser::setReferenceRoot(kOtherFolder); },
        DocResourceParser::getReferenceRoots);
    EXPECT_GT(failEachAllocation(setting), 3U);
}

TEST_F(SettingsAllocationFaultTest, FailedAllocationLeavesSupportFolderUnchanged) {
    const auto setting = changing<std::shared_ptr<const std::u16string>>(
        [] { DocResourceParser::setSupportPackageRoot(kOtherFolder); },
        DocResourceParser::getSupportPackageRoot);
    EXPECT_GT(failEachAllocation(setting), 1U);
}

TEST_F(SettingsAllocationFaultTest, FailedRestoreOfDefaultsLeavesSettingsUnchanged) {
    const auto setting = changing<std::shared_ptr<const ReferenceRoots>>(
        DocResourceParser::restoreDefaultSettings, DocResourceParser::getReferenceRoots);
    EXPECT_GT(failEachAllocation(setting), 3U);
}

TEST_F(SettingsAllocationFaultTest, FailedAllocationLeavesPackagesUnchangedAndProductsOldOrNew) {
    const std::vector<std::u16string> names = {u"first test product", u"second test product"};
    const std::vector<std::u16string> packageNames = {u"first test package",
                                                      u"second test package"};
    const std::vector<std::string> oldNames = {"orchard"};
    const std::vector<std::string> newNames = {"first test product", "second test product"};
    std::shared_ptr<const SupportPackages> oldPackages;
    std::size_t unchanged = 0;
    std::size_t halfChanged = 0;
    Operation<bool> setting = operation<bool>(
        [&] {
            DocResourceParser::setTestProducts(names, packageNames);
            return true;
        },
        [&](const Outcome<bool>& outcome) {
            const auto products = shortNames(*DocResourceParser::getTopLevelProducts());
            const auto packages = DocResourceParser::getHardwareSupportPackages();
            if (outcome.ending == Ending::Result) {
                EXPECT_EQ(products, newNames);
                EXPECT_EQ(*packages, SupportPackages(packageNames.begin(), packageNames.end()));
                return;
            }
            EXPECT_EQ(outcome.ending, Ending::BadAlloc);
            EXPECT_EQ(packages, oldPackages);
            unchanged += products == oldNames ? 1 : 0;
            halfChanged += products == newNames ? 1 : 0;
        });
    setting.prepare = [&] {
        reset();
        oldPackages = DocResourceParser::getHardwareSupportPackages();
    };
    setting.restore = [&] {
        oldPackages.reset();
        reset();
    };
    const std::size_t failed = failEachAllocation(setting);
    // The products are set before the packages, so a failure in between changes only the products.
    EXPECT_GT(unchanged, 0U);
    EXPECT_GT(halfChanged, 0U);
    EXPECT_EQ(unchanged + halfChanged, failed);
}

TEST_F(SettingsAllocationFaultTest, ClearingTheCachesAllocatesNothing) {
    DocResourceParser::getHardwareSupportPackages();
    const AllocationFaults faults(1, Repetition::FromThenOn);
    DocResourceParser::clearSupportPackageCaches();
    EXPECT_EQ(faults.failures(), 0U);
}

TEST_F(SettingsAllocationFaultTest, GettingTheRootsAllocatesNothing) {
    const AllocationFaults faults(1, Repetition::FromThenOn);
    const std::shared_ptr<const ReferenceRoots> roots = DocResourceParser::getReferenceRoots();
    EXPECT_EQ(faults.failures(), 0U);
}

TEST_F(SettingsAllocationFaultTest, TopLevelProductsAreCompleteOrThrowBadAlloc) {
    const auto products =
        asking<Products>([] { return *DocResourceParser::getTopLevelProducts(); });
    EXPECT_GT(failEachAllocation(products), 2U);
}

TEST_F(SettingsAllocationFaultTest, SupportFolderIsCorrectOrThrowsBadAlloc) {
    const auto folders =
        asking<std::u16string>([] { return *DocResourceParser::getSupportPackageRoot(); });
    EXPECT_GT(failEachAllocation(folders), 2U);
}

TEST_F(SettingsAllocationFaultTest, FailedPackageQueryCountsAsNoPackagesUntilCachesAreCleared) {
    bool wasEmpty = false;
    const auto packages = operation<SupportPackages>(
        [] { return *DocResourceParser::getHardwareSupportPackages(); },
        [&](const Outcome<SupportPackages>& outcome) {
            const SupportPackages next = *DocResourceParser::getHardwareSupportPackages();
            EXPECT_TRUE(next.empty() || next == host->packages);
            if (outcome.ending == Ending::Result) {
                EXPECT_EQ(next, *outcome.result);
            } else {
                EXPECT_EQ(outcome.ending, Ending::BadAlloc);
            }
            wasEmpty = wasEmpty || next.empty();
            DocResourceParser::clearSupportPackageCaches();
            EXPECT_EQ(*DocResourceParser::getHardwareSupportPackages(), host->packages);
        });
    EXPECT_GT(failEachAllocation(packages), 5U);
    EXPECT_TRUE(wasEmpty);
}

TEST_F(SettingsAllocationFaultTest, TopLevelProductQueriesAreCorrectOrThrowBadAlloc) {
    const std::vector<std::u16string> names = {u"orchard", kSupportPackage, u"no such product"};
    const auto isInstalled = operation<std::vector<bool>>(
        [&] {
            std::vector<bool> answers;
            answers.reserve(names.size());
            for (const std::u16string& name : names)
                answers.push_back(DocResourceParser::isProductInstalled(name));
            return answers;
        },
        [](const Outcome<std::vector<bool>>& outcome) {
            if (outcome.ending == Ending::BadAlloc)
                return;
            ASSERT_TRUE(outcome.result);
            EXPECT_TRUE(outcome.result->at(0));
            EXPECT_FALSE(outcome.result->at(2));
        });
    EXPECT_GT(failEachAllocation(isInstalled), 10U);
}

TEST_F(SettingsAllocationFaultTest, InstallationManifestIsReadCompletelyOrNotAtAll) {
    folder.write("installation.json",
                 R"({"docLanguage": "a long language", "supportPackageRoot": "support packages",
                     "hardwareSupportPackages": ["robot toolkit", "another toolkit"],
                     "topLevelProducts": [{"shortName": "a product with a long name"}]})");
    const auto reading = asking<std::u16string>([this] {
        const platform::InstallationManifest manifest(folder.u16());
        return manifest.supportPackageRoot() + manifest.docLanguage();
    });
    EXPECT_GT(failEachAllocation(reading), kReachesLibraries ? 20U : 5U);
}

} // namespace
} // namespace docparser_tests
