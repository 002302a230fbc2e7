#include "tests/support/LogCallback.hpp"
#include "tests/support/ZipBytes.hpp"
#include "tests/system/SystemTest.hpp"
#include "tests/system/Watchdog.hpp"

#include <pthread.h>

#include <filesystem>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

namespace docparser_tests {
namespace {

// Threads that are cancelled in the middle of an operation. A process that could not unwind such a
// thread would end.
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

    struct Call {
        const std::function<void()>& operation;
        bool isAtEnd = false;
    };

    // Runs an operation on a thread of its own; true when the thread was cancelled before the
    // operation had come to its end.
    static bool isCancelledIn(const std::function<void()>& operation) {
        Call call{operation};
        const auto run = [](void* argument) -> void* {
            Call& own = *static_cast<Call*>(argument);
            own.operation();
            own.isAtEnd = true;
            return nullptr;
        };
        pthread_t thread{};
        EXPECT_EQ(pthread_create(&thread, nullptr, run, &call), 0);
        void* result = nullptr;
        EXPECT_EQ(pthread_join(thread, &result), 0);
        EXPECT_EQ(result == PTHREAD_CANCELED, !call.isAtEnd);
        return !call.isAtEnd;
    }

    // Asks for the end of the calling thread: it ends at the next place that lets it pass.
    static void cancelThisThread() { EXPECT_EQ(pthread_cancel(pthread_self()), 0); }

    static std::ptrdiff_t openFiles() {
        return std::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                             std::filesystem::directory_iterator());
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

TEST_F(CancellationTest, AThreadThatIsToEndEndsInTheReadingOfItsFiles) {
    const auto openBefore = openFiles();
    EXPECT_TRUE(isCancelledIn([] {
        cancelThisThread();
        DocResourceParser::getResourceFile(u"Orchard");
    }));
    EXPECT_TRUE(isCancelledIn([] {
        cancelThisThread();
        DocResourceParser::getResourceLookupFiles();
    }));
    EXPECT_EQ(openFiles(), openBefore);
    expectEverythingWorks();
}

TEST_F(CancellationTest, AnEntryOfAPackageIsNoLongerReadOnceItsThreadIsToEnd) {
    std::filesystem::remove(lookupPath("Orchard.json"));
    const auto openBefore = openFiles();
    std::vector<std::string> messages;
    const LogCallback callback([&](const std::string& message) {
        messages.push_back(message);
        if (message.ends_with("deflated"))
            cancelThisThread();
    });
    EXPECT_TRUE(isCancelledIn([] { DocResourceParser::getResourceLookupFiles(); }));
    EXPECT_THAT(messages, testing::ElementsAre("Reading file: packed", "Reading file: deflated"));
    EXPECT_EQ(openFiles(), openBefore);
}

// The k-th line of the log is where the thread is asked to end, for each k.
TEST_F(CancellationTest, AtWhateverLineAThreadIsToEndItIsUnwound) {
    constexpr int kLines = 5;
    const auto openBefore = openFiles();
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
        EXPECT_EQ(openFiles(), openBefore);
        expectEverythingWorks();
    }
}

TEST_F(CancellationTest, AThreadThatEndsInAnAnswerOfTheHostLeavesNoLockBehind) {
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

TEST_F(CancellationTest, AThreadThatIsToEndWhileItsPackageIsOpenClosesIt) {
    std::filesystem::remove(lookupPath("Orchard.json"));
    const auto openBefore = openFiles();
    int questions = 0;
    host->onProducts = [&questions] {
        if (++questions == 2)
            cancelThisThread();
    };
    std::size_t sections = 0;
    // Both entries have been read by then, and closing a package is no place to end at.
    EXPECT_FALSE(isCancelledIn([&sections] {
        sections = DocResourceParser::getResourceLookupFiles().notInstalled.size();
    }));
    EXPECT_EQ(sections, 2U);
    EXPECT_EQ(openFiles(), openBefore);
}

} // namespace
} // namespace docparser_tests
