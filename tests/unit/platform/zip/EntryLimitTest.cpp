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

// Entries of at most 1 MiB are read differently from larger ones.
constexpr std::uint64_t kLengths[] = {50'000, (std::uint64_t{1} << 20) + 1};

class EntryLimitTest : public PackageTest {
public:
    ~EntryLimitTest() override { platform::setReadLimits({}); }

protected:
    static void setLimits(std::uint64_t entryBytes, std::uint64_t packageBytes) {
        platform::setReadLimits({.entryBytes = entryBytes, .packageBytes = packageBytes});
    }
};

TEST_F(EntryLimitTest, ReadsAnEntryThatIsExactlyAsLongAsTheLimit) {
    for (const std::uint64_t length : kLengths) {
        const std::string text = sampleText(length);
        for (const std::uint16_t method : {kStored, kDeflated}) {
            OpenPackage package =
                open({.entries = {{.name = "a", .content = text, .method = method}}});
            setLimits(length, 10'000'000);
            EXPECT_TRUE(package.read(0) == text);
            for (const std::uint64_t limit : {length - 1, std::uint64_t{0}}) {
                setLimits(limit, 10'000'000);
                EXPECT_THAT(messageOf<LimitError>([&] { package.read(0); }),
                            EndsWith(beyondEntryLimit(limit)));
            }
        }
    }
}

TEST_F(EntryLimitTest, EntryThatStatesMoreThanALimitIsRefusedWhenItIsOpened) {
    for (const std::uint64_t length : kLengths) {
        OpenPackage package =
            open({.entries = {{.name = "a", .content = sampleText(length), .method = kDeflated}}});
        const auto source = package.manager.getFileContentSource(package.leaves().front(),
                                                                 opc::TransformMode::Decoded);
        setLimits(length - 1, 10'000'000);
        EXPECT_THAT(messageOf<LimitError>([&] { source->openInputStream(); }),
                    EndsWith(beyondEntryLimit(length - 1)));
        setLimits(length, length - 2);
        EXPECT_THAT(messageOf<LimitError>([&] { source->openInputStream(); }),
                    EndsWith(beyondPackageLimit(length - 2)));
    }
}

TEST_F(EntryLimitTest, EntryThatUnderstatesItsSizeStopsAtTheStatedSize) {
    for (const std::uint64_t size : kLengths) {
        OpenPackage package = open({.entries = {{.name = "bomb",
                                                 .content = std::string(64 << 20, '\0'),
                                                 .method = kDeflated,
                                                 .size = size}}});
        const auto stream =
            package.manager
                .getFileContentSource(package.leaves().front(), opc::TransformMode::Decoded)
                ->openInputStream();
        std::string buffer(size, '\0');
        EXPECT_EQ(stream->read(buffer.data(), size - 1), size - 1);
        EXPECT_THAT(messageOf([&] { stream->read(buffer.data(), size); }),
                    EndsWith("cannot be delivered: it is larger than the package says"));
    }
}

TEST_F(EntryLimitTest, LimitReachedWhileAnEntryIsReadStopsIt) {
    for (const std::uint64_t length : kLengths) {
        const std::string text = sampleText(length);
        for (const std::uint16_t method : {kStored, kDeflated}) {
            setLimits(length, length + 500);
            OpenPackage package =
                open({.entries = {{.name = "a", .content = text, .method = method},
                                  {.name = "b", .content = text, .method = method}}});
            const auto leaves = package.leaves();
            const auto first =
                package.manager.getFileContentSource(leaves[0], opc::TransformMode::Decoded)
                    ->openInputStream();
            EXPECT_EQ(package.read(1).size(), length);
            std::string buffer(500, '\0');
            EXPECT_EQ(first->read(buffer.data(), buffer.size()), 500U);
            EXPECT_EQ(buffer, text.substr(0, 500));
            EXPECT_THAT(messageOf<LimitError>([&] { first->read(buffer.data(), buffer.size()); }),
                        EndsWith(beyondPackageLimit(length + 500)));
            EXPECT_THAT(messageOf([&] { first->read(buffer.data(), buffer.size()); }),
                        EndsWith("cannot be delivered: it has failed before"));
        }
    }
}

TEST_F(EntryLimitTest, EntriesOfAPackageShareOneLimit) {
    for (const std::uint64_t length : kLengths) {
        ZipBytes zip;
        for (int i = 0; i < 5; ++i)
            zip.entries.push_back(
                {.name = std::to_string(i), .content = sampleText(length), .method = kDeflated});
        const std::uint64_t limit = 2 * length + length / 2;
        setLimits(length, limit);
        OpenPackage package = open(zip);
        for (std::size_t i = 0; i < 2; ++i)
            EXPECT_EQ(package.read(i).size(), length) << i;
        for (std::size_t i = 2; i < 5; ++i)
            EXPECT_THAT(messageOf<LimitError>([&] { package.read(i); }),
                        EndsWith(beyondPackageLimit(limit)))
                << i;
        EXPECT_EQ(OpenPackage(path("package.zip")).read(4).size(), length);
    }
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
