#include "tests/support/OpenDescriptors.hpp"
#include "tests/unit/platform/package/PackageTest.hpp"

#include <gmock/gmock.h>

#include <array>
#include <memory>
#include <optional>
#include <thread>
#include <type_traits>

namespace docparser_tests {

namespace {

using docparser_tests::openDescriptors;
using opc::qorservices::FileSystemEntry;
using opc::qorservices::FileSystemManager;
using testing::HasSubstr;

class PackageLifetimeTest : public PackageTest {};

static_assert(std::is_copy_constructible_v<FileSystemEntry>);
static_assert(std::is_copy_assignable_v<FileSystemEntry>);
static_assert(std::is_nothrow_move_constructible_v<FileSystemEntry>);
static_assert(!std::is_copy_constructible_v<FileSystemManager>);
static_assert(std::is_base_of_v<std::runtime_error, opc::PackageError>);
static_assert(static_cast<int>(opc::OpenMode::ReadOnly) == 0);
static_assert(static_cast<int>(opc::TransformMode::Decoded) == 1);

ZipBytes twoFiles() {
    return {.entries = {{.name = "en/a.json", .content = "first"},
                        {.name = "en/b.json", .content = "second", .method = kDeflated}}};
}

TEST_F(PackageLifetimeTest, CopyOfAnEntryStandsForTheSameFile) {
    OpenPackage package = open(twoFiles());
    std::optional<FileSystemEntry> entry = package.leaves().at(1);
    FileSystemEntry copy = *entry;
    FileSystemEntry assigned = package.leaves().at(0);
    assigned = copy;
    const FileSystemEntry moved = std::move(copy);
    entry.reset();
    EXPECT_EQ(package.read(assigned), "second");
    EXPECT_EQ(package.read(moved), "second");
    EXPECT_EQ(moved.getBaseName(), u"b.json");
}

TEST_F(PackageLifetimeTest, EnumeratorIsARangeOverItsVector) {
    const OpenPackage package = open(twoFiles());
    const opc::Enumerator<FileSystemEntry> leaves = package.manager.getAllLeafs();
    ASSERT_EQ(leaves.size(), 2U);
    EXPECT_FALSE(leaves.empty());
    EXPECT_EQ(leaves.elements().size(), 2U);
    EXPECT_EQ(&*leaves.begin(), leaves.elements().data());
    std::vector<std::u16string> names;
    for (const FileSystemEntry& leaf : leaves)
        names.push_back(leaf.getBaseName());
    EXPECT_THAT(names, testing::ElementsAre(u"a.json", u"b.json"));
}

TEST_F(PackageLifetimeTest, RefusesAnEntryOfAnotherPackage) {
    OpenPackage first(write("first.zip", twoFiles().build()));
    OpenPackage second(write("second.zip", twoFiles().build()));
    EXPECT_THAT(messageOf([&] { second.read(first.leaves().at(0)); }),
                HasSubstr("does not belong to"));
}

TEST_F(PackageLifetimeTest, EntryOfAClosedPackageKeepsItsNameAndIsRefused) {
    const std::u16string file = write(twoFiles().build());
    const FileSystemEntry entry = OpenPackage(file).leaves().at(0);
    OpenPackage again(file);
    EXPECT_EQ(entry.getName(), u"en/a.json");
    EXPECT_THROW(again.read(entry), opc::PackageError);
}

TEST_F(PackageLifetimeTest, ObjectsCanBeDestroyedInAnyOrder) {
    const opc::FileSystemOpsSelector selector(
        storage::microservicestoragesystem::GetStorageSystemReference());
    auto physical = std::make_unique<opc::zippackage::ZipPhysicalPackage>(write(twoFiles().build()),
                                                                          selector, true);
    auto package = std::make_unique<opc::model::Package>(*physical);
    auto manager = std::make_unique<FileSystemManager>(*package, selector);
    package->open(opc::OpenMode::ReadOnly);
    physical.reset();
    package.reset();
    auto source = manager->getFileContentSource(manager->getAllLeafs().elements().at(1),
                                                opc::TransformMode::Decoded);
    manager.reset();
    const auto stream = source->openInputStream();
    source.reset();
    EXPECT_EQ(readWhole(*stream), "second");
}

TEST_F(PackageLifetimeTest, UnfinishedStreamLeavesNothingOpen) {
    const std::size_t before = openDescriptors();
    {
        OpenPackage package = open(twoFiles());
        const auto stream =
            package.manager
                .getFileContentSource(package.leaves().at(1), opc::TransformMode::Decoded)
                ->openInputStream();
        char byte = 0;
        EXPECT_EQ(stream->read(&byte, 1), 1U);
    }
    EXPECT_LE(openDescriptors(), before);
}

TEST_F(PackageLifetimeTest, ManyPackagesLeaveNoDescriptorOpen) {
    const std::u16string good = write("good.zip", twoFiles().build());
    const std::u16string bad = write("bad.zip", "no package");
    const std::u16string damaged = write(
        "damaged.zip", ZipBytes{.entries = {{.name = "a", .content = "text", .crc = 1}}}.build());
    const std::size_t before = openDescriptors();
    for (int i = 0; i < 3000; ++i) {
        EXPECT_EQ(OpenPackage(good).read(0), "first");
        EXPECT_THROW(OpenPackage{bad}, opc::PackageError);
        EXPECT_THROW(OpenPackage(damaged).read(0), opc::PackageError);
    }
    EXPECT_LE(openDescriptors(), before);
}

TEST_F(PackageLifetimeTest, OneSelectorServesPackagesOnManyThreads) {
    const std::u16string file = write(twoFiles().build());
    const opc::FileSystemOpsSelector selector(
        storage::microservicestoragesystem::GetStorageSystemReference());
    std::array<std::string, 4> texts;
    std::vector<std::thread> threads;
    for (std::string& text : texts) {
        threads.emplace_back([&selector, &file, &text] {
            for (int i = 0; i < 100; ++i) {
                const opc::zippackage::ZipPhysicalPackage physical(file, selector, true);
                opc::model::Package package(physical);
                FileSystemManager manager(package, selector);
                package.open(opc::OpenMode::ReadOnly);
                const auto source = manager.getFileContentSource(
                    manager.getAllLeafs().elements().at(1), opc::TransformMode::Decoded);
                text = readWhole(*source->openInputStream());
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_THAT(texts, testing::Each("second"));
}

TEST_F(PackageLifetimeTest, SelectorNeedsAStorageSystem) {
    EXPECT_THROW(opc::FileSystemOpsSelector(nullptr), std::invalid_argument);
}

} // namespace

} // namespace docparser_tests
