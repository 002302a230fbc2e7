#include "platform/InstallationManifest.hpp"
#include "platform/system/RegularFile.hpp"
#include "tests/faults/FaultTest.hpp"
#include "tests/faults/FileFaults.hpp"

#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <filesystem>

namespace docparser_tests {
namespace {

using reference::docparser::ProductLists;
using testing::AnyOf;
using testing::Contains;

constexpr std::array kAllCalls = {FileCall::Open, FileCall::Status,     FileCall::Read,
                                  FileCall::Seek, FileCall::OpenFolder, FileCall::ReadFolder,
                                  FileCall::Close};

// Makes file calls fail and counts live allocations at the same time.
class AccountedFileFaults {
public:
    AccountedFileFaults(FileCall call, int error, std::size_t first, Repetition repetition)
        : faults_(call, error, first, repetition) {}

    std::size_t failures() const noexcept { return faults_.failures(); }

private:
    AllocationFaults account_{0, Repetition::Once};
    FileFaults faults_;
};

class FileFaultTest : public FaultTest {
public:
    ~FileFaultTest() override { EXPECT_EQ(wrongCloses(), 0U) << "something was closed twice"; }

protected:
    // Makes each call of one type fail in this way.
    template <class Result>
    static std::size_t failEach(const Operation<Result>& operation, FileCall call, int error,
                                Repetition repetition) {
        SCOPED_TRACE(testing::Message()
                     << "type of call " << static_cast<int>(call) << ", error " << error
                     << ", repetition " << static_cast<int>(repetition));
        return failEachCall(operation, [&](std::size_t nth) {
            return AccountedFileFaults(call, error, nth, repetition);
        });
    }

    // Makes each call of each type fail with realistic errors, alone and with all later calls.
    template <class Result>
    static void failEachFileCall(const Operation<Result>& operation) {
        for (const FileCall call : kAllCalls) {
            for (const int error : {EIO, EACCES, EMFILE, ENOENT}) {
                failEach(operation, call, error, Repetition::Once);
                failEach(operation, call, error, Repetition::FromThenOn);
            }
        }
    }

    // Interrupts each call and shortens each read. Neither is a failure, so the result is complete.
    template <class Result>
    static std::size_t interruptEachFileCall(Operation<Result> operation) {
        operation.prepare();
        const Result whole = operation.act();
        operation.judge = [whole](const Outcome<Result>& outcome) {
            EXPECT_EQ(outcome.result, whole);
        };
        std::size_t interrupted = 0;
        for (const FileCall call : kAllCalls) {
            interrupted += failEach(operation, call, EINTR, Repetition::Once);
            interrupted += failEach(operation, call, EINTR, Repetition::EverySecond);
        }
        interrupted += failEach(operation, FileCall::Read, kShortRead, Repetition::Once);
        interrupted += failEach(operation, FileCall::Read, kShortRead, Repetition::FromThenOn);
        return interrupted;
    }

    Operation<Resources> readResources(const std::u16string& product,
                                       const std::vector<Resources>& allowed) const {
        return operation<Resources>(
            [product] { return DocResourceParser::getResourceFile(product); },
            [allowed](const Outcome<Resources>& outcome) {
                if (outcome.ending != Ending::DocParserException) {
                    ASSERT_EQ(outcome.ending, Ending::Result);
                    EXPECT_THAT(allowed, Contains(*outcome.result));
                }
            });
    }

    Operation<Lookups> readLookups() const {
        return operation<Lookups>([] { return DocResourceParser::getResourceLookupFiles(); },
                                  [allowed = partialLookups()](const Outcome<Lookups>& outcome) {
                                      ASSERT_EQ(outcome.ending, Ending::Result);
                                      EXPECT_THAT(allowed, Contains(*outcome.result));
                                  });
    }

    using Listings = std::pair<Listing, Listing>;

    Operation<Listings> listProducts() const {
        const std::vector<std::u16string> suffixes = {u"_zh_Hant_TW", u"_de"};
        const auto list = [this, suffixes] {
            return describe(
                DocResourceParser::getAllProducts(lookupFolder(), suffixes, suffixes.front()));
        };
        return operation<Listings>(list, [whole = list()](const Outcome<Listings>& outcome) {
            ASSERT_EQ(outcome.ending, Ending::Result);
            EXPECT_TRUE(isStartOf(outcome.result->first, whole.first));
            EXPECT_TRUE(isStartOf(outcome.result->second, whole.second));
        });
    }

