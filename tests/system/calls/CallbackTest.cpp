#include "docparser/DocParserException.hpp"
#include "tests/support/LogCallback.hpp"
#include "tests/system/SystemTest.hpp"
#include "tests/system/Watchdog.hpp"

#include <atomic>
#include <future>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace docparser_tests {
namespace {

using reference::docparser::DocParserException;

// Code of the host application that runs during an operation: log sinks and host services.
class CallbackTest : public SystemTest {
protected:
    // Calls every operation that locks the settings.
    static void useEverySetting() {
        const auto roots = DocResourceParser::getReferenceRoots();
        DocResourceParser::setReferenceRoot(roots->root);
        DocResourceParser::isProductInstalled(u"orchard");
        DocResourceParser::setTestProducts({u"orchard"}, {u"sensorkit"});
        DocResourceParser::setSupportPackageRoot(u"F");
        DocResourceParser::clearSupportPackageCaches();
        DocResourceParser::restoreDefaultSettings();
        DocResourceParser::setReferenceRoot(roots->root);
    }

    const std::string text = resourceText("orchard", {});
    const Resources found = {{u"orchard", section(u"orchard", u"Orchard", {})}};
};

bool isReading(const std::string& message) {
    return message.starts_with("Reading file: ");
}

TEST_F(CallbackTest, HoldsNoLockWhileReadingResourceFile) {
    addSupport("Orchard.json", text);
    runWatched([this] {
        int lines = 0;
        const LogCallback callback([&lines](const std::string&) {
            ++lines;
            useEverySetting();
        });
        EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), found);
        EXPECT_EQ(lines, 2);
        EXPECT_THROW(DocResourceParser::getResourceFile(u"Absent"), DocParserException);
        EXPECT_EQ(lines, 5);
    });
}

TEST_F(CallbackTest, HoldsNoLockWhileReadingLookupFile) {
    addLookup("Orchard.json", ResourceText("orchard").str());
    runWatched([] {
        int lines = 0;
        const LogCallback callback([&lines](const std::string&) {
            ++lines;
            useEverySetting();
        });
        EXPECT_EQ(DocResourceParser::getResourceLookupFiles().notInstalled.size(), 1U);
        EXPECT_EQ(lines, 1);
    });
}

TEST_F(CallbackTest, SinkMayReadResources) {
    addApi("Orchard.json", text);
    addApi("Inner.json", resourceText("inner", {}));
    runWatched([this] {
        std::size_t innerSections = 0;
        const LogCallback callback([&innerSections](const std::string& message) {
            if (message.ends_with("Orchard.json"))
                innerSections += DocResourceParser::getResourceFile(u"Inner").count(u"inner");
        });
        EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), found);
        EXPECT_EQ(innerSections, 1U);
    });
}

TEST_F(CallbackTest, CallKeepsTheRootsItStartedWith) {
    setLanguage(u"de");
    addApi("Orchard.json", text);
    addApi("Orchard_de.json", resourceText("german", {}));
    host->onLanguage = [] { DocResourceParser::setReferenceRoot(u"/no/such/root"); };
    const Resources expected = {{u"orchard", section(u"orchard", u"Orchard", {})},
                                {u"german", section(u"german", u"Orchard", {})}};
    EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), expected);
    EXPECT_EQ(findResources(u"Orchard"), std::nullopt);
}

TEST_F(CallbackTest, AsksForTheSupportFolderOnlyIfTheRootHasNoFile) {
    folder.write("late/Orchard.json", text);
    host->onLanguage = [this] {
        DocResourceParser::setSupportPackageRoot(folder.u16() + u"/late");
    };
    EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), found);
}

TEST_F(CallbackTest, ThrowingSinkSkipsOnlyThatResourceFile) {
    setLanguage(u"de");
    addApi("Orchard.json", resourceText("lost", {}));
    addApi("Orchard_de.json", text);
    const LogCallback callback([](const std::string& message) {
        if (message.ends_with("Orchard.json"))
            throw std::runtime_error("the disk of the log is full");
    });
    EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), found);
}

TEST_F(CallbackTest, ThrowingSinkSkipsOnlyThatLookupFile) {
    addLookup("Lost.json", ResourceText("lost").str());
    addLookup("Orchard.json", ResourceText("orchard").str());
    const LogCallback callback([](const std::string& message) {
        if (message.ends_with("Lost.json"))
            throw 7;
    });
    const Lookups expected = {{}, {{u"orchard", lookupSection(u"orchard", u"Orchard", {})}}};
    EXPECT_EQ(DocResourceParser::getResourceLookupFiles(), expected);
}

