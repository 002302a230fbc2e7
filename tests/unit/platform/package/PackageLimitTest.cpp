#include "platform/ReadLimits.hpp"
#include "tests/unit/platform/package/PackageTest.hpp"

#include <gmock/gmock.h>

#include <sstream>

namespace docparser_tests {

namespace {

using testing::HasSubstr;

class PackageLimitTest : public PackageTest {
protected:
    ~PackageLimitTest() override { platform::setReadLimits({}); }

    static void setLimits(std::uint64_t entryBytes, std::uint64_t packageBytes) {
        platform::setReadLimits({.entryBytes = entryBytes, .packageBytes = packageBytes});
    }
};

TEST_F(PackageLimitTest, AnEntryMayBeAsLongAsTheLimitAndNoLonger) {
    const std::string text = sampleText(50'000);
    for (const std::uint16_t method : {kStored, kDeflated}) {
        OpenPackage package = open({.entries = {{.name = "a", .content = text, .method = method}}});
        setLimits(50'000, 1'000'000);
        EXPECT_TRUE(package.read(0) == text);
        setLimits(49'999, 1'000'000);
        EXPECT_THAT(messageOf([&] { package.read(0); }), HasSubstr("larger than the limit"));
        setLimits(0, 1'000'000);
        EXPECT_THAT(messageOf([&] { package.read(0); }), HasSubstr("larger than the limit"));
    }
}

TEST_F(PackageLimitTest, ABombIsStoppedAtTheLimitWhateverItClaims) {
    constexpr std::size_t kInflated = 64 * 1024 * 1024;
    setLimits(1'000'000, 10'000'000);
    for (const std::uint64_t claim :
         {std::uint64_t{10}, std::uint64_t{kInflated}, std::uint64_t{0xFFFFFF00}}) {
        OpenPackage package = open({.entries = {{.name = "bomb",
                                                 .content = std::string(kInflated, '\0'),
                                                 .method = kDeflated,
                                                 .size = claim}}});
        std::stringstream output;
        const auto stream =
            package.manager
                .getFileContentSource(package.leaves().front(), opc::TransformMode::Decoded)
                ->openInputStream();
        EXPECT_THAT(messageOf([&] { opc::StreamHelper::copyStreamToStream(*stream, output); }),
                    HasSubstr("it is larger than"));
        EXPECT_LE(output.str().size(), 1'000'000U);
        EXPECT_THAT(messageOf([&] { package.read(0); }), HasSubstr("it is larger than"));
    }
}

TEST_F(PackageLimitTest, AllEntriesOfAPackageShareOneBudget) {
    ZipBytes zip;
    for (int i = 0; i < 10; ++i)
        zip.entries.push_back(
            {.name = std::to_string(i), .content = sampleText(1000), .method = kDeflated});
    setLimits(1000, 5500);
    OpenPackage package = open(zip);
    for (std::size_t i = 0; i < 5; ++i)
        EXPECT_EQ(package.read(i).size(), 1000U) << i;
    for (std::size_t i = 5; i < 10; ++i)
        EXPECT_THAT(messageOf([&] { package.read(i); }), HasSubstr("larger than the limit")) << i;
    EXPECT_EQ(OpenPackage(path("package.zip")).read(9).size(), 1000U);
}

TEST_F(PackageLimitTest, EntriesThatShareTheirBytesCountEachTime) {
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
    std::size_t delivered = 0;
    for (const auto& leaf : package.leaves()) {
        try {
            delivered += package.read(leaf).size();
        } catch (const opc::PackageError&) {
            // Past the budget, as it should be.
        }
    }
    EXPECT_EQ(delivered, 1'000'000U);
}

TEST_F(PackageLimitTest, AnEmptyEntryIsReadWhenTheBudgetIsUsedUp) {
    setLimits(10, 4);
    OpenPackage package =
        open({.entries = {
                  {.name = "a", .content = "text"}, {.name = "b"}, {.name = "c", .content = "c"}}});
    EXPECT_EQ(package.read(0), "text");
    EXPECT_EQ(package.read(1), "");
    EXPECT_THROW(package.read(2), opc::PackageError);
}

TEST_F(PackageLimitTest, NoLimitIsTheLargestNumber) {
    setLimits(~std::uint64_t{0}, ~std::uint64_t{0});
    OpenPackage package = open({.entries = {{.name = "a", .content = "text"}}});
    EXPECT_EQ(package.read(0), "text");
}

} // namespace

} // namespace docparser_tests
