#include "platform/HostServices.hpp"
#include "tests/stress/ProgressWatch.hpp"
#include "tests/stress/StressHost.hpp"
#include "tests/support/LogCallback.hpp"
#include "tests/support/ZipBytes.hpp"
#include "tests/system/SystemTest.hpp"

#include <algorithm>
#include <array>
#include <atomic>
#include <barrier>
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <iterator>
#include <random>
#include <string>
#include <thread>
#include <vector>

namespace docparser_tests {
namespace {

constexpr std::size_t kThreads = 8;
constexpr int kRoots = 3;

// The duration of the test: DOCPARSER_STRESS_SECONDS, or one second by default.
double stressSeconds() {
    const char* const seconds = std::getenv("DOCPARSER_STRESS_SECONDS");
    return seconds ? std::strtod(seconds, nullptr) : 1;
}

std::u16string wide(const std::string& text) {
    return {text.begin(), text.end()};
}

// Several reference roots and support folders. The data of each contains its name, so every result
// shows which of them the call has read.
class StressTest : public SystemTest {
protected:
    using Random = std::minstd_rand;

    StressTest() {
        for (int number = 0; number < kRoots; ++number) {
            const std::string name = "root" + std::to_string(number);
            writeRoot(name);
            rootNames_.push_back(wide(name));
        }
        for (const std::string name : {"kits0", "kits1"})
            writeProduct(name + "/", "K", name);
        writeProduct("support/help/docCatalog/referenceapi/", "K", "kits2");
        for (auto& anyHost : hosts_)
            anyHost = std::make_shared<StressHost>(folder.u16() + u"/support");
        platform::setHostServices(hosts_.front());
        changeRoot(random_);
    }

    // --- data

    void writeProduct(const std::string& below, const std::string& product,
                      const std::string& name) const {
        folder.write(below + product + ".json", resourceText(name, {{"a.html", name}}));
        folder.write(below + product + "_de.json", resourceText(name, {{"b.html", name}}));
    }

    void writeRoot(const std::string& name) const {
        writeProduct(name + "/docCatalog/referenceapi/", "P", name);
        const std::string lookups = name + "/docCatalog/referenceapi_lookup/";
        folder.write(lookups + "P.json", lookupText(name + "plain"));
        ZipBytes zip;
        for (const std::string entry : {"one", "two"}) {
            zip.entries.push_back({.name = entry + ".json",
                                   .content = lookupText(name + entry),
                                   .method = kDeflated});
        }
        folder.write(lookups + "Z.zip", zip.build());
    }

    static std::string lookupText(const std::string& name) {
        return ResourceText(name).add(lookupItem(name, "a.html", name)).str();
    }

    static Resources resourcesOf(const std::u16string& name, const std::u16string& product) {
        return {{name, section(name, product, {{u"a.html", name}, {u"b.html", name}})}};
    }

    static ResourceMap<RefItemLookup> lookupsOf(const std::u16string& root) {
        ResourceMap<RefItemLookup> lookups;
        for (const auto& [part, product] :
             {std::pair{u"one", u"one"}, {u"plain", u"P"}, {u"two", u"two"}}) {
            const std::u16string name = root + part;
            lookups.emplace(name,
                            lookupSection(name, product, {lookupRecord(name, u"a.html", name)}));
        }
        return lookups;
    }

    // --- settings

    void changeRoot(Random& random) {
        DocResourceParser::setReferenceRoot(folder.u16() + u"/" +
                                            rootNames_[random() % rootNames_.size()]);
    }
    void changeSupportFolder(Random& random) {
        DocResourceParser::setSupportPackageRoot(folder.u16() +
                                                 (random() % 2 ? u"/kits0" : u"/kits1"));
    }
    void changeTestProducts(Random& random) {
        // Both lists have the same number, so that the operations can compare them.
        const std::u16string number = wide(std::to_string(random() % 1000));
        DocResourceParser::setTestProducts({u"product" + number}, {u"kit" + number});
    }
    void restoreDefaults(Random& random) {
        DocResourceParser::restoreDefaultSettings();
        changeRoot(random);
    }
    void clearCaches(Random&) { DocResourceParser::clearSupportPackageCaches(); }
    void changeHost(Random& random) { platform::setHostServices(hosts_[random() % hosts_.size()]); }
    void changeLimits(Random& random) {
        platform::setReadLimits({.fileBytes = 1'000'000 + random() % 1000});
    }
    void changeMask(Random& random) {
        foundation::log::setSeverityMask(random() % 4 == 0 ? 528 : 0);
    }