    Operation<std::u16string> readManifest() const {
        folder.write("installation.json", R"({"supportPackageRoot": "support packages"})");
        return operation<std::u16string>(
            [this] { return platform::InstallationManifest(folder.u16()).supportPackageRoot(); },
            [this](const Outcome<std::u16string>& outcome) {
                // A missing manifest names no folder; any other failure is reported.
                if (outcome.ending != Ending::OtherException) {
                    ASSERT_EQ(outcome.ending, Ending::Result);
                    EXPECT_THAT(*outcome.result, AnyOf(u"", folder.u16() + u"/support packages"));
                }
            });
    }
};

TEST_F(FileFaultTest, ResourcesAreCompleteOrLackOnlyUnreadableFiles) {
    failEachFileCall(readResources(kProduct, partialResources()));
}

TEST_F(FileFaultTest, SupportPackageResourcesAreCompleteOrNotFound) {
    failEachFileCall(
        readResources(kSupportProduct, {DocResourceParser::getResourceFile(kSupportProduct)}));
}

TEST_F(FileFaultTest, LookupsLackOnlyEntireFilesAndEntries) {
    failEachFileCall(readLookups());
}

TEST_F(FileFaultTest, ProductListsKeepWhatWasFoundBeforeTheFailure) {
    failEachFileCall(listProducts());
}

TEST_F(FileFaultTest, InstallationManifestIsReadCompletelyOrNotAtAll) {
    failEachFileCall(readManifest());
}

TEST_F(FileFaultTest, ResourcesAreCompleteDespiteInterruptedCalls) {
    EXPECT_GT(interruptEachFileCall(readResources(kProduct, {})), 10U);
}

TEST_F(FileFaultTest, LookupsAreCompleteDespiteInterruptedCalls) {
    EXPECT_GT(interruptEachFileCall(readLookups()), 30U);
}

TEST_F(FileFaultTest, ProductListsAreCompleteDespiteInterruptedCalls) {
    EXPECT_GT(interruptEachFileCall(listProducts()), 5U);
}

TEST_F(FileFaultTest, InstallationManifestIsReadDespiteInterruptedCalls) {
    EXPECT_GT(interruptEachFileCall(readManifest()), 3U);
}

TEST_F(FileFaultTest, FaultsReachEveryTypeOfCallThatTheLibraryMakes) {
    for (const FileCall call : {FileCall::Open, FileCall::Status, FileCall::Read,
                                FileCall::OpenFolder, FileCall::ReadFolder, FileCall::Close}) {
        const FileFaults counting(call, EIO, 0, Repetition::Once);
        DocResourceParser::getResourceLookupFiles();
        EXPECT_GT(countedCalls(call), 0U) << static_cast<int>(call);
    }
}

TEST_F(FileFaultTest, FileThatIsExchangedForAPipeBeforeItIsOpenedIsRefused) {
    const std::filesystem::path file = folder.write("Orchard.json", "{}");
    EXPECT_TRUE(platform::RegularFile::open(file));
    const std::function<void()> exchange = [&] {
        std::filesystem::remove(file);
        ASSERT_EQ(::mkfifo(file.c_str(), 0600), 0);
    };
    runBeforeNextOpen(exchange);
    EXPECT_FALSE(platform::RegularFile::open(file));
    EXPECT_TRUE(std::filesystem::is_fifo(file));
}

// Makes reads and allocations fail. The destructor reports whether an allocation has failed.
class ReadsAndMemoryFail {
public:
    ReadsAndMemoryFail(std::size_t read, std::size_t allocation, bool& memoryHasFailed)
        : memory_(allocation, Repetition::FromThenOn),
          reads_(FileCall::Read, EIO, read, Repetition::FromThenOn),
          memoryHasFailed_(memoryHasFailed) {}
    ~ReadsAndMemoryFail() { memoryHasFailed_ = memory_.failures() > 0; }
    ReadsAndMemoryFail(const ReadsAndMemoryFail&) = delete;
    ReadsAndMemoryFail& operator=(const ReadsAndMemoryFail&) = delete;

    std::size_t failures() const noexcept { return reads_.failures() + memory_.failures(); }

private:
    AllocationFaults memory_;
    FileFaults reads_;
    bool& memoryHasFailed_;
};

TEST_F(FileFaultTest, LookupsSurviveReadFailuresWhenOutOfMemory) {
    const auto reading =
        operation<Lookups>([] { return DocResourceParser::getResourceLookupFiles(); },
                           [parts = separateLookups()](const Outcome<Lookups>& outcome) {
                               EXPECT_THAT(outcome.ending, AnyOf(Ending::Result, Ending::BadAlloc));
                               EXPECT_TRUE(!outcome.result || isMadeOf(*outcome.result, parts));
                           });
    reading.prepare();
    const Lookups whole = reading.act();
    for (const std::size_t read : {1U, 2U, 3U}) {
        bool memoryHasFailed = true;
        for (std::size_t allocation = 1; memoryHasFailed && !HasFailure(); ++allocation) {
            SCOPED_TRACE(testing::Message() << "read " << read << ", allocation " << allocation);
            runUnderFault(reading, whole,
                          [&] { return ReadsAndMemoryFail(read, allocation, memoryHasFailed); });
        }
    }
}

} // namespace
} // namespace docparser_tests
