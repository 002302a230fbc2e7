#include "tests/support/ZipBytes.hpp"
#include "tests/system/SystemTest.hpp"

#include <filesystem>
#include <string>
#include <vector>

namespace docparser_tests {
namespace {

// Package entries with misleading attributes or names.
class PackageEntryTest : public SystemTest {
protected:
    static ZipEntryBytes entry(const std::string& name, const std::string& helpFolder) {
        return {.name = name, .content = ResourceText(helpFolder).str()};
    }

    void addPackage(const std::string& file, const std::vector<ZipEntryBytes>& entries) const {
        ZipBytes zip;
        zip.entries = entries;
        addLookup(file, zip.build());
    }

    // The expected lookups: a section for each help folder, with the product that defines it.
    static Lookups lookupsOf(const std::map<std::u16string, std::u16string>& products) {
        Lookups lookups;
        for (const auto& [helpFolder, product] : products)
            lookups.notInstalled.emplace(helpFolder, lookupSection(helpFolder, product, {}));
        return lookups;
    }
};

// Sets the Unix file mode of the n-th entry of a package.
std::string withUnixMode(std::string package, int n, std::uint32_t mode) {
    const std::string record("PK\1\2");
    std::size_t offset = package.find(record);
    for (int i = 0; i < n; ++i)
        offset = package.find(record, offset + 1);
    package[offset + 5] = 3; // created on Unix
    return package.replace(offset + 38, 4, littleEndian(std::uint64_t{mode} << 16, 4));
}

TEST_F(PackageEntryTest, SymbolicLinkIsReadAsContentAndNotFollowed) {
    folder.write("target.json", ResourceText("target").str());
    ZipBytes zip;
    zip.entries = {{.name = "Link.json", .content = (folder.path() / "target.json").string()},
                   entry("Text.json", "text"),
                   entry("Device.json", "device")};
    // Only the content of an entry matters, not its attributes.
    std::string package = withUnixMode(zip.build(), 0, 0120777);
    package = withUnixMode(package, 1, 0120777);
    addLookup("Estate.zip", withUnixMode(package, 2, 0020666));
    EXPECT_EQ(DocResourceParser::getResourceLookupFiles(),
              lookupsOf({{u"text", u"Text"}, {u"device", u"Device"}}));
}

TEST_F(PackageEntryTest, NamesThatDifferOnlyInCaseAreDifferentEntries) {
    addPackage("Estate.zip", {entry("Orchard.json", "one"), entry("ORCHARD.json", "two"),
                              entry("orchard.json", "three"), entry("orchard.JSON", "never")});
    EXPECT_EQ(DocResourceParser::getResourceLookupFiles(),
              lookupsOf({{u"one", u"Orchard"}, {u"two", u"ORCHARD"}, {u"three", u"orchard"}}));
}

TEST_F(PackageEntryTest, RepeatedSuffixIsCutAtItsFirstOccurrence) {
    setLanguage(u"de");
    addPackage("Estate.zip", {entry("Orchard_de_de.json", "orchard"), entry("Other.json", "o")});
    addPackage("Alone_de_de.zip", {entry("Alone_de_de.json", "alone")});
    addLookup("Plain_de_de.json", ResourceText("plain").str());
    EXPECT_EQ(DocResourceParser::getResourceLookupFiles(), lookupsOf({{u"orchard", u"Orchard"},
                                                                      {u"o", u"Other"},
                                                                      {u"alone", u"Alone"},
                                                                      {u"plain", u"Plain"}}));
}

TEST_F(PackageEntryTest, NamesThatLeadOutOfThePackageTouchNoFile) {
    folder.write("outside.json", ResourceText("outside").str());
    const std::string outside = (folder.path() / "outside.json").string();
    addPackage("Estate.zip",
               {entry(outside, "absolute"), entry("../../../outside.json", "relative"),
                entry("C:\\outside.json", "drive"), entry("..\\outside.json", "backslash")});
    std::vector<std::u16string> keys;
    for (const auto& [key, found] : DocResourceParser::getResourceLookupFiles().notInstalled)
        keys.push_back(key);
    EXPECT_THAT(keys, testing::ElementsAre(u"absolute", u"backslash", u"drive", u"relative"));
    EXPECT_FALSE(std::filesystem::exists(lookupPath("outside.json")));
    EXPECT_EQ(std::filesystem::file_size(outside), ResourceText("outside").str().size());
}

} // namespace
} // namespace docparser_tests