    // --- operations, each with checks of its result

    void readResources(Random&) {
        const std::optional<Resources> found = findResources(u"P");
        // restoreDefaults() briefly sets a root without the product.
        expect(!found || std::ranges::any_of(rootNames_,
                                             [&](const std::u16string& name) {
                                                 return *found == resourcesOf(name, u"P");
                                             }),
               "resources mix two roots");
    }
    void readSupportResources(Random&) {
        const std::optional<Resources> found = findResources(u"K");
        expect(found &&
                   (*found == resourcesOf(u"kits0", u"K") ||
                    *found == resourcesOf(u"kits1", u"K") || *found == resourcesOf(u"kits2", u"K")),
               "resources are missing or mix two support folders");
    }
    void readLookups(Random&) {
        Lookups found = DocResourceParser::getResourceLookupFiles();
        found.notInstalled.merge(found.installed);
        expect(found.installed.empty(), "a section is both installed and not installed");
        expect(found.notInstalled.empty() || std::ranges::any_of(rootNames_,
                                                                 [&](const std::u16string& name) {
                                                                     return found.notInstalled ==
                                                                            lookupsOf(name);
                                                                 }),
               "lookups mix two roots");
    }
    void readRoots(Random&) {
        const auto roots = DocResourceParser::getReferenceRoots();
        expect(roots->referenceApiFolder == roots->root + native(u"/docCatalog/referenceapi") &&
                   roots->lookupFolder == roots->root + native(u"/docCatalog/referenceapi_lookup"),
               "folders of different roots");
    }
    void readSupportFolder(Random&) {
        const std::u16string found = *DocResourceParser::getSupportPackageRoot();
        expect(found == folder.u16() + u"/kits0" || found == folder.u16() + u"/kits1" ||
                   portable(found) ==
                       portable(folder.u16()) + u"/support/help/docCatalog/referenceapi",
               "unknown support folder");
    }
    void listProducts(Random&) {
        const auto roots = DocResourceParser::getReferenceRoots();
        const auto products =
            DocResourceParser::getAllProducts(roots->lookupFolder, {u"_de"}, u"_de");
        expect(products.jsonProducts.size() == products.zipProducts.size(), "incomplete listing");
    }
    void askForProducts(Random& random) {
        expect(!DocResourceParser::isProductInstalled(u"never"), "an unknown product is installed");
        static_cast<void>(DocResourceParser::isProductInstalled(
            u"product" + wide(std::to_string(random() % 1000))));
    }

    static std::u16string numberOf(const FakeHost::Packages& packages) {
        return packages.size() == 1 ? packages.begin()->substr(3) : u"not one package";
    }
    static std::u16string numberOf(const auto& products) {
        return products.size() == 1 ? wide(products.front()->getShortName().substr(7))
                                    : u"not one product";
    }
    static bool isOfTest(const FakeHost::Packages& packages) {
        return !packages.contains(u"hostkit");
    }
    static bool isOfTest(const auto& products) {
        return products.front()->getShortName() != "hostproduct";
    }

    // One call sets test products and packages together. While the packages are the same object,
    // the products must be those of the same call.
    void readProductsBetweenPackages(Random&) {
        const auto before = DocResourceParser::getHardwareSupportPackages();
        const auto products = DocResourceParser::getTopLevelProducts();
        const auto after = DocResourceParser::getHardwareSupportPackages();
        if (before != after || !isOfTest(*before))
            return;
        ++pairsSeen_;
        expect(numberOf(*products) == numberOf(*before),
               "products and packages of different calls");
    }
    // clearCaches() drops only the packages; they are then replaced by those of the host.
    void readPackagesBetweenProducts(Random&) {
        const auto before = DocResourceParser::getTopLevelProducts();
        const auto packages = DocResourceParser::getHardwareSupportPackages();
        const auto after = DocResourceParser::getTopLevelProducts();
        if (before != after || !isOfTest(*before) || !isOfTest(*packages))
            return;
        ++pairsSeen_;
        expect(numberOf(*packages) == numberOf(*before),
               "packages and products of different calls");
    }

