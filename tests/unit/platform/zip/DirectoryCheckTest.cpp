#include "platform/ReadLimits.hpp"
#include "tests/system/Watchdog.hpp"
#include "tests/unit/platform/package/PackageTest.hpp"

#include <gmock/gmock.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

namespace docparser_tests {

namespace {

using platform::LimitError;
using testing::ElementsAre;
using testing::EndsWith;

constexpr const char* kCollision =
    "cannot be opened: too many names of its entries have equal hashes";

class DirectoryCheckTest : public PackageTest {
public:
    ~DirectoryCheckTest() override { platform::setReadLimits({}); }

protected:
    /// Opens a package with `count` names and returns the number of its leaves.
    std::size_t leavesOf(std::size_t count,
                         const std::function<ZipEntryBytes(std::size_t)>& entryAt) const {
        return open(packageOfEmptyEntries(count, entryAt)).leaves().size();
    }

    void expectCollision(std::size_t count,
                         const std::function<ZipEntryBytes(std::size_t)>& entryAt) const {
        const std::u16string file = write(packageOfEmptyEntries(count, entryAt));
        runWatched(
            [&] { EXPECT_THAT(messageOf([&] { OpenPackage{file}; }), EndsWith(kCollision)); });
    }
};

/// A name for each number; in libzip all names of the same length have the same hash.
std::string collidingName(std::size_t number, int bits, const char* zero, const char* one) {
    std::string name;
    for (int bit = 0; bit < bits; ++bit)
        name += (number >> bit & 1) == 0 ? zero : one;
    return name;
}

std::string collidingName(std::size_t number) {
    return collidingName(number, 19, "Az", "BY");
}

TEST_F(DirectoryCheckTest, ListsADirectoryOfManyMebibytes) {
    // libzip converts names that begin with the second one from CP437.
    for (const char* const first : {"0", "\xCD"}) {
        const auto nameAt = [&](std::size_t i) {
            const std::string number = std::to_string(i);
            return ZipEntryBytes{.name = first + std::string(59 - number.size(), '0') + number};
        };
        EXPECT_EQ(leavesOf(90'001, nameAt), 90'001U) << first;
    }
}

struct LimitedPackage {
    std::string name = "a.json"; // of its only entry
    std::string comment{};
    bool isZip64 = false;
};

TEST_F(DirectoryCheckTest, ListsADirectoryThatIsExactlyAsLongAsTheLimit) {
    const std::string longest(0xFFFF, 'c');
    for (const LimitedPackage& row :
         {LimitedPackage{}, LimitedPackage{.isZip64 = true}, LimitedPackage{.name = ""},
          LimitedPackage{.comment = longest},
          LimitedPackage{.comment = longest, .isZip64 = true}}) {
        const std::u16string file = write(ZipBytes{
            .entries = {{.name = row.name}}, .comment = row.comment, .isZip64 = row.isZip64}
                                              .build());
        const std::uint64_t length = 46 + row.name.size();
        platform::setReadLimits({.directoryBytes = length});
        EXPECT_EQ(OpenPackage(file).leaves().size(), 1U);
        platform::setReadLimits({.directoryBytes = length - 1});
        EXPECT_EQ(messageOf<LimitError>([&] { OpenPackage{file}; }),
                  "the package \"" + (folder / "package.zip").string() +
                      "\" cannot be opened: its directory is larger than the limit of " +
                      std::to_string(length - 1) + " bytes");
    }
}

TEST_F(DirectoryCheckTest, LimitOfTheDirectoryDoesNotApplyToContent) {
    const std::string text = sampleText(std::size_t{2} << 20);
    platform::setReadLimits({.directoryBytes = 46 + 6});
    OpenPackage package = open(ZipBytes{.entries = {{.name = "a.json", .content = text}}});
    EXPECT_EQ(package.read(0), text);
}

TEST_F(DirectoryCheckTest, RefusesADirectoryWithAStatedSizeAboveTheLimit) {
    // The start of one record, a sparse hole, and an end record that covers both as the directory.
    constexpr std::uint64_t kLength = std::uint64_t{3} << 30;
    const std::u16string file = write("PK\1\2");
    std::filesystem::resize_file(folder / "package.zip", kLength);
    std::ofstream(folder / "package.zip", std::ios::app | std::ios::binary)
        << endRecord(1, kLength, 0);
    EXPECT_THAT(
        messageOf<LimitError>([&] { OpenPackage{file}; }),
        EndsWith("cannot be opened: its directory is larger than the limit of 67108864 bytes"));
}

TEST_F(DirectoryCheckTest, IgnoresAnEndRecordThatDoesNotLeadToADirectory) {
    platform::setReadLimits({.directoryBytes = 60});
    const std::uint64_t directory = 30 + 6;
    const std::uint64_t end = directory + 46 + 6 + 22 + 22;
    for (const auto& [length, offset] :
         {std::pair(std::uint64_t{70}, std::uint64_t{0}), std::pair(end - directory + 1, directory),
          std::pair(std::uint64_t{70}, end + 1)}) {
        const ZipBytes zip{.entries = {{.name = "a.json"}},
                           .comment = endRecord(1, length, offset)};
        EXPECT_THAT(open(zip).leafNames(), ElementsAre(u"a.json")) << length << " at " << offset;
    }
}

TEST_F(DirectoryCheckTest, IgnoresAnEndRecordBeyondTheLargestFile) {
    const std::uint64_t comment = 30 + 6 + 46 + 6 + 22; // its position in the file
    const std::string end = "PK\6\6" + littleEndian(44, 8) + std::string(12, '\0') +
                            littleEndian(1, 8) + littleEndian(1, 8) + littleEndian(70, 8) +
                            littleEndian(std::uint64_t{1} << 63, 8);
    const std::string locator =
        "PK\6\7" + littleEndian(0, 4) + littleEndian(comment, 8) + littleEndian(1, 4);
    const ZipBytes zip{.entries = {{.name = "a.json"}},
                       .comment = end + locator + endRecord(1, 70, 0)};
    platform::setReadLimits({.directoryBytes = 60});
    EXPECT_THAT(open(zip).leafNames(), ElementsAre(u"a.json"));
}

TEST_F(DirectoryCheckTest, RefusesSeveralDirectoriesThatTogetherExceedTheLimit) {
    constexpr std::uint64_t kCount = 10'000;
    const std::uint64_t length = kCount * (46 + 1);
    std::string bytes =
        packageOfEmptyEntries(kCount, [](std::size_t) { return ZipEntryBytes{.name = "n"}; });
    const std::uint64_t offset = bytes.find("PK\1\2");
    for (std::uint64_t i = 0; i < 10; ++i)
        bytes += endRecord(kCount - i, length - 47 * i, offset + 47 * i);
    platform::setReadLimits({.directoryBytes = length});
    EXPECT_THAT(messageOf<LimitError>([&] { open(bytes); }),
                EndsWith("cannot be opened: its directory takes more reads than the limit allows"));
}

TEST_F(DirectoryCheckTest, ListsThousandsOfNamesWithEqualHashes) {
    constexpr std::size_t kCount = std::size_t{1} << 13;
    runWatched([&] {
        EXPECT_EQ(
            leavesOf(kCount, [](std::size_t i) { return ZipEntryBytes{.name = collidingName(i)}; }),
            kCount);
    });
}

TEST_F(DirectoryCheckTest, ListsManyEqualNames) {
    runWatched([&] {
        EXPECT_EQ(leavesOf(100'000, [](std::size_t) { return ZipEntryBytes{.name = "P.json"}; }),
                  100'000U);
    });
}

TEST_F(DirectoryCheckTest, RefusesHundredsOfThousandsOfNamesWithEqualHashes) {
    expectCollision(500'000, [](std::size_t i) { return ZipEntryBytes{.name = collidingName(i)}; });
}

TEST_F(DirectoryCheckTest, RefusesLongNamesWithEqualHashes) {
    const std::string start(4000, 'n');
    expectCollision(4096,
                    [&](std::size_t i) { return ZipEntryBytes{.name = start + collidingName(i)}; });
}

TEST_F(DirectoryCheckTest, RefusesNamesWithEqualHashesAfterTheConversionFromCp437) {
    // U+2561 and U+2580, which libzip converts to UTF-8: E2 95 A1 and E2 96 80.
    expectCollision(32'768, [](std::size_t i) {
        return ZipEntryBytes{.name = "\xB5" + collidingName(i, 15, "\xB5", "\xDF")};
    });
}

TEST_F(DirectoryCheckTest, RefusesUnicodeNamesWithEqualHashes) {
    expectCollision(32'768, [](std::size_t i) {
        const std::string name = std::to_string(i);
        const std::string field = "\1" + littleEndian(crcOf(name), 4) + collidingName(i);
        return ZipEntryBytes{.name = name, .extra = extraField(0x7075, field)};
    });
}

} // namespace

} // namespace docparser_tests
