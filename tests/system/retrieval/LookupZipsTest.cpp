#include "docparser/discovery/ProductZipData.hpp"
#include "platform/package/Package.hpp"
#include "platform/package/StorageSystem.hpp"
#include "platform/package/ZipPhysicalPackage.hpp"
#include "tests/support/OpenDescriptors.hpp"
#include "tests/support/PosixTest.hpp"
#include "tests/support/ZipBytes.hpp"
#include "tests/system/SystemTest.hpp"

#include <filesystem>
#include <iterator>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

namespace docparser_tests {
namespace {

using reference::docparser::ProductZipData;

// Lookup files in zip packages: which packages and entries are read, and which are skipped.
class LookupZipsTest : public SystemTest {
protected:
    void SetUp() override { host->languages = {u"en", u"de", u"ja"}; }

    // Returns the text of a lookup file with one section and one record of the same name.
    static std::string textOf(const std::string& section) {
        return ResourceText(section).add(lookupItem(section, "x.html", "X")).str();
    }
    static DocResource<RefItemLookup> sectionOf(const std::u16string& section,
                                                const std::u16string& product) {
        return lookupSection(section, product, {lookupRecord(section, u"x.html", u"X")});
    }
    // Returns an entry that contains such a lookup file.
    static ZipEntryBytes entry(const std::string& name, const std::string& section) {
        ZipEntryBytes result;
        result.name = name;
        result.content = textOf(section);
        result.method = kDeflated;
        return result;
    }
    void addZip(const std::string& file, const std::vector<ZipEntryBytes>& entries) const {
        ZipBytes zip;
        zip.entries = entries;
        addLookup(file, zip.build());
    }
    // Returns sections that are not installed, given by key and product.
    static Lookups found(const std::map<std::u16string, std::u16string>& sectionsAndProducts) {
        Lookups lookups;
        for (const auto& [section, product] : sectionsAndProducts)
            lookups.notInstalled.emplace(section, sectionOf(section, product));
        return lookups;
    }
    static std::vector<std::u16string> keysOf(const ResourceMap<RefItemLookup>& sections) {
        std::vector<std::u16string> keys;
        for (const auto& [key, section] : sections)
            keys.push_back(key);
        return keys;
    }
    static Lookups read() { return DocResourceParser::getResourceLookupFiles(); }
};

TEST_F(LookupZipsTest, SingleEntryIsReadUnderItsOwnName) {
    addZip("Package.zip", {entry("folder/Orchard.json", "orchard")});
    const LogCapture log(16 | 512);
    EXPECT_EQ(read(), found({{u"orchard", u"Orchard"}}));
    EXPECT_THAT(log.messages(), testing::ElementsAre("Reading file: Orchard"));
}

TEST_F(LookupZipsTest, SingleEntryOfEnglishPackageIsEnglishUnderAnyName) {
    addZip("Orchard.zip", {entry("Orchard_ja.json", "orchard")});
    EXPECT_EQ(read(), found({{u"orchard", u"Orchard_ja"}}));
}

TEST_F(LookupZipsTest, SingleEntryOfTranslatedPackageIsTranslation) {
    host->language = u"ja";
    addZip("Orchard_ja.zip", {entry("Orchard_ja.json", "orchard")});
    EXPECT_EQ(read(), found({{u"orchard", u"Orchard"}}));
}

TEST_F(LookupZipsTest, SingleEntryOfTranslatedPackageNeedsTheSuffixItself) {
    host->language = u"ja";
    addZip("Orchard_ja.zip", {entry("Orchard.json", "orchard")});
    const LogCapture log(16 | 512);
    EXPECT_EQ(read(), Lookups());
    EXPECT_THAT(log.messages(), testing::IsEmpty());
}

TEST_F(LookupZipsTest, ReadsEnglishAndCurrentLanguageOfSeveralEntries) {
    const std::vector<ZipEntryBytes> entries = {
        entry("Orchard.json", "orchard"), entry("Vineyard_de.json", "vineyard"),
        entry("Meadow_ja.json", "meadow"), entry("Garden.json", "garden"),
        entry("Barn_fr.json", "barn")};
    addZip("Estate.zip", entries);
    // French is not a supported language, so its suffix is part of the name.
    EXPECT_EQ(read(),
              found({{u"orchard", u"Orchard"}, {u"garden", u"Garden"}, {u"barn", u"Barn_fr"}}));
    host->language = u"de";
    EXPECT_EQ(read(), found({{u"orchard", u"Orchard"},
                             {u"vineyard", u"Vineyard"},
                             {u"garden", u"Garden"},
                             {u"barn", u"Barn_fr"}}));
}

TEST_F(LookupZipsTest, SeveralEntriesOfTranslatedPackageGoByTheirOwnNames) {
    host->language = u"ja";
    addZip("Estate_ja.zip", {entry("Orchard.json", "orchard"), entry("Garden_ja.json", "garden")});
    EXPECT_EQ(read(), found({{u"orchard", u"Orchard"}, {u"garden", u"Garden"}}));
}

TEST_F(LookupZipsTest, DoesNotOpenPackagesOfOtherLanguages) {
    addZip("Orchard.zip", {entry("Orchard.json", "orchard")});
    addZip("Orchard_de.zip", {entry("Orchard_de.json", "german")});
    EXPECT_EQ(read(), found({{u"orchard", u"Orchard"}}));
}

TEST_F(LookupZipsTest, SkipsEntriesThatAreNotResourceFiles) {
    ZipEntryBytes folderEntry;
    folderEntry.name = "lookup/";
    addZip("Estate.zip", {entry("[Content_Types].xml", "types"), entry("_rels/.rels", "relations"),
                          folderEntry, entry("notes.txt", "notes"), entry("noext", "none"),
                          entry("upper.JSON", "upper"), entry("lookup/Orchard.json", "orchard")});
    const LogCapture log(16 | 512);
    EXPECT_EQ(read(), found({{u"orchard", u"Orchard"}}));
    EXPECT_THAT(log.messages(), testing::ElementsAre("Reading file: Orchard"));
}

TEST_F(LookupZipsTest, DoesNotCountPackagingMetadataAsEntries) {
    addZip("Orchard.zip", {entry("[Content_Types].xml", "types"), entry("_rels/.rels", "relations"),
                           entry("Orchard_ja.json", "orchard")});
    EXPECT_EQ(read(), found({{u"orchard", u"Orchard_ja"}}));
}

TEST_F(LookupZipsTest, CountsFilesOfOtherTypesAsEntries) {
    addZip("Orchard.zip", {entry("notes.txt", "notes"), entry("Orchard_ja.json", "orchard")});
    EXPECT_EQ(read(), Lookups());
}

TEST_F(LookupZipsTest, PackageWithoutEntriesAddsNothing) {
    addZip("Empty.zip", {});
    ZipEntryBytes folderEntry;
    folderEntry.name = "only/";
    addZip("Folders.zip", {folderEntry});
    const LogCapture log(16 | 512);
    EXPECT_EQ(read(), Lookups());
    EXPECT_THAT(log.messages(), testing::IsEmpty());
}

TEST_F(LookupZipsTest, ReadsAllEntriesOfOneNameInOrder) {
    ZipEntryBytes first = entry("Orchard.json", "orchard");
    ZipEntryBytes second = entry("Orchard.json", "orchard");
    second.content = ResourceText("orchard").add(lookupItem("graft", "g.html", "G")).str();
    addZip("Package.zip", {first, second});
    const Lookups lookups = read();
    ASSERT_EQ(keysOf(lookups.notInstalled), std::vector<std::u16string>{u"orchard"});
    const auto& items = lookups.notInstalled.at(u"orchard").items;
    EXPECT_EQ(items.at(u"orchard").size(), 1U);
    EXPECT_EQ(items.at(u"graft").size(), 1U);
}

TEST_F(LookupZipsTest, EntryNamesAreNeverPathsOnDisk) {
    const std::filesystem::path outside = folder.path() / "Outside.json";
    addZip("Hostile.zip", {entry("/Absolute.json", "absolute"), entry("../../Outside.json", "dots"),
                           entry("C:\\Windows\\Drive.json", "drive")});
    const std::string folderBefore = folder.path().string();
    EXPECT_EQ(read(),
              found({{u"absolute", u"Absolute"}, {u"dots", u"Outside"}, {u"drive", u"Drive"}}));
    EXPECT_FALSE(std::filesystem::exists(outside));
}

TEST_F(LookupZipsTest, DoesNotOpenPackageInPackage) {
    ZipBytes inner;
    inner.entries = {entry("Orchard.json", "orchard")};
    ZipEntryBytes nested;
    nested.name = "Inner.zip";
    nested.content = inner.build();
    addZip("Outer.zip", {nested, entry("Garden.json", "garden")});
    EXPECT_EQ(read(), found({{u"garden", u"Garden"}}));
}

POSIX_TEST_F(LookupZipsTest, SkipsOnlyPackagesThatCannotBeOpenedAndLogsNothing) {
    ZipBytes truncated;
    truncated.entries = {entry("Truncated.json", "truncated")};
    std::string bytes = truncated.build();
    bytes.resize(bytes.size() - 30);
    addLookup("Truncated.zip", bytes);
    addLookup("NoZip.zip", "this is no package");
    addLookup("Json.zip", textOf("json"));
    addLookup("Void.zip", "");
    std::filesystem::create_directory(lookupPath("Folder.zip"));
    std::filesystem::create_symlink("absent", lookupPath("Gone.zip"));
    addZip("Orchard.zip", {entry("Orchard.json", "orchard")});
    addZip("Vineyard.zip", {entry("Vineyard.json", "vineyard")});
    const LogCapture log(16 | 512);
    EXPECT_EQ(read(), found({{u"orchard", u"Orchard"}, {u"vineyard", u"Vineyard"}}));
    EXPECT_THAT(log.messages(),
                testing::UnorderedElementsAre("Reading file: Orchard", "Reading file: Vineyard"));
}

struct BadEntry {
    const char* what;
    void (*spoil)(ZipEntryBytes&);
};

const BadEntry kBadEntries[] = {
    {"checksum of a deflated entry is wrong", [](ZipEntryBytes& bad) { bad.crc = 1; }},
    {"checksum of a stored entry is wrong",
     [](ZipEntryBytes& bad) {
         bad.method = kStored;
         bad.crc = 1;
     }},
    {"is encrypted", [](ZipEntryBytes& bad) { bad.flags = kEncryptedFlag; }},
    {"method is not known", [](ZipEntryBytes& bad) { bad.method = 77; }},
    {"claims to be larger", [](ZipEntryBytes& bad) { bad.size = bad.content.size() + 100; }},
    {"claims to be smaller", [](ZipEntryBytes& bad) { bad.size = bad.content.size() - 1; }},
    {"deflate stream is broken", [](ZipEntryBytes& bad) { bad.packed = "\x07nonsense"; }},
};

TEST_F(LookupZipsTest, SkipsOnlyTheEntryThatCannotBeRead) {
    for (const BadEntry& bad : kBadEntries) {
        SCOPED_TRACE(bad.what);
        ZipEntryBytes spoilt = entry("Bad.json", "bad");
        bad.spoil(spoilt);
        addZip("Package.zip",
               {entry("Before.json", "before"), spoilt, entry("After.json", "after")});
        const LogCapture log(16 | 512);
        EXPECT_EQ(read(), found({{u"before", u"Before"}, {u"after", u"After"}}));
        const std::vector<LogLine> lines = log.lines();
        EXPECT_THAT(log.messages(),
                    testing::ElementsAre("Reading file: Before", "Reading file: Bad",
                                         "Error reading file: Bad", "Reading file: After"));
        for (const LogLine& line : lines)
            EXPECT_EQ(line.severity, 16);
    }
}

TEST_F(LookupZipsTest, SkipsOnlyEntriesWithInvalidContent) {
    ZipEntryBytes malformed = entry("Bad.json", "bad");
    malformed.content = "{\"refItems\": ";
    ZipEntryBytes marked = entry("Marked.json", "marked");
    marked.content = "\xEF\xBB\xBF" + marked.content;
    addZip("Package.zip", {malformed, marked, entry("Good.json", "good")});
    EXPECT_EQ(read(), found({{u"good", u"Good"}}));
}

TEST_F(LookupZipsTest, SkipsEntryOverTheLimit) {
    ZipEntryBytes bomb;
    bomb.name = "Bomb.json";
    bomb.content = std::string(std::size_t{4} << 20, ' ');
    bomb.method = kDeflated;
    addZip("Package.zip", {bomb, entry("Good.json", "good")});
    platform::ReadLimits limits;
    limits.entryBytes = std::uint64_t{1} << 20;
    platform::setReadLimits(limits);
    const LogCapture log(16);
    EXPECT_EQ(read(), found({{u"good", u"Good"}}));
    EXPECT_THAT(log.messages(), testing::Contains("Error reading file: Bomb"));
}

TEST_F(LookupZipsTest, LimitsTheTotalSizeOfTheEntriesOfAPackage) {
    std::vector<ZipEntryBytes> entries;
    for (int i = 0; i < 8; ++i) {
        entries.push_back(entry("Product" + std::to_string(i) + ".json", "p" + std::to_string(i)));
        entries.back().content += std::string(200'000, ' ');
    }
    addZip("Package.zip", entries);
    platform::ReadLimits limits;
    limits.packageBytes = 1'000'000;
    platform::setReadLimits(limits);
    EXPECT_EQ(keysOf(read().notInstalled),
              (std::vector<std::u16string>{u"p0", u"p1", u"p2", u"p3"}));
}

TEST_F(LookupZipsTest, FailingCatalogueSkipsTheRestOfTheProduct) {
    ResourceText text("orchard");
    text.addSupportPackage(ResourceText("ladder"));
    ZipEntryBytes both = entry("Orchard.json", "orchard");
    both.content = text.str();
    addZip("Package.zip", {both, entry("Garden.json", "garden")});
    host->onProducts = [calls = 0]() mutable {
        if (++calls == 2)
            throw std::runtime_error("the catalogue fails once");
    };
    // The keys of the first product come in code-unit order: "ladder code", then "orchard".
    EXPECT_EQ(keysOf(read().notInstalled),
              (std::vector<std::u16string>{u"garden", u"ladder code"}));
}

TEST_F(LookupZipsTest, PlainFileIsMergedIntoPackageEntry) {
    ZipEntryBytes packed = entry("Orchard.json", "orchard");
    packed.content = ResourceText("orchard")
                         .set("productName", "packed")
                         .add(lookupItem("both", "packed.html", "P"))
                         .add(lookupItem("more", "a.html", "P"))
                         .str();
    addZip("Orchard.zip", {packed});
    addLookup("Orchard.json", ResourceText("orchard")
                                  .set("productName", "plain")
                                  .add(lookupItem("both", "plain.html", "Q"))
                                  .add(lookupItem("more", "a.html", "Q"))
                                  .add(lookupItem("more", "b.html", "Q"))
                                  .add(lookupItem("alone", "c.html", "Q"))
                                  .str());
    const Lookups lookups = read();
    const DocResource<RefItemLookup>& orchard = lookups.notInstalled.at(u"orchard");
    EXPECT_EQ(orchard.header.getProductName(), u"packed");
    const DocResource<RefItemLookup>::Items expected = {
        {u"alone", {lookupRecord(u"alone", u"c.html", u"Q")}},
        {u"both", {lookupRecord(u"both", u"packed.html", u"P")}},
        {u"more",
         {lookupRecord(u"more", u"a.html", u"P"), lookupRecord(u"more", u"b.html", u"Q")}}};
    EXPECT_EQ(orchard.items, expected);
}

TEST_F(LookupZipsTest, TranslatedPlainFileReplacesRecordsOfPackageEntry) {
    host->language = u"de";
    ZipEntryBytes packed = entry("Orchard.json", "orchard");
    packed.content = ResourceText("orchard")
                         .add(lookupItem("graft", "graft.html", "Join trees"))
                         .add(lookupItem("prune", "prune.html", "Cut back"))
                         .str();
    addZip("Orchard.zip", {packed});
    addLookup("Orchard_de.json", ResourceText("orchard")
                                     .set("productName", "Obstgarten")
                                     .add(lookupItem("graft", "graft.html", "Veredeln"))
                                     .str());
    const Lookups lookups = read();
    const DocResource<RefItemLookup>& orchard = lookups.notInstalled.at(u"orchard");
    EXPECT_EQ(orchard.header.getProductName(), u"Obstgarten");
    const DocResource<RefItemLookup>::Items expected = {
        {u"graft", {lookupRecord(u"graft", u"graft.html", u"Veredeln")}},
        {u"prune", {lookupRecord(u"prune", u"prune.html", u"Cut back")}}};
    EXPECT_EQ(orchard.items, expected);
}

TEST_F(LookupZipsTest, ReadsPackagesWithNonAsciiPaths) {
    addZip("\xE5\xBA\xAD\xF0\x9F\x8C\xB3.zip", {entry("\xE5\xBA\xAD.json", "garden")});
    EXPECT_EQ(read(), found({{u"garden", u"\u5EAD"}}));
}

TEST_F(LookupZipsTest, ClosesEveryFile) {
    addZip("Good.zip", {entry("Good.json", "good")});
    addLookup("NoZip.zip", "this is no package");
    read();
    const std::size_t before = openDescriptors();
    for (int i = 0; i < 50; ++i)
        read();
    EXPECT_LE(openDescriptors(), before);
}

static_assert(!std::is_copy_assignable_v<ProductZipData>);
static_assert(!std::is_move_assignable_v<ProductZipData>);

TEST(ProductZipData, CopiesAndMovesKeepTheEntryAndShareTheManager) {
    const TemporaryFolder folder;
    ZipBytes zip;
    zip.entries = {{.name = "a/Orchard.json", .content = "{}"}};
    folder.write("Package.zip", zip.build());

    const opc::FileSystemOpsSelector selector(
        storage::microservicestoragesystem::GetStorageSystemReference());
    const opc::zippackage::ZipPhysicalPackage physical(folder.u16() + u"/Package.zip", selector,
                                                       true);
    opc::model::Package package(physical);
    opc::qorservices::FileSystemManager manager(package, selector);
    package.open(opc::OpenMode{});
    const auto leaves = manager.getAllLeafs();

    ProductZipData source(u"Orchard", true, *leaves.begin(), manager);
    const ProductZipData copy(source);
    const ProductZipData moved(std::move(source));
    for (const ProductZipData* record :
         {&copy, &moved, static_cast<const ProductZipData*>(&source)}) {
        EXPECT_EQ(record->getName(), u"Orchard");
        EXPECT_TRUE(record->isNonEnglishLocale());
        EXPECT_EQ(record->getEntry().getBaseName(), u"Orchard.json");
        EXPECT_EQ(&record->getFileSystemManager(), &manager);
    }
}

} // namespace
} // namespace docparser_tests