    // --- run

    struct Step {
        const char* name;
        void (StressTest::*run)(Random&);
    };

    static constexpr Step kSteps[] = {
        {"setReferenceRoot", &StressTest::changeRoot},
        {"setSupportPackageRoot", &StressTest::changeSupportFolder},
        {"setTestProducts", &StressTest::changeTestProducts},
        {"restoreDefaultSettings", &StressTest::restoreDefaults},
        {"clearSupportPackageCaches", &StressTest::clearCaches},
        {"setHostServices", &StressTest::changeHost},
        {"setReadLimits", &StressTest::changeLimits},
        {"setSeverityMask", &StressTest::changeMask},
        {"getResourceFile, root", &StressTest::readResources},
        {"getResourceFile, support folder", &StressTest::readSupportResources},
        {"getResourceLookupFiles", &StressTest::readLookups},
        {"getReferenceRoots", &StressTest::readRoots},
        {"getSupportPackageRoot", &StressTest::readSupportFolder},
        {"getAllProducts", &StressTest::listProducts},
        {"isProductInstalled", &StressTest::askForProducts},
        {"products between packages", &StressTest::readProductsBetweenPackages},
        {"packages between products", &StressTest::readPackagesBetweenProducts}};

    void work(std::size_t thread, std::chrono::steady_clock::time_point end,
              ProgressWatch& progress) {
        ObservedThread observedThread;
        Random random(static_cast<unsigned>(thread + 1));
        while (std::chrono::steady_clock::now() < end && !HasFailure()) {
            const std::size_t index = random() % std::size(kSteps);
            (this->*kSteps[index].run)(random);
            observedThread.forget();
            ++counts_[index];
            progress.step(thread);
        }
        progress.step(thread, /*isAtEnd=*/true);
    }

    void run(double seconds) {
        const auto end = std::chrono::steady_clock::now() +
                         std::chrono::microseconds(static_cast<std::int64_t>(seconds * 1'000'000));
        ProgressWatch progress(kThreads);
        std::barrier start(kThreads);
        std::vector<std::thread> threads;
        for (std::size_t thread = 0; thread < kThreads; ++thread) {
            threads.emplace_back([&, thread] {
                start.arrive_and_wait();
                work(thread, end, progress);
            });
        }
        for (std::thread& thread : threads)
            thread.join();
        for (std::size_t thread = 0; thread < kThreads; ++thread)
            EXPECT_GT(progress.count(thread), 0U) << "thread " << thread;
    }

    void printCounts() const {
        std::uint64_t sum = 0;
        for (std::size_t index = 0; index < std::size(kSteps); ++index) {
            std::cout << kSteps[index].name << ": " << counts_[index] << '\n';
            sum += counts_[index];
        }
        std::cout << "pairs of products and packages compared: " << pairsSeen_
                  << "\nlog records: " << lines_ << "\ntotal steps: " << sum << '\n';
    }

    void expect(bool holds, const char* what) {
        if (!holds)
            ADD_FAILURE() << what;
    }

    std::atomic<std::uint64_t> lines_ = 0;

private:
    Random random_;
    std::vector<std::u16string> rootNames_;
    std::array<std::shared_ptr<const StressHost>, 2> hosts_;
    std::array<std::atomic<std::uint64_t>, std::size(kSteps)> counts_{};
    std::atomic<std::uint64_t> pairsSeen_ = 0;
};

TEST_F(StressTest, EveryCallSeesOneStateOfTheSettingsAndEveryThreadProgresses) {
    {
        const LogCallback log([this](const std::string& message) {
            ++lines_;
            // restoreDefaults() briefly sets a root without the product P.
            expect(message.starts_with("Reading file: ") ||
                       message == "DocParserException thrown in getResourceFile for product: P",
                   "a failure was logged");
        });
        run(stressSeconds());
    }
    printCounts();
}

} // namespace
} // namespace docparser_tests
