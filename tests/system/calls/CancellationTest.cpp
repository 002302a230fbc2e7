#include "tests/support/Cancellation.hpp"

#include "tests/support/LogCallback.hpp"
#include "tests/support/OpenDescriptors.hpp"
#include "tests/support/ZipBytes.hpp"
#include "tests/system/SystemTest.hpp"
#include "tests/system/Watchdog.hpp"

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace docparser_tests {
namespace {

// Threads that are cancelled during an operation. A thread that cannot be unwound would end the
// process.
class CancellationTest : public SystemTest {
protected:
    CancellationTest() {
        setLanguage(u"de");
        addApi("Orchard.json", resourceText("orchard", {}));
        addApi("Orchard_de.json", resourceText("german", {}));
        addLookup("Orchard.json", ResourceText("orchard").str());
        ZipBytes zip;
        for (const std::string name : {"packed", "deflated"}) {
            ZipEntryBytes& entry = zip.entries.emplace_back();
            entry.name = name + ".json";
            entry.content = ResourceText(name).str();
            entry.method = name == "packed" ? kStored : kDeflated;
        }
        addLookup("Packed.zip", zip.build());
    }

    static void read() {
        DocResourceParser::getResourceFile(u"Orchard");
        DocResourceParser::getResourceLookupFiles();
    }

    void expectEverythingWorks() const {
        runWatched([] {
            EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard").size(), 2U);
            EXPECT_EQ(DocResourceParser::getResourceLookupFiles().notInstalled.size(), 3U);
            DocResourceParser::setTestProducts({u"orchard"}, {});
            EXPECT_EQ(DocResourceParser::getResourceLookupFiles().installed.size(), 1U);
            const auto roots = DocResourceParser::getReferenceRoots();
            DocResourceParser::restoreDefaultSettings();
            DocResourceParser::setReferenceRoot(roots->root);
        });
    }
};

TEST_F(CancellationTest, CancelledThreadIsUnwoundAtEveryLogLine) {
    constexpr int kLines = 5;
    const auto openBefore = openDescriptors();
    for (int line = 0; line < kLines; ++line) {
        SCOPED_TRACE(line);
        {
            int left = line;
            const LogCallback callback([&left](const std::string&) {
                if (left-- == 0) {
                    cancelThisThread();
                    pthread_testcancel();
                }
            });
            EXPECT_TRUE(isCancelledIn(read));
        }
        EXPECT_LE(openDescriptors(), openBefore);
        expectEverythingWorks();
    }
}

TEST_F(CancellationTest, ThreadCancelledInHostServiceReleasesItsLocks) {
    const std::function<void()> end = [] {
        cancelThisThread();
        pthread_testcancel();
    };
    for (auto* hook :
         {&host->onLanguage, &host->onProducts, &host->onPackageRoot, &host->onPackages}) {
        *hook = end;
        EXPECT_TRUE(isCancelledIn(read));
        *hook = nullptr;
        DocResourceParser::clearSupportPackageCaches();
        expectEverythingWorks();
    }
}

TEST_F(CancellationTest, CancelledThreadClosesItsPackage) {
    std::filesystem::remove(lookupPath("Orchard.json"));
    const auto openBefore = openDescriptors();
    int questions = 0;
    host->onProducts = [&questions] {
        if (++questions == 2)
            cancelThisThread();
    };
    std::size_t sections = 0;
    // Both entries have been read at that time, and closing a package is not a cancellation point.
    EXPECT_FALSE(isCancelledIn([&sections] {
        sections = DocResourceParser::getResourceLookupFiles().notInstalled.size();
    }));
    EXPECT_EQ(sections, 2U);
    EXPECT_LE(openDescriptors(), openBefore);
}

} // namespace
} // namespace docparser_tests
