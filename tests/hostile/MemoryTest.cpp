#include "tests/hostile/ChildProcess.hpp"
#include "tests/support/ZipBytes.hpp"
#include "tests/system/SystemTest.hpp"

#include <sys/resource.h>
#include <zlib.h>

#include <algorithm>
#include <filesystem>
#include <limits>
#include <string>

namespace docparser_tests {
namespace {

constexpr std::uint64_t kMebi = 1 << 20;
constexpr std::uint64_t kGibi = std::uint64_t{1} << 30;

// Files that need more memory than the process has.
class MemoryTest : public SystemTest {
protected:
    MemoryTest() { setLanguage(u"de"); }

    void addSparse(const std::string& file, std::uint64_t size) const {
        addApi(file, "");
        std::filesystem::resize_file(apiPath(file), size);
    }

    static long count(const std::vector<std::string>& messages, const std::string& start) {
        return std::ranges::count_if(
            messages, [&](const std::string& message) { return message.starts_with(start); });
    }
};

TEST_F(MemoryTest, FileLargerThanMemoryAffectsNoOtherFile) {
    addApi("Orchard_de.json", resourceText("orchard", {{"graft.html", "Veredeln"}}));
    for (const std::uint64_t size : {5 * kGibi, 20 * kGibi}) {
        addSparse("Orchard.json", size);
        runInChild({.memoryBytes = 512 * kMebi}, [&](Progress& progress) {
            progress.at(std::to_string(size));
            const LogCapture log(512);
            EXPECT_TRUE(findResources(u"Orchard").has_value());
            EXPECT_EQ(count(log.messages(), "Problem reading JSON file: "), 1);
        });
    }
}

#ifndef DOCPARSER_SANITIZED

// A sanitizer would end the process at an allocation that is too large.
TEST_F(MemoryTest, WithoutFileLimitOnlyMemoryLimitsFiles) {
    addApi("Orchard_de.json", resourceText("orchard", {{"graft.html", "Veredeln"}}));
    addSparse("Orchard.json", 20 * kGibi);
    runInChild({.memoryBytes = 512 * kMebi}, [&](Progress&) {
        platform::ReadLimits limits;
        limits.fileBytes = std::numeric_limits<std::uint64_t>::max();
        platform::setReadLimits(limits);
        const LogCapture log(512);
        EXPECT_TRUE(findResources(u"Orchard").has_value());
        EXPECT_EQ(count(log.messages(), "Problem reading JSON file: "), 1);
    });
}

#endif

std::string millionsOfZeros() {
    std::string zeros = "0";
    for (int i = 1; i < 5'000'000; ++i)
        zeros += ",0";
    return zeros;
}

TEST_F(MemoryTest, MillionsOfUnknownElementsFitIntoAGibibyte) {
    std::string text = resourceText("orchard", {{"graft.html", "Join"}});
    addApi("Orchard.json", text.insert(1, "\"unknown\":[" + millionsOfZeros() + "],"));
    runInChild({.memoryBytes = kGibi},
               [&](Progress&) { EXPECT_TRUE(findResources(u"Orchard").has_value()); });
}

TEST_F(MemoryTest, MillionsOfInvalidElementsAffectNoOtherFile) {
    addApi("Orchard_de.json", resourceText("orchard", {{"graft.html", "Veredeln"}}));
    for (const std::string key : {"inputs", "inputgroup"}) {
        std::string text = resourceText("orchard", {{"a.html", ""}});
        const std::size_t item = text.find("{\"href\"");
        addApi("Orchard.json",
               text.insert(item + 1, '"' + key + "\":[" + millionsOfZeros() + "],"));
        runInChild({.memoryBytes = kGibi}, [&](Progress& progress) {
            progress.at(key);
            const auto resources = findResources(u"Orchard");
            ASSERT_TRUE(resources.has_value());
            EXPECT_EQ(resources->at(u"orchard").items.size(), 1U);
        });
    }
}

// Deflated zero bytes: an independent block of one mebibyte, repeated, and a stored block of
// `restBytes`.
std::string deflatedZeros(std::size_t mebibytes, std::uint16_t restBytes = 0) {
    z_stream stream = {};
    constexpr int kRawWindow = -15;
    EXPECT_EQ(deflateInit2(&stream, Z_BEST_SPEED, Z_DEFLATED, kRawWindow, 8, Z_DEFAULT_STRATEGY),
              Z_OK);
    std::string zeros(kMebi, '\0');
    std::string block(65'536, '\0');
    stream.next_in = reinterpret_cast<Bytef*>(zeros.data());
    stream.avail_in = static_cast<uInt>(zeros.size());
    stream.next_out = reinterpret_cast<Bytef*>(block.data());
    stream.avail_out = static_cast<uInt>(block.size());
    EXPECT_EQ(deflate(&stream, Z_FULL_FLUSH), Z_OK);
    block.resize(stream.total_out);
    deflateEnd(&stream);
    std::string packed;
    for (std::size_t i = 0; i < mebibytes; ++i)
        packed += block;
    const auto restComplement = static_cast<std::uint16_t>(~restBytes);
    return packed + '\x01' + littleEndian(restBytes, 2) + littleEndian(restComplement, 2) +
           std::string(restBytes, '\0');
}

std::uint64_t peakMemoryBytes() {
    rusage usage{};
    EXPECT_EQ(::getrusage(RUSAGE_SELF, &usage), 0);
    return static_cast<std::uint64_t>(usage.ru_maxrss) << 10;
}

TEST_F(MemoryTest, EntryAboveTheLimitIsRefusedWithoutAllocatingIt) {
    struct Case {
        std::string what;
        std::uint64_t statedBytes;
        std::uint64_t packageBytes;
    };
    ZipBytes zip;
    ZipEntryBytes& entry = zip.entries.emplace_back();
    entry.name = "Bomb.json";
    entry.method = kDeflated;
    entry.packed = deflatedZeros(1024, 1);
    for (const Case& each : {Case{"stated in full", kGibi + 1, 4 * kGibi},
                             Case{"stated in full, beyond the limit of the package", kGibi, kMebi},
                             Case{"understated", 10, 4 * kGibi}}) {
        entry.size = each.statedBytes;
        addLookup("Estate.zip", zip.build());
        runInChild({}, [&](Progress& progress) {
            progress.at(each.what);
            platform::setReadLimits({.packageBytes = each.packageBytes});
            const LogCapture log(16);
            EXPECT_EQ(DocResourceParser::getResourceLookupFiles(), Lookups());
            EXPECT_EQ(count(log.messages(), "Error reading file: Bomb"), 1);
            if (!kIsSanitized) {
                EXPECT_LT(peakMemoryBytes(), 64 * kMebi);
            }
        });
    }
}

TEST_F(MemoryTest, EntryThatInflatesBeyondItsSizeAffectsNoOtherEntry) {
    constexpr std::size_t kMebibytes = 3072;
    ZipBytes zip;
    ZipEntryBytes& bomb = zip.entries.emplace_back();
    bomb.name = "Bomb.json";
    bomb.method = kDeflated;
    bomb.packed = deflatedZeros(kMebibytes);
    bomb.size = 32 * kMebi; // wrong, but within the limit
    ZipEntryBytes& good = zip.entries.emplace_back();
    good.name = "Orchard.json";
    good.content = ResourceText("orchard").str();
    addLookup("Estate.zip", zip.build());
    runInChild({.memoryBytes = 512 * kMebi}, [&](Progress&) {
        platform::ReadLimits limits;
        limits.entryBytes = 64 * kMebi;
        platform::setReadLimits(limits);
        const LogCapture log(16);
        EXPECT_EQ(DocResourceParser::getResourceLookupFiles().notInstalled.size(), 1U);
        EXPECT_EQ(count(log.messages(), "Error reading file: Bomb"), 1);
    });
}

TEST_F(MemoryTest, EntriesThatShareTheirBytesStopAtThePackageLimit) {
    constexpr std::size_t kEntries = 1000;
    constexpr std::size_t kDelivered = 32;
    const std::string zeros(kMebi, '0');
    ZipBytes zip;
    for (std::size_t i = 0; i < kEntries; ++i) {
        ZipEntryBytes& entry = zip.entries.emplace_back();
        entry.name = "Bomb" + std::to_string(i) + ".json";
        entry.method = kDeflated;
        entry.crc = crcOf(zeros);
        entry.size = zeros.size();
        entry.packed = i == 0 ? deflated(zeros) : std::string();
        entry.packedSize = zip.entries.front().packed->size();
        // All entries share the header and the bytes of the first.
        entry.localName = zip.entries.front().name;
        entry.localOffset = 0;
    }
    addLookup("Estate.zip", zip.build());
    runInChild({.memoryBytes = 512 * kMebi}, [&](Progress&) {
        platform::ReadLimits limits;
        limits.packageBytes = kDelivered * kMebi;
        platform::setReadLimits(limits);
        const LogCapture log(16);
        EXPECT_EQ(DocResourceParser::getResourceLookupFiles(), Lookups());
        const std::vector<std::string> messages = log.messages();
        EXPECT_EQ(count(messages, "Reading file: "), long{kEntries});
        EXPECT_EQ(count(messages, "Error reading file: "), long{kEntries - kDelivered});
    });
}

} // namespace
} // namespace docparser_tests
