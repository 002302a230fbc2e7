#include "docparser/account/LoadAccount.hpp"

#include "platform/i18n/Converter.hpp"
#include "platform/package/FileSystemManager.hpp"
#include "platform/package/StorageSystem.hpp"
#include "platform/package/StreamHelper.hpp"
#include "tests/support/LogCallback.hpp"
#include "tests/support/ZipBytes.hpp"
#include "tests/system/SystemTest.hpp"

#include <filesystem>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

namespace docparser_tests {
namespace {

using fl::i18n::to_string;
using reference::docparser::Fate;
using reference::docparser::FileAccount;
using reference::docparser::FileRole;
using reference::docparser::LoadAccount;
using reference::docparser::RecordAccount;
using reference::docparser::SectionAccount;
using reference::docparser::toWord;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

std::string nameOf(const FileAccount& file) {
    const std::string name = std::filesystem::path(file.path).filename().string();
    return file.entry.empty() ? name : name + "!" + to_string(file.entry);
}

// Returns the name of a file, its fate and, if known, position and reason.
std::string line(const FileAccount& file) {
    std::string text = nameOf(file) + " " + std::string(toWord(file.fate));
    if (file.place)
        text += " " + std::to_string(file.place->line) + ":" + std::to_string(file.place->column);
    if (!file.pointer.empty())
        text += " " + file.pointer;
    if (!file.reason.empty())
        text += " (" + file.reason + ")";
    return text;
}

std::vector<std::string> lines(const LoadAccount& account) {
    std::vector<std::string> result;
    for (const FileAccount& file : account.files)
        result.push_back(line(file));
    return result;
}

const FileAccount& fileNamed(const LoadAccount& account, const std::string& name) {
    for (const FileAccount& file : account.files) {
        if (nameOf(file) == name)
            return file;
    }
    throw std::out_of_range("the account has no file " + name);
}

// Returns a line per section: key, fate, the other file with the key, and the pointer in its own
// file.
std::vector<std::string> sections(const LoadAccount& account, const std::string& name) {
    std::vector<std::string> result;
    for (const SectionAccount& section : fileNamed(account, name).sections)
        result.push_back(to_string(section.key) + " " + std::string(toWord(section.fate)) + " " +
                         nameOf(account.files.at(section.other)) + " \"" + section.pointer + "\"" +
                         (section.isInstalled ? " installed" : ""));
    return result;
}

// Returns a line per decision about a record in the first section of a file.
std::vector<std::string> records(const LoadAccount& account, const std::string& name) {
    std::vector<std::string> result;
    for (const RecordAccount& record : fileNamed(account, name).sections.at(0).records)
        result.push_back(to_string(record.name) + " " + to_string(record.href) + " " +
                         std::string(toWord(record.fate)) + ", from " +
                         nameOf(account.files.at(record.file)) + ", wins " +
                         nameOf(account.files.at(record.winner)));
    return result;
}

std::string packageOf(const std::vector<std::pair<std::string, std::string>>& entries) {
    ZipBytes zip;
    for (const auto& [name, content] : entries)
        zip.entries.push_back({.name = name, .content = content});
    return zip.build();
}

// Returns the error of the package library when it opens a package or reads one of its entries.
std::string packageFailure(const std::string& file, std::ptrdiff_t entry = 0) {
    try {
        const opc::FileSystemOpsSelector selector(
            storage::microservicestoragesystem::GetStorageSystemReference());
        const opc::zippackage::ZipPhysicalPackage physical(std::filesystem::path(file).u16string(),
                                                           selector, true);
        opc::model::Package package(physical);
        opc::qorservices::FileSystemManager manager(package, selector);
        package.open(opc::OpenMode{});
        const auto leaves = manager.getAllLeafs();
        const auto source =
            manager.getFileContentSource(leaves.begin()[entry], opc::TransformMode{1});
        std::ostringstream content;
        opc::StreamHelper::copyStreamToStream(*source->openInputStream(), content);
    } catch (const std::exception& failure) {
        return failure.what();
    }
    throw std::logic_error(file + " has no error");
}

class LoadAccountTest : public SystemTest {
protected:
    void SetUp() override { host->languages = {u"en", u"de", u"ja"}; }

    LoadAccount accountOfLookups() {
        LoadAccount account;
        const LoadAccount::Scope scope(account);
        lookups = DocResourceParser::getResourceLookupFiles();
        return account;
    }
    static LoadAccount accountOfProduct(const std::u16string& product) {
        LoadAccount account;
        const LoadAccount::Scope scope(account);
        findResources(product);
        return account;
    }

