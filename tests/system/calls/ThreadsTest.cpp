#include "tests/system/SystemTest.hpp"
#include "tests/system/Watchdog.hpp"

#include <algorithm>
#include <barrier>
#include <future>
#include <set>
#include <string>
#include <vector>

namespace docparser_tests {
namespace {

constexpr int kThreads = 8;
constexpr int kRounds = 300;

using Names = std::set<std::string>;

// Two reference roots and a support folder have different data, and the host has its own products.
// Each call sees the data of only one of them, even if the settings change while it runs.
class ThreadsTest : public SystemTest {
protected:
    ThreadsTest() {
        setLanguage(u"de");
        host->install({"orchard"});
        host->packages = {u"hostkit"};
        for (const std::string name : {"first", "second", "third"}) {
            const std::string english = resourceText(name, {{"a.html", name}});
            const std::string german = resourceText(name, {{"b.html", name}});
            const std::filesystem::path fullFolder =
                name == "third" ? name : name + "/docCatalog/referenceapi";
            folder.write(fullFolder / "P.json", english);
            folder.write(fullFolder / "P_de.json", german);
            folder.write(name + "/docCatalog/referenceapi_lookup/P.json",
                         ResourceText(name).add(lookupItem("n", "a.html", name)).str());
        }
    }

    std::u16string folderNamed(const std::u16string& name) const {
        return folder.u16() + u"/" + name;
    }

    static Resources resourcesOf(const std::u16string& name) {
        return {{name, section(name, u"P", {{u"a.html", name}, {u"b.html", name}})}};
    }
    static ResourceMap<RefItemLookup> lookupsOf(const std::u16string& name) {
        return {{name, lookupSection(name, u"P", {lookupRecord(u"n", u"a.html", name)})}};
    }

    void readRecords() {
        const std::optional<Resources> found = findResources(u"P");
        expect(!found || std::ranges::count(possibleResources, *found) == 1, "mixed records");
    }
    void readLookups() {
        const Lookups found = DocResourceParser::getResourceLookupFiles();
        expect(found.installed.empty(), "an installed section");
        expect(std::ranges::count(possibleLookups, found.notInstalled) == 1, "mixed lookups");
    }
    void readInstalled() {
        const auto productList = DocResourceParser::getTopLevelProducts();
        Names products;
        for (const auto& product : *productList)
            products.insert(product->getShortName());
        expect(possibleProducts.contains(products), "torn products");

        const auto packages = DocResourceParser::getHardwareSupportPackages();
        expect(possiblePackages.contains(std::set(packages->begin(), packages->end())),
               "torn packages");
        expect(!DocResourceParser::isProductInstalled(u"never"), "unknown product");
    }
    void readSettings() {
        const auto roots = DocResourceParser::getReferenceRoots();
        expect(roots->referenceApiFolder == roots->root + native(u"/docCatalog/referenceapi"),
               "torn roots");
        const std::u16string support = *DocResourceParser::getSupportPackageRoot();
        expect(support == folderNamed(u"third") ||
                   support == host->packageRoot + native(u"/help/docCatalog/referenceapi"),
               "torn support-package folder");
        expect(DocResourceParser::ParsingTools::getCurrentLocale() == u"de", "language");
    }
    void changeSettings(int round) {
        DocResourceParser::setReferenceRoot(folderNamed(round % 2 ? u"first" : u"second"));
        DocResourceParser::setTestProducts({u"a", u"b"}, {u"akit", u"bkit"});
        DocResourceParser::setSupportPackageRoot(folderNamed(u"third"));
        if (round % 3 == 0)
            DocResourceParser::clearSupportPackageCaches();
        DocResourceParser::setTestProducts({u"c"}, {});
        if (round % 4 == 0)
            DocResourceParser::restoreDefaultSettings();
        foundation::log::setSeverityMask(round % 2 ? 528 : 0);
    }

