#include "platform/ReadLimits.hpp"
#include "tests/unit/platform/package/PackageTest.hpp"

#include <gmock/gmock.h>

#include <cstdint>
#include <string>

namespace docparser_tests {

namespace {

using platform::LimitError;
using testing::EndsWith;

std::string beyondEntryLimit(std::uint64_t limit) {
    return "cannot be delivered: it is larger than the limit of " + std::to_string(limit) +
           " bytes";
}

std::string beyondPackageLimit(std::uint64_t limit) {
    return "cannot be delivered: the entries read from the package exceed their limit of " +
           std::to_string(limit) + " bytes";
}

class EntryLimitTest : public PackageTest {
protected:
    ~EntryLimitTest() override { platform::setReadLimits({}); }

    static void setLimits(std::uint64_t entryBytes, std::uint64_t packageBytes) {
        platform::setReadLimits({.entryBytes = entryBytes, .packageBytes = packageBytes});
    }
};

TEST_F(EntryLimitTest, ReadsAnEntryThatIsExactlyAsLongAsTheLimit) {
    const std::string text = sampleText(50'000);
    for (const std::uint16_t method : {kStored, kDeflated}) {
        OpenPackage package = open({.entries = {{.name = "a", .content = text, .method = method}}});
        setLimits(50'000, 1'000'000);
        EXPECT_TRUE(package.read(0) == text);
        for (const std::uint64_t limit : {std::uint64_t{49'999}, std::uint64_t{0}}) {
            setLimits(limit, 1'000'000);
            EXPECT_THAT(messageOf<LimitError>([&] { package.read(0); }),
                        EndsWith(beyondEntryLimit(limit)));
        }
    }
}

TEST_F(EntryLimitTest, EntryThatStatesMoreThanALimitIsRefusedWhenItIsOpened) {
    const std::string text = sampleText(50'000);
    OpenPackage package = open({.entries = {{.name = "a", .content = text, .method = kDeflated}}});
    const auto source =
        package.manager.getFileContentSource(package.leaves().front(), opc::TransformMode::Decoded);
    setLimits(49'999, 1'000'000);
    EXPECT_THAT(messageOf<LimitError>([&] { source->openInputStream(); }),
                EndsWith(beyondEntryLimit(49'999)));
    setLimits(50'000, 49'998);
    EXPECT_THAT(messageOf<LimitError>([&] { source->openInputStream(); }),
                EndsWith(beyondPackageLimit(49'998)));
}

TEST_F(EntryLimitTest, EntryThatUnderstatesItsSizeStopsAtTheStatedSize) {
    OpenPackage package = open({.entries = {{.name = "bomb",
                                             .content = std::string(64 << 20, '\0'),
                                             .method = kDeflated,
                                             .size = 100'000}}});
    const auto stream =
        package.manager.getFileContentSource(package.leaves().front(), opc::TransformMode::Decoded)
            ->openInputStream();
    std::string buffer(60'000, '\0');
    EXPECT_EQ(stream->read(buffer.data(), buffer.size()), 60'000U);
    EXPECT_THAT(messageOf([&] { stream->read(buffer.data(), buffer.size()); }),
                EndsWith("it is larger than the package says"));
}

TEST_F(EntryLimitTest, LimitReachedWhileAnEntryIsReadStopsIt) {
    const std::string text = sampleText(1000);
    setLimits(1000, 1500);
    OpenPackage package =
        open({.entries = {{.name = "a", .content = text}, {.name = "b", .content = text}}});
    const auto leaves = package.leaves();
    const auto first = package.manager.getFileContentSource(leaves[0], opc::TransformMode::Decoded)
                           ->openInputStream();
    EXPECT_EQ(package.read(1).size(), 1000U);
    std::string buffer(1000, '\0');
    EXPECT_THAT(messageOf<LimitError>([&] { first->read(buffer.data(), buffer.size()); }),
                EndsWith(beyondPackageLimit(1500)));
}

TEST_F(EntryLimitTest, EntriesOfAPackageShareOneLimit) {
    ZipBytes zip;
    for (int i = 0; i < 10; ++i)
        zip.entries.push_back(
            {.name = std::to_string(i), .content = sampleText(1000), .method = kDeflated});
    setLimits(1000, 5500);
    OpenPackage package = open(zip);
    for (std::size_t i = 0; i < 5; ++i)
        EXPECT_EQ(package.read(i).size(), 1000U) << i;
    for (std::size_t i = 5; i < 10; ++i)
        EXPECT_THAT(messageOf<LimitError>([&] { package.read(i); }),
                    EndsWith(beyondPackageLimit(5500)))
            << i;
    EXPECT_EQ(OpenPackage(path("package.zip")).read(9).size(), 1000U);
}

TEST_F(EntryLimitTest, EntriesThatShareTheirBytesCountEachTime) {
    const std::string text(100'000, 'x');
    ZipBytes zip{.entries = {{.name = "0", .content = text, .method = kDeflated}}};
    for (int i = 1; i < 100; ++i)
        zip.entries.push_back({.name = std::to_string(i),
                               .content = text,
                               .method = kDeflated,
                               .packed = "",
                               .packedSize = deflated(text).size(),
                               .localOffset = 0});
    setLimits(100'000, 1'000'000);
    OpenPackage package = open(zip);
    const auto leaves = package.leaves();
    for (std::size_t i = 0; i < 10; ++i)
        EXPECT_TRUE(package.read(leaves[i]) == text) << i;
    for (std::size_t i = 10; i < 100; ++i)
        EXPECT_THROW(package.read(leaves[i]), LimitError) << i;
}

TEST_F(EntryLimitTest, ReadsAnEmptyEntryWhenTheLimitOfThePackageIsUsedUp) {
    setLimits(10, 4);
    OpenPackage package =
        open({.entries = {
                  {.name = "a", .content = "text"}, {.name = "b"}, {.name = "c", .content = "c"}}});
    EXPECT_EQ(package.read(0), "text");
    EXPECT_EQ(package.read(1), "");
    EXPECT_THROW(package.read(2), LimitError);
}

TEST_F(EntryLimitTest, LargestNumberMeansNoLimit) {
    setLimits(~std::uint64_t{0}, ~std::uint64_t{0});
    OpenPackage package = open({.entries = {{.name = "a", .content = "text"}}});
    EXPECT_EQ(package.read(0), "text");
}

} // namespace

} // namespace docparser_tests