    Lookups lookups; // set by accountOfLookups()
};

ResourceText orchard(const std::vector<boost::json::object>& items) {
    ResourceText text("orchard");
    for (const boost::json::object& element : items)
        text.add(element);
    return text;
}

TEST_F(LoadAccountTest, ListsSectionsOfUsedFile) {
    addApi("Orchard.json", ResourceText("orchard").addSupportPackage(ResourceText("hive")).str());
    const LoadAccount account = accountOfProduct(u"Orchard");
    EXPECT_THAT(lines(account), ElementsAre("Orchard.json used"));
    EXPECT_THAT(sections(account, "Orchard.json"),
                ElementsAre("orchard new Orchard.json \"\"",
                            "hive code new Orchard.json \"/supportPackages/0\""));
}

TEST_F(LoadAccountTest, ListsSectionWhoseKeyIsTaken) {
    addApi("Orchard.json", ResourceText("orchard")
                               .addSupportPackage(ResourceText("hive"))
                               .addSupportPackage(ResourceText("hive").set("helpFolder", "second"))
                               .str());
    EXPECT_THAT(sections(accountOfProduct(u"Orchard"), "Orchard.json"),
                ElementsAre("orchard new Orchard.json \"\"",
                            "hive code new Orchard.json \"/supportPackages/0\"",
                            "hive code key-taken Orchard.json \"/supportPackages/1\""));
}

TEST_F(LoadAccountTest, ListsWhatOverlayReplaces) {
    host->language = u"de";
    addApi("Orchard.json", resourceText("orchard", {{"graft.html", "Join"}, {"old.html", "O"}}));
    addApi("Orchard_de.json", orchard({item("graft.html", "Veredeln"), item("neu.html", "Neu")})
                                  .addSupportPackage(ResourceText("hive"))
                                  .str());
    const LoadAccount account = accountOfProduct(u"Orchard");
    EXPECT_THAT(lines(account), ElementsAre("Orchard.json used", "Orchard_de.json overlay"));
    EXPECT_THAT(sections(account, "Orchard_de.json"),
                ElementsAre("orchard overlay Orchard.json \"\"",
                            "hive code new Orchard_de.json \"/supportPackages/0\""));
    EXPECT_THAT(records(account, "Orchard_de.json"),
                ElementsAre("graft.html graft.html replaced, from Orchard.json, wins "
                            "Orchard_de.json"));
    EXPECT_TRUE(account.files[1].isTranslation);
}

TEST_F(LoadAccountTest, ListsEachLocationInTheOrderOfTheAttempts) {
    host->language = u"de";
    EXPECT_THAT(lines(accountOfProduct(u"Orchard")),
                ElementsAre("Orchard.json missing", "Orchard_de.json missing",
                            "Orchard.json missing", "Orchard_de.json missing"));
}

TEST_F(LoadAccountTest, GivesThePositionOfInvalidJson) {
    addApi("Orchard.json", "{\"productName\": \"é\",\n  \"baseCode\": ü}");
    const LoadAccount account = accountOfProduct(u"Orchard");
    const FileAccount& file = account.files.front();
    EXPECT_EQ(file.fate, Fate::Malformed);
    ASSERT_TRUE(file.place);
    EXPECT_EQ(file.place->line, 2U);
    EXPECT_EQ(file.place->column, 15U);
    EXPECT_EQ(file.place->offset, 36U);
    EXPECT_FALSE(file.reason.empty());
    EXPECT_THAT(file.sections, IsEmpty());
}

TEST_F(LoadAccountTest, GivesPointerAndPositionOfFormatError) {
    addApi("Orchard.json",
           "{\"productName\": \"O\", \"baseCode\": \"OR\", \"helpFolder\": \"o\",\n"
           "\"helpLocation\": \"o\", \"refItems\": [\n  {\"href\": 1, \"refpurpose\": \"x\"}]}");
    EXPECT_THAT(lines(accountOfProduct(u"Orchard")).front(),
                "Orchard.json malformed 3:12 /refItems/0/href (expected a string, found a number)");
}

TEST_F(LoadAccountTest, CallsEmptyFileMalformed) {
    addApi("Orchard.json", "");
    EXPECT_THAT(lines(accountOfProduct(u"Orchard")).front(),
                "Orchard.json malformed 1:1 (the file is empty)");
}

TEST_F(LoadAccountTest, ListsFolderWithTheNameOfAFile) {
    std::filesystem::create_directories(apiPath("Orchard.json"));
    EXPECT_THAT(lines(accountOfProduct(u"Orchard")).front(), "Orchard.json not-regular");
}

TEST_F(LoadAccountTest, ListsFileOverTheLimit) {
    platform::setReadLimits({.fileBytes = 10});
    addApi("Orchard.json", resourceText("orchard", {}));
    addLookup("P.json", orchard({}).str());
    const LoadAccount product = accountOfProduct(u"Orchard");
    const LoadAccount lookup = accountOfLookups();
    EXPECT_THAT(lines(product).front(),
                "Orchard.json over-limit (larger than the limit of 10 bytes)");
    EXPECT_THAT(lines(lookup),
                ElementsAre("P.json over-limit (larger than the limit of 10 bytes)"));
}

TEST_F(LoadAccountTest, CallsPathThatCannotNameAFileMissing) {
    const LoadAccount account = accountOfProduct(std::u16string(u"a\0b", 3));
    ASSERT_FALSE(account.files.empty());
    EXPECT_EQ(account.files.front().fate, Fate::Missing);
    EXPECT_FALSE(account.files.front().reason.empty());
}

TEST_F(LoadAccountTest, ListsSkippedFilesBeforeFilesThatAreRead) {
    host->language = u"de";
    addLookup("P.json", orchard({}).str());
    addLookup("P_ja.json", orchard({}).str());
    addLookup("notes.txt", "");
    addLookup("Q.JSON", "");
    const LoadAccount account = accountOfLookups();
    EXPECT_THAT(lines(account),
                UnorderedElementsAre("P_ja.json skipped-language", "notes.txt skipped-name",
                                     "Q.JSON skipped-name", "P.json used"));
    EXPECT_EQ(line(account.files.back()), "P.json used");
}

TEST_F(LoadAccountTest, ListsPackagesBeforeTheirEntries) {
    addLookup("P.zip", packageOf({{"A.json", orchard({}).str()},
                                  {"A_ja.json", "{}"},
                                  {"notes.txt", ""},
                                  {"B.json", "{"}}));
    EXPECT_THAT(lines(accountOfLookups()),
                ElementsAre("P.zip used", "P.zip!A_ja.json skipped-language",
                            "P.zip!notes.txt skipped-name", "P.zip!A.json used",
                            "P.zip!B.json malformed 1:2 (incomplete JSON)"));
}

TEST_F(LoadAccountTest, GivesReasonForBrokenPackage) {
    addLookup("P.zip", "no zip");
    std::filesystem::create_directories(lookupPath("Q.zip"));
    const LoadAccount account = accountOfLookups();
    EXPECT_EQ(account.files.size(), 2U);
    EXPECT_EQ(fileNamed(account, "P.zip").fate, Fate::Unreadable);
    EXPECT_EQ(fileNamed(account, "P.zip").role, FileRole::Package);
    EXPECT_EQ(fileNamed(account, "P.zip").reason, packageFailure(lookupPath("P.zip")));
    EXPECT_EQ(fileNamed(account, "Q.zip").fate, Fate::NotRegular);
}

TEST_F(LoadAccountTest, GivesReasonForUnreadableEntry) {
    ZipBytes zip;
    zip.entries.push_back({.name = "A.json", .content = orchard({}).str(), .crc = 1});
    zip.entries.push_back({.name = "B.json", .content = "x", .flags = kEncryptedFlag});
    addLookup("P.zip", zip.build());
    const LoadAccount account = accountOfLookups();
    EXPECT_EQ(fileNamed(account, "P.zip!A.json").fate, Fate::Unreadable);
    EXPECT_EQ(fileNamed(account, "P.zip!B.json").fate, Fate::Unreadable);
    EXPECT_EQ(fileNamed(account, "P.zip!A.json").reason, packageFailure(lookupPath("P.zip"), 0));
    EXPECT_EQ(fileNamed(account, "P.zip!B.json").reason, packageFailure(lookupPath("P.zip"), 1));
}

TEST_F(LoadAccountTest, ListsEntryOverTheLimit) {
    platform::setReadLimits({.entryBytes = 10});
    addLookup("P.zip", packageOf({{"A.json", orchard({}).str()}}));
    const LoadAccount account = accountOfLookups();
    EXPECT_EQ(fileNamed(account, "P.zip!A.json").fate, Fate::OverLimit);
}

TEST_F(LoadAccountTest, ListsPackageWithDirectoryOverTheLimit) {
    platform::setReadLimits({.directoryBytes = 46 + 5});
    addLookup("P.zip", packageOf({{"A.json", orchard({}).str()}}));
    const LoadAccount account = accountOfLookups();
    ASSERT_EQ(account.files.size(), 1U);
    EXPECT_EQ(account.files.front().role, FileRole::Package);
    EXPECT_EQ(account.files.front().fate, Fate::OverLimit);
    EXPECT_EQ(account.files.front().reason, packageFailure(lookupPath("P.zip")));
}

TEST_F(LoadAccountTest, ListsWhatMergeAddedAndDropped) {
    // Packages are read before plain files, so the package's section comes first.
    addLookup("A.zip", packageOf({{"A.json", orchard({lookupItem("graft", "g.html", "Join"),
                                                      lookupItem("prune", "p.html", "Cut")})
                                                 .str()}}));
    addLookup(
        "B.json",
        orchard({lookupItem("graft", "g.html", "again"), lookupItem("graft", "new.html", "more"),
                 lookupItem("prune", "other.html", "other"), lookupItem("water", "w.html", "Pour")})
            .str());
    host->install({"orchard"});
    const LoadAccount account = accountOfLookups();
    EXPECT_THAT(lines(account), ElementsAre("A.zip used", "A.zip!A.json used", "B.json merged"));
    EXPECT_THAT(sections(account, "B.json"),
                ElementsAre("orchard merged A.zip!A.json \"\" installed"));
    EXPECT_THAT(records(account, "B.json"),
                ElementsAre("graft g.html dropped-href, from B.json, wins A.zip!A.json",
                            "graft new.html added-href, from B.json, wins B.json",
                            "prune other.html dropped-count, from B.json, wins A.zip!A.json",
                            "water w.html added-name, from B.json, wins B.json"));
    EXPECT_EQ(lookups.installed.at(u"orchard").items.at(u"graft").size(), 2U);
}

TEST_F(LoadAccountTest, ListsOriginOfRecordsBelowTranslation) {
    host->language = u"de";
    addLookup("A.zip",
              packageOf({{"A.json", orchard({lookupItem("graft", "g.html", "Join")}).str()},
                         {"B.json", orchard({lookupItem("prune", "p.html", "Cut")}).str()}}));
    addLookup("C_de.json", orchard({lookupItem("graft", "de.html", "Veredeln")}).str());
    const LoadAccount account = accountOfLookups();
    EXPECT_EQ(line(account.files.back()), "C_de.json overlay");
    EXPECT_THAT(sections(account, "C_de.json"), ElementsAre("orchard overlay A.zip!A.json \"\""));
    EXPECT_THAT(records(account, "C_de.json"),
                ElementsAre("graft g.html dropped-count, from A.zip!A.json, wins C_de.json",
                            "prune p.html added-name, from A.zip!B.json, wins A.zip!B.json"));
}

TEST_F(LoadAccountTest, GivesHostFailureAsReason) {
    addLookup("P.json", ResourceText("a").addSupportPackage(ResourceText("b")).str());
    host->onProducts = [asked = 0]() mutable {
        if (++asked == 2)
            throw std::runtime_error("the catalogue is closed");
    };
    const LoadAccount account = accountOfLookups();
    EXPECT_THAT(lines(account), ElementsAre("P.json failed (the catalogue is closed)"));
    EXPECT_THAT(sections(account, "P.json"),
                ElementsAre("a new P.json \"\"", "b code unused P.json \"/supportPackages/0\""));
}

TEST_F(LoadAccountTest, ChangesNoResult) {
    host->language = u"de";
    addLookup("A.zip",
              packageOf({{"A.json", orchard({lookupItem("graft", "g.html", "Join")}).str()},
                         {"A_de.json", orchard({lookupItem("graft", "d.html", "V")}).str()}}));
    addLookup("B.json",
              orchard({lookupItem("graft", "b.html", "B"), lookupItem("x", "y", "z")}).str());
    addLookup("bad.json", "{");
    addApi("Orchard.json", resourceText("orchard", {{"g.html", "Join"}, {"p.html", "Cut"}}));
    addApi("Orchard_de.json", resourceText("orchard", {{"g.html", "Veredeln"}}));
    accountOfLookups();
    EXPECT_EQ(lookups, DocResourceParser::getResourceLookupFiles());

    const auto without = DocResourceParser::getResourceFile(u"Orchard");
    LoadAccount account;
    const LoadAccount::Scope scope(account);
    EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), without);
}