    // The work of one thread. Threads start with different operations, so that all of them overlap.
    void work(int thread) {
        for (int round = 0; round < kRounds; ++round) {
            switch ((thread + round) % 5) {
            case 0: readRecords(); break;
            case 1: changeSettings(round); break;
            case 2: readLookups(); break;
            case 3: readInstalled(); break;
            default: readSettings(); break;
            }
        }
    }

    void expect(bool holds, const char* what) {
        if (!holds)
            ADD_FAILURE() << what;
    }

    const std::vector<Resources> possibleResources = {resourcesOf(u"first"), resourcesOf(u"second"),
                                                      resourcesOf(u"third")};
    const std::vector<ResourceMap<RefItemLookup>> possibleLookups = {
        {}, lookupsOf(u"first"), lookupsOf(u"second")};
    const std::set<Names> possibleProducts = {{"orchard"}, {"a", "b"}, {"c"}};
    const std::set<std::set<std::u16string>> possiblePackages = {
        {u"hostkit"}, {u"akit", u"bkit"}, {}};
};

TEST_F(ThreadsTest, ConcurrentOperationsEachSeeOneState) {
    const LogCapture log(528);
    runWatched([this] {
        std::vector<std::future<void>> threads;
        threads.reserve(kThreads);
        for (int thread = 0; thread < kThreads; ++thread)
            threads.push_back(std::async(std::launch::async, [this, thread] { work(thread); }));
        for (std::future<void>& thread : threads)
            thread.get();
    });
    for (const LogLine& line : log.lines()) {
        EXPECT_EQ(line.channel, "referenceApi::docparser");
        EXPECT_TRUE(line.severity == (line.message.starts_with("Reading file: ") ? 16 : 512));
    }
}

TEST_F(ThreadsTest, ConcurrentChangesOfSettingsDoNotDeadlock) {
    runWatched([this] {
        std::vector<std::future<void>> threads;
        threads.reserve(kThreads);
        for (int thread = 0; thread < kThreads; ++thread)
            threads.push_back(std::async(std::launch::async, [this, thread] {
                for (int round = 0; round < 3 * kRounds; ++round) {
                    if (thread % 2)
                        changeSettings(thread + round);
                    else
                        readInstalled();
                }
            }));
        for (std::future<void>& thread : threads)
            thread.get();
    });
}

TEST_F(ThreadsTest, ConcurrentCallsShareOneSupportFolder) {
    for (int round = 0; round < kRounds; ++round) {
        DocResourceParser::clearSupportPackageCaches();
        std::vector<std::future<std::shared_ptr<const std::u16string>>> threads;
        threads.reserve(4);
        for (int thread = 0; thread < 4; ++thread)
            threads.push_back(
                std::async(std::launch::async, DocResourceParser::getSupportPackageRoot));
        std::set<std::shared_ptr<const std::u16string>> answers;
        for (auto& thread : threads)
            answers.insert(thread.get());
        EXPECT_EQ(answers.size(), 1U);
    }
}

TEST_F(ThreadsTest, ConcurrentCallsShareOnePackageQuery) {
    const auto timesAsked = [this] {
        return std::ranges::count_if(host->questions(), [](const std::string& question) {
            return question.starts_with("packages below ");
        });
    };
    for (int round = 0; round < kRounds; ++round) {
        DocResourceParser::clearSupportPackageCaches();
        host->forgetQuestions();
        std::barrier start(kThreads);
        std::vector<std::future<std::shared_ptr<const FakeHost::Packages>>> threads;
        threads.reserve(kThreads);
        for (int thread = 0; thread < kThreads; ++thread)
            threads.push_back(std::async(std::launch::async, [&start] {
                start.arrive_and_wait();
                return DocResourceParser::getHardwareSupportPackages();
            }));
        std::set<std::shared_ptr<const FakeHost::Packages>> answers;
        for (auto& thread : threads)
            answers.insert(thread.get());
        EXPECT_EQ(answers.size(), 1U);
        EXPECT_EQ(timesAsked(), 1);
    }
}

} // namespace
} // namespace docparser_tests
