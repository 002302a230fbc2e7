#include "tests/support/ZipBytes.hpp"
#include "tests/system/SystemTest.hpp"

#include <atomic>
#include <filesystem>
#include <string>
#include <thread>

namespace docparser_tests {
namespace {

// Packages and lookup files damaged at every position, next to files that must not be affected.
class ChangedPackageTest : public SystemTest {
protected:
    using Items = DocResource<RefItemLookup>::Items;

    static std::string textOf(const std::string& name) {
        return ResourceText(name).add(lookupItem(name, name + ".html", "of " + name)).str();
    }

    static Items itemsOf(const std::u16string& name) {
        return {{name, {lookupRecord(name, name + u".html", u"of " + name)}}};
    }

    static ZipEntryBytes entry(const std::string& name, std::uint16_t method) {
        ZipEntryBytes result;
        result.name = name + ".json";
        result.content = textOf(name);
        result.method = method;
        return result;
    }

    static std::string packageOf(const std::vector<ZipEntryBytes>& entries) {
        ZipBytes zip;
        zip.entries = entries;
        return zip.build();
    }

    // Some file systems write a file to disk at once if its content is replaced.
    void replaceLookup(const std::string& file, const std::string& bytes) const {
        std::filesystem::remove(lookupPath(file));
        addLookup(file, bytes);
    }

    // Reads all lookups and expects only the two known sections, each complete.
    static Lookups readWholeSections() {
        Lookups lookups = DocResourceParser::getResourceLookupFiles();
        for (const auto& [key, section] : lookups.notInstalled) {
            EXPECT_TRUE(key == u"orchard" || key == u"cellar");
            EXPECT_EQ(section.items, itemsOf(key));
        }
        return lookups;
    }
};

TEST_F(ChangedPackageTest, ChecksumDetectsEveryChangedByteOfAStoredEntry) {
    const std::string package = packageOf({entry("orchard", kStored), entry("cellar", kDeflated)});
    const std::string text = textOf("orchard");
    const std::size_t start = package.find(text);
    ASSERT_NE(start, std::string::npos);
    for (std::size_t offset = start; offset < start + text.size(); ++offset) {
        // Changes of letter case and digits, after which the text would still be valid JSON.
        for (const int bits : {0x01, 0x20}) {
            std::string changed = package;
            changed[offset] = static_cast<char>(changed[offset] ^ bits);
            replaceLookup("Changed.zip", changed);
            const Lookups lookups = readWholeSections();
            ASSERT_EQ(lookups.notInstalled.count(u"orchard"), 0U) << offset;
            ASSERT_EQ(lookups.notInstalled.count(u"cellar"), 1U) << offset;
        }
    }
}

TEST_F(ChangedPackageTest, WrongChecksumIsDetectedWithEveryMethod) {
    for (const std::uint16_t method : {kStored, kDeflated}) {
        ZipEntryBytes wrong = entry("orchard", method);
        wrong.crc = crcOf(wrong.content) ^ 1U;
        replaceLookup("Wrong.zip", packageOf({wrong, entry("cellar", method)}));
        const Lookups lookups = readWholeSections();
        EXPECT_EQ(lookups.notInstalled.count(u"orchard"), 0U) << method;
        EXPECT_EQ(lookups.notInstalled.count(u"cellar"), 1U) << method;
    }
}

TEST_F(ChangedPackageTest, NoChangedByteOfAPackageYieldsAFalseRecord) {
    replaceLookup("Cellar.json", textOf("cellar"));
    const std::string package = packageOf({entry("orchard", kDeflated), entry("cellar", kStored)});
    for (std::size_t offset = 0; offset < package.size(); ++offset) {
        for (const int bits : {0x01, 0x40, 0xFF}) {
            SCOPED_TRACE(offset);
            std::string changed = package;
            changed[offset] = static_cast<char>(changed[offset] ^ bits);
            replaceLookup("Changed.zip", changed);
            ASSERT_EQ(readWholeSections().notInstalled.count(u"cellar"), 1U);
        }
    }
}

TEST_F(ChangedPackageTest, TruncatedPackageAffectsNoOtherFile) {
    replaceLookup("Cellar.json", textOf("cellar"));
    const std::string package = packageOf({entry("orchard", kDeflated)});
    for (std::size_t length = 0; length < package.size(); ++length) {
        replaceLookup("Cut.zip", package.substr(0, length));
        const Lookups lookups = readWholeSections();
        ASSERT_EQ(lookups.notInstalled.size(), 1U) << length;
        ASSERT_EQ(lookups.notInstalled.count(u"cellar"), 1U) << length;
    }
}

TEST_F(ChangedPackageTest, TruncatedLookupFileAffectsNoOtherFile) {
    replaceLookup("Cellar.json", textOf("cellar"));
    const std::string text = textOf("orchard");
    for (std::size_t length = 0; length < text.size(); ++length) {
        replaceLookup("Orchard.json", text.substr(0, length));
        const Lookups lookups = readWholeSections();
        ASSERT_EQ(lookups.notInstalled.size(), 1U) << length;
        ASSERT_EQ(lookups.notInstalled.count(u"cellar"), 1U) << length;
    }
}

TEST_F(ChangedPackageTest, ChangedLookupFileAffectsNoOtherFile) {
    replaceLookup("Cellar.zip", packageOf({entry("cellar", kDeflated)}));
    const std::string text = textOf("orchard");
    for (std::size_t offset = 0; offset < text.size(); ++offset) {
        for (const int bits : {0x01, 0x20, 0x80}) {
            std::string changed = text;
            changed[offset] = static_cast<char>(changed[offset] ^ bits);
            replaceLookup("Orchard.json", changed);
            const Lookups lookups = DocResourceParser::getResourceLookupFiles();
            ASSERT_EQ(lookups.notInstalled.at(u"cellar").items, itemsOf(u"cellar"))
                << offset << ' ' << bits;
        }
    }
}

TEST_F(ChangedPackageTest, FileRewrittenDuringReadsIsReadCompletelyOrNotAtAll) {
    ZipEntryBytes large = entry("orchard", kStored);
    large.content += std::string(200'000, ' '); // takes several reads
    const std::string package = packageOf({large, entry("cellar", kDeflated)});
    addLookup("Changing.zip", package);
    const std::filesystem::path file = lookupPath("Changing.zip");
    std::atomic<bool> isDone = false;
    std::thread writer([&] {
        while (!isDone) {
            std::filesystem::resize_file(file, package.size() / 3);
            addLookup("Changing.zip", package);
        }
    });
    for (int read = 0; read < 500; ++read)
        readWholeSections();
    isDone = true;
    writer.join();
    EXPECT_EQ(readWholeSections().notInstalled.size(), 2U);
}

} // namespace
} // namespace docparser_tests
