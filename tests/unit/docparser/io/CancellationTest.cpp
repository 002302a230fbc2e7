#include "tests/support/Cancellation.hpp"

#include "docparser/io/ResourceFileReader.hpp"
#include "docparser/io/ZipPackage.hpp"
#include "platform/package/StorageSystem.hpp"
#include "tests/support/TemporaryFolder.hpp"
#include "tests/support/ZipBytes.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>

namespace reference::docparser {
namespace {

using docparser_tests::cancelThisThread;
using docparser_tests::isCancelledIn;
using docparser_tests::TemporaryFolder;
using docparser_tests::ZipBytes;

// The bundled libraries read with calls that are cancellation points.
class CancelledReading : public testing::Test {
protected:
    static std::ptrdiff_t openFiles() {
        return std::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                             std::filesystem::directory_iterator());
    }

    std::u16string writePackage() const {
        const ZipBytes zip{
            .entries = {
                {.name = "Orchard.json", .content = "{}", .method = docparser_tests::kDeflated}}};
        return folder.write("Package.zip", zip.build()).u16string();
    }

    const TemporaryFolder folder;
    const opc::FileSystemOpsSelector selector{
        storage::microservicestoragesystem::GetStorageSystemReference()};
};

TEST_F(CancelledReading, ThreadEndsWhileReadingAFile) {
    const std::u16string path = folder.write("Orchard.json", "{}").u16string();
    const auto openBefore = openFiles();
    EXPECT_TRUE(isCancelledIn([&] {
        cancelThisThread();
        openAndReadFile(path, unobserved);
    }));
    EXPECT_EQ(openFiles(), openBefore);
}

// The stack frames of the zip library must not be unwound, because they would leak their memory.
TEST_F(CancelledReading, ThreadDoesNotEndInsideTheZipLibrary) {
    const std::u16string path = writePackage();
    EXPECT_FALSE(isCancelledIn([&] {
        cancelThisThread();
        ZipPackage package(path, selector);
    }));
}

TEST_F(CancelledReading, ThreadEndsWhileReadingAnEntry) {
    const std::u16string path = writePackage();
    const auto openBefore = openFiles();
    EXPECT_TRUE(isCancelledIn([&] {
        ZipPackage package(path, selector);
        const auto products =
            package.findProducts(/*isNonEnglishLocale=*/false, {}, u"_en", unobserved);
        cancelThisThread();
        openAndReadFile(products.at(0), unobserved);
    }));
    EXPECT_EQ(openFiles(), openBefore);
}

} // namespace
} // namespace reference::docparser
