#include "tests/system/Watchdog.hpp"
#include "tests/unit/platform/package/PackageTest.hpp"

#include <gmock/gmock.h>

namespace docparser_tests {

namespace {

using testing::ElementsAre;
using testing::Pair;

class DirectoryTest : public PackageTest {};

const ZipEntryBytes kEntry{.name = "a.json", .content = "text"};

TEST_F(DirectoryTest, IgnoresTheComment) {
    for (const std::string& comment :
         {std::string("a comment"), std::string(0xFFFF, 'c'), std::string("PK\5\6 is no end"),
          "PK\5\6" + std::string(18, '\0')}) {
        OpenPackage package = open({.entries = {kEntry}, .comment = comment});
        EXPECT_THAT(package.contents(), ElementsAre(Pair(u"a.json", "text")));
    }
}

TEST_F(DirectoryTest, AllowsTrailingBytesUpToTheLengthOfAComment) {
    OpenPackage package = open({.entries = {kEntry}, .suffix = std::string(60'000, 'x')});
    EXPECT_THAT(package.contents(), ElementsAre(Pair(u"a.json", "text")));
    EXPECT_THROW(open({.entries = {kEntry}, .suffix = std::string(70'000, 'x')}),
                 opc::PackageError);
}

TEST_F(DirectoryTest, AllowsLeadingBytesIfTheOffsetsIncludeThem) {
    EXPECT_THROW(open({.entries = {kEntry}, .prefix = "#!/bin/sh\n"}), opc::PackageError);
    const std::uint64_t directory = 10 + 30 + 6 + 4;
    OpenPackage package =
        open({.entries = {{.name = "a.json", .content = "text", .localOffset = 10}},
              .prefix = "#!/bin/sh\n",
              .directoryOffset = directory});
    EXPECT_THAT(package.contents(), ElementsAre(Pair(u"a.json", "text")));
}

TEST_F(DirectoryTest, RefusalOfAnotherFileNamesPathAndReason) {
    for (const std::string& bytes :
         {std::string(), std::string("P"), std::string("PK\5\6"), std::string("no package at all"),
          std::string(200'000, 'x'), std::string(200'000, '\0')}) {
        const std::u16string file = write(bytes);
        EXPECT_THAT(
            messageOf([&] { OpenPackage{file}; }),
            testing::AllOf(testing::StartsWith("the package \""),
                           testing::EndsWith("package.zip\" cannot be opened: Not a zip archive")))
            << bytes.size();
    }
}

TEST_F(DirectoryTest, RefusesInvalidEndRecords) {
    const std::uint64_t tooMuch = 0xFFFFFFF0;
    for (const bool isZip64 : {false, true}) {
        for (const ZipBytes& zip :
             {ZipBytes{.entries = {kEntry}, .isZip64 = isZip64, .count = 0},
              ZipBytes{.entries = {kEntry}, .isZip64 = isZip64, .count = 2},
              ZipBytes{.entries = {kEntry}, .isZip64 = isZip64, .count = 0xFFFE},
              ZipBytes{.entries = {kEntry}, .isZip64 = isZip64, .directorySize = 51},
              ZipBytes{.entries = {kEntry}, .isZip64 = isZip64, .directorySize = 53},
              ZipBytes{.entries = {kEntry}, .isZip64 = isZip64, .directorySize = tooMuch},
              ZipBytes{.entries = {kEntry}, .isZip64 = isZip64, .directoryOffset = 0},
              ZipBytes{.entries = {kEntry}, .isZip64 = isZip64, .directoryOffset = tooMuch}})
            EXPECT_THROW(open(zip), opc::PackageError);
    }
    EXPECT_THROW(open({.entries = {kEntry}, .isZip64 = true, .count = 1ULL << 60}),
                 opc::PackageError);
    EXPECT_THROW(open({.entries = {kEntry}, .isZip64 = true, .directoryOffset = 1ULL << 63}),
                 opc::PackageError);
}

TEST_F(DirectoryTest, OpensAFileWithManyEndRecordsQuickly) {
    // All end records lead to the same directory, whose entries have long headers. Comparing all of
    // them for each end record would read gigabytes.
    ZipBytes zip;
    for (int i = 0; i < 100; ++i) {
        zip.entries.push_back({.name = std::to_string(i),
                               .localExtra = extraField(0x4242, std::string(60'000, 'x'))});
    }
    std::string bytes = zip.build();
    const std::string end = bytes.substr(bytes.size() - 22);
    for (int i = 0; i < 1500; ++i)
        bytes += end;
    runWatched([&] { EXPECT_EQ(open(bytes).leaves().size(), 100U); });
}

TEST_F(DirectoryTest, RefusesAPackageWithAnAesEntryWithoutParameters) {
    EXPECT_THROW(open({.entries = {kEntry, {.name = "b.json", .method = 99}}}), opc::PackageError);
}

TEST_F(DirectoryTest, RefusesAPackageOnSeveralDisks) {
    std::string bytes = ZipBytes{.entries = {kEntry}}.build();
    bytes[bytes.size() - 22 + 4] = 1;
    EXPECT_THROW(open(bytes), opc::PackageError);
}

} // namespace

} // namespace docparser_tests
