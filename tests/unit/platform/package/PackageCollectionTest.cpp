#include "platform/ReadLimits.hpp"
#include "tests/unit/platform/package/PackageTest.hpp"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <iostream>

namespace docparser_tests {

namespace {

using Clock = std::chrono::steady_clock;

/// The results for all files of a collection.
struct Tally {
    std::size_t refusedPackages = 0;
    std::size_t deliveredEntries = 0;
    std::size_t refusedEntries = 0;
};

void readEveryEntry(const std::filesystem::path& file, Tally& tally) {
    try {
        OpenPackage package(file.u16string());
        for (const auto& leaf : package.leaves()) {
            try {
                package.read(leaf);
                ++tally.deliveredEntries;
            } catch (const opc::PackageError&) {
                ++tally.refusedEntries;
            } catch (const platform::LimitError&) {
                ++tally.refusedEntries;
            }
        }
    } catch (const opc::PackageError&) {
        ++tally.refusedPackages;
    }
}

// Most of the files are hostile. Each must be read or refused in acceptable time.
TEST(PackageCollectionTest, EveryFileIsReadOrRefused) {
    const char* const collection = std::getenv("DOCPARSER_TESTDATA");
    ASSERT_NE(collection, nullptr) << "DOCPARSER_TESTDATA is not set";
    platform::setReadLimits({.entryBytes = 64'000'000, .packageBytes = 256'000'000});
    Tally tally;
    const std::filesystem::path folder = std::filesystem::path(collection) / "zip";
    for (const auto& file : std::filesystem::recursive_directory_iterator(folder)) {
        if (!file.is_regular_file())
            continue;
        const Clock::time_point start = Clock::now();
        readEveryEntry(file.path(), tally);
        EXPECT_LT(Clock::now() - start, std::chrono::seconds(30)) << file.path();
    }
    std::cout << tally.refusedPackages << " packages refused, " << tally.deliveredEntries
              << " entries delivered, " << tally.refusedEntries << " entries refused\n";
    EXPECT_GT(tally.deliveredEntries, 0U);
}

} // namespace

} // namespace docparser_tests