TEST_F(CallbackTest, SinkThatThrowsBeforeDocParserExceptionThrowsToTheCaller) {
    addApi("Orchard.json", text);
    const LogCallback callback([](const std::string& message) {
        if (!isReading(message))
            throw std::runtime_error("the disk of the log is full");
    });
    EXPECT_THROW(DocResourceParser::getResourceFile(u"Absent"), std::runtime_error);
    EXPECT_THROW(DocResourceParser::getResourceFile(u"Absent"), std::runtime_error);
    EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), found);
}

TEST_F(CallbackTest, SinkThatThrowsAtProblemSkipsOnlyThatFile) {
    addApi("Orchard.json", resourceText("too long for the limit", {}));
    addSupport("Orchard.json", text);
    platform::setReadLimits({.fileBytes = text.size()});
    const LogCallback callback([](const std::string& message) {
        if (!isReading(message))
            throw std::runtime_error("the disk of the log is full");
    });
    EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), found);
}

// Blocks a call to the host until it is released.
class Gate {
public:
    // Runs in the host service.
    void pass() {
        arrived_.set_value();
        released_.get_future().wait();
    }
    void waitForArrival() { arrived_.get_future().wait(); }
    void release() { released_.set_value(); }

private:
    std::promise<void> arrived_;
    std::promise<void> released_;
};

TEST_F(CallbackTest, SlowCatalogueDelaysNoReader) {
    addApi("Orchard.json", text);
    host->install({"orchard"});
    Gate gate;
    host->onProducts = [&gate] { gate.pass(); };
    runWatched([&] {
        auto products = std::async(std::launch::async, DocResourceParser::getTopLevelProducts);
        gate.waitForArrival();
        EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), found);
        DocResourceParser::setReferenceRoot(DocResourceParser::getReferenceRoots()->root);
        DocResourceParser::getHardwareSupportPackages();
        DocResourceParser::setSupportPackageRoot(u"F");
        gate.release();
        EXPECT_EQ(products.get()->size(), 1U);
    });
}

TEST_F(CallbackTest, SlowPackageQueryDelaysNoReader) {
    addApi("Orchard.json", text);
    Gate gate;
    host->packages = {u"sensorkit"};
    host->onPackages = [&gate] { gate.pass(); };
    runWatched([&] {
        auto packages =
            std::async(std::launch::async, DocResourceParser::getHardwareSupportPackages);
        gate.waitForArrival();
        EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), found);
        DocResourceParser::setReferenceRoot(DocResourceParser::getReferenceRoots()->root);
        DocResourceParser::getTopLevelProducts();
        DocResourceParser::getSupportPackageRoot();
        gate.release();
        EXPECT_EQ(packages.get()->size(), 1U);
    });
}

TEST_F(CallbackTest, TestProductsTakeEffectAfterTheCurrentAnswer) {
    host->install({"orchard"});
    Gate gate;
    host->onProducts = [&gate] { gate.pass(); };
    runWatched([&] {
        auto products = std::async(std::launch::async, DocResourceParser::getTopLevelProducts);
        gate.waitForArrival();
        auto change = std::async(std::launch::async,
                                 [] { DocResourceParser::setTestProducts({}, {u"testkit"}); });
        gate.release();
        EXPECT_EQ(products.get()->size(), 1U);
        change.get();
        EXPECT_TRUE(DocResourceParser::getTopLevelProducts()->empty());
        EXPECT_TRUE(DocResourceParser::isProductInstalled(u"testkit"));
    });
}

TEST_F(CallbackTest, CatalogueIsCalledByOneThreadAtATime) {
    std::atomic<int> inside = 0;
    std::atomic<int> most = 0;
    host->onProducts = [&] {
        const int now = ++inside;
        if (now > most)
            most = now;
        std::this_thread::yield();
        --inside;
    };
    runWatched([] {
        std::vector<std::future<void>> threads;
        for (int thread = 0; thread < 4; ++thread)
            threads.push_back(std::async(std::launch::async, [] {
                for (int call = 0; call < 200; ++call)
                    DocResourceParser::isProductInstalled(u"orchard");
            }));
        for (std::future<void>& thread : threads)
            thread.get();
    });
    EXPECT_EQ(host->count("products"), 800);
    EXPECT_EQ(most, 1);
}

} // namespace
} // namespace docparser_tests