TEST_F(LoadAccountTest, UsesTheInnermostScopeOfTheThread) {
    addApi("Orchard.json", resourceText("orchard", {}));
    LoadAccount outer;
    LoadAccount inner;
    const LoadAccount::Scope outerScope(outer);
    {
        const LoadAccount::Scope innerScope(inner);
        DocResourceParser::getResourceFile(u"Orchard");
        std::thread([] { DocResourceParser::getResourceFile(u"Orchard"); }).join();
    }
    EXPECT_THAT(inner.files, testing::SizeIs(1));
    EXPECT_THAT(outer.files, IsEmpty());
    DocResourceParser::getResourceFile(u"Orchard");
    EXPECT_THAT(outer.files, testing::SizeIs(1));
}

// A log sink or a host service may retrieve another product during a retrieval.
class NestedRetrievalTest : public LoadAccountTest {
protected:
    NestedRetrievalTest() {
        addApi("Inner.json", resourceText("hive", {}));
        addApi("P.json", resourceText("orchard", {{"a.html", "Join"}}));
        addApi("P_de.json", resourceText("orchard", {{"a.html", "Veredeln"}}));
    }
    void SetUp() override {
        LoadAccountTest::SetUp();
        host->language = u"de";
    }

    // Retrieves another product on the first call.
    void retrieveInner() {
        if (!std::exchange(hasRetrieved, true))
            findResources(u"Inner");
    }
    void expectSeparateFiles(const LoadAccount& account) {
        EXPECT_TRUE(hasRetrieved);
        EXPECT_TRUE(account.isComplete);
        EXPECT_THAT(lines(account), ElementsAre("Inner.json used", "Inner_de.json missing",
                                                "P.json used", "P_de.json overlay"));
        EXPECT_THAT(sections(account, "P_de.json"), ElementsAre("orchard overlay P.json \"\""));
        EXPECT_THAT(records(account, "P_de.json"),
                    ElementsAre("a.html a.html replaced, from P.json, wins P_de.json"));
    }

    bool hasRetrieved = false;
};

TEST_F(NestedRetrievalTest, FromALogSinkHasItsOwnFiles) {
    for (const std::string file : {"P.json", "P_de.json"}) {
        SCOPED_TRACE(file);
        hasRetrieved = false;
        const LogCallback callback([&](const std::string& message) {
            if (message == "Reading file: " + apiPath(file))
                retrieveInner();
        });
        expectSeparateFiles(accountOfProduct(u"P"));
    }
}

TEST_F(NestedRetrievalTest, FromTheLanguageServiceHasItsOwnFiles) {
    host->onLanguage = [this] { retrieveInner(); };
    expectSeparateFiles(accountOfProduct(u"P"));
}

TEST_F(NestedRetrievalTest, FromTheCatalogueHasItsOwnFiles) {
    addLookup("A.zip",
              packageOf({{"A.json", orchard({lookupItem("graft", "g.html", "Join")}).str()},
                         {"B.json", orchard({lookupItem("graft", "g.html", "Cut")}).str()}}));
    host->onProducts = [this] { retrieveInner(); };
    const LoadAccount account = accountOfLookups();
    EXPECT_THAT(lines(account),
                ElementsAre("Inner.json used", "Inner_de.json missing", "A.zip used",
                            "A.zip!A.json used", "A.zip!B.json merged"));
    EXPECT_THAT(records(account, "A.zip!B.json"),
                ElementsAre("graft g.html dropped-href, from A.zip!B.json, wins A.zip!A.json"));
}

TEST_F(NestedRetrievalTest, IsKeptIfTheOuterRetrievalThrows) {
    const LogCallback callback([&](const std::string&) { retrieveInner(); });
    EXPECT_THAT(lines(accountOfProduct(u"Absent")),
                ElementsAre("Inner.json used", "Inner_de.json missing", "Absent.json missing",
                            "Absent_de.json missing", "Absent.json missing",
                            "Absent_de.json missing"));
}

TEST_F(LoadAccountTest, DoesNotRecordListingOfProducts) {
    addLookup("notes.txt", "");
    LoadAccount account;
    const LoadAccount::Scope scope(account);
    DocResourceParser::getAllProducts(DocResourceParser::getReferenceRoots()->lookupFolder, {},
                                      u"");
    EXPECT_THAT(account.files, IsEmpty());
}

TEST(LoadAccountWords, EachFateAndRoleHasAWord) {
    std::vector<std::string_view> words;
    for (int fate = 0; fate <= static_cast<int>(Fate::Failed); ++fate)
        words.push_back(toWord(static_cast<Fate>(fate)));
    EXPECT_THAT(words, ElementsAre("used", "overlay", "merged", "skipped-language", "skipped-name",
                                   "missing", "unreadable", "not-regular", "malformed",
                                   "over-limit", "failed"));
    EXPECT_THAT((std::vector{toWord(FileRole::Resources), toWord(FileRole::Lookup),
                             toWord(FileRole::Package)}),
                ElementsAre("resources", "lookup", "package"));
}

} // namespace
} // namespace docparser_tests
