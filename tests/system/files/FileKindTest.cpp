#include "tests/system/SystemTest.hpp"
#include "tests/system/Watchdog.hpp"

#include <sys/stat.h>

#include <filesystem>
#include <fstream>

namespace docparser_tests {
namespace {

using testing::ElementsAre;

// What bears the name of a product's file, first in the reference root and again as a lookup file.
class FileKindTest : public SystemTest {
protected:
    FileKindTest() { addSupport("Orchard.json", resourceText("orchard", {})); }

    // The file counts as missing: no line but those of the reading, and the next place is tried.
    void expectMissing() const {
        runWatched([this] {
            const LogCapture log(528);
            EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), supported);
            EXPECT_THAT(log.messages(),
                        ElementsAre("Reading file: " + apiPath("Orchard.json"),
                                    "Reading file: " + supportPath("Orchard.json")));
        });
    }
    void expectMissingLookup() const {
        runWatched([this] {
            const LogCapture log(528);
            EXPECT_EQ(DocResourceParser::getResourceLookupFiles(), Lookups());
            EXPECT_THAT(log.messages(), ElementsAre("Reading file: " + lookupPath("Orchard.json")));
        });
    }

    const Resources supported = {{u"orchard", section(u"orchard", u"Orchard", {})}};
};

TEST_F(FileKindTest, AMissingFileLeavesOnlyTheLineOfItsReading) {
    expectMissing();
}

TEST_F(FileKindTest, AnEmptyFileIsAsGoodAsMissing) {
    addApi("Orchard.json", "");
    expectMissing();
    addLookup("Orchard.json", "");
    expectMissingLookup();
}

TEST_F(FileKindTest, AFolderIsAsGoodAsMissing) {
    std::filesystem::create_directory(apiPath("Orchard.json"));
    expectMissing();
    std::filesystem::create_directory(lookupPath("Orchard.json"));
    expectMissingLookup();
}

TEST_F(FileKindTest, APipeWithoutAWriterIsAsGoodAsMissing) {
    ASSERT_EQ(::mkfifo(apiPath("Orchard.json").c_str(), 0600), 0);
    expectMissing();
    ASSERT_EQ(::mkfifo(lookupPath("Orchard.json").c_str(), 0600), 0);
    expectMissingLookup();
}

TEST_F(FileKindTest, AnEndlessDeviceIsAsGoodAsMissing) {
    std::filesystem::create_symlink("/dev/zero", apiPath("Orchard.json"));
    expectMissing();
    std::filesystem::create_symlink("/dev/zero", lookupPath("Orchard.json"));
    expectMissingLookup();
}

TEST_F(FileKindTest, ASocketIsAsGoodAsMissing) {
    ASSERT_EQ(::mknod(apiPath("Orchard.json").c_str(), S_IFSOCK | 0600, 0), 0);
    expectMissing();
    ASSERT_EQ(::mknod(lookupPath("Orchard.json").c_str(), S_IFSOCK | 0600, 0), 0);
    expectMissingLookup();
}

TEST_F(FileKindTest, ALinkThatLeadsNowhereIsAsGoodAsMissing) {
    std::filesystem::create_symlink("absent", apiPath("Orchard.json"));
    expectMissing();
    std::filesystem::create_symlink("Orchard.json", lookupPath("Orchard.json"));
    expectMissingLookup();
}

TEST_F(FileKindTest, ALinkToAFileIsThatFile) {
    folder.write("elsewhere.json", resourceText("linked", {}));
    std::filesystem::create_symlink(folder.path() / "elsewhere.json", apiPath("Orchard.json"));
    const Resources expected = {{u"linked", section(u"linked", u"Orchard", {})}};
    EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), expected);
}

TEST_F(FileKindTest, AMissingFolderHasNoFiles) {
    std::filesystem::remove_all(folder.path() / "root");
    expectMissing();
    EXPECT_EQ(DocResourceParser::getResourceLookupFiles(), Lookups());
}

TEST_F(FileKindTest, AFileOverTheLimitIsAProblemAndTheNextPlaceIsTried) {
    const std::string large = resourceText("orchard", {{"graft.html", "Join trees"}});
    addApi("Orchard.json", large);
    platform::setReadLimits({.fileBytes = large.size() - 1});
    const LogCapture log(528);
    EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), supported);
    EXPECT_THAT(log.messages(), ElementsAre("Reading file: " + apiPath("Orchard.json"),
                                            "Problem reading JSON file: " + apiPath("Orchard.json"),
                                            "Reading file: " + supportPath("Orchard.json")));
}

TEST_F(FileKindTest, ALookupFileOverTheLimitIsAProblemOfThatFileAlone) {
    const std::string large = ResourceText("orchard").set("productName", "longer").str();
    const std::string small = ResourceText("o").str();
    addLookup("Orchard.json", large);
    addLookup("Small.json", small);
    platform::setReadLimits({.fileBytes = small.size()});
    const LogCapture log(512);
    const Lookups expected = {{}, {{u"o", lookupSection(u"o", u"Small", {})}}};
    EXPECT_EQ(DocResourceParser::getResourceLookupFiles(), expected);
    EXPECT_THAT(log.messages(),
                ElementsAre("Problem reading JSON file: " + lookupPath("Orchard.json")));
}

TEST_F(FileKindTest, AFileOfExactlyTheLimitIsRead) {
    const std::string text = resourceText("exact", {});
    addApi("Orchard.json", text);
    platform::setReadLimits({.fileBytes = text.size()});
    EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard").count(u"exact"), 1U);
}

TEST_F(FileKindTest, AFileThatClaimsToBeHugeTakesNoMemory) {
    addApi("Orchard.json", "{");
    std::filesystem::resize_file(apiPath("Orchard.json"), std::uintmax_t{1} << 40);
    const LogCapture log(512);
    EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), supported);
    EXPECT_THAT(log.messages(),
                ElementsAre("Problem reading JSON file: " + apiPath("Orchard.json")));
}

TEST_F(FileKindTest, LineEndsOfAnyKindAreRead) {
    std::string text = resourceText("orchard", {{"graft.html", "Join trees"}});
    for (std::size_t comma = text.find(','); comma != std::string::npos;
         comma = text.find(',', comma + 3))
        text.replace(comma, 1, ",\r\n");
    addApi("Orchard.json", "\r\n" + text + "\r\n");
    const Resources expected = {
        {u"orchard", section(u"orchard", u"Orchard", {{u"graft.html", u"Join trees"}})}};
    EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), expected);
}

TEST_F(FileKindTest, AByteOrderMarkStaysAndIsNoJson) {
    addApi("Orchard.json", "\xEF\xBB\xBF" + resourceText("marked", {}));
    expectMissing();
    addLookup("Orchard.json", "\xEF\xBB\xBF" + ResourceText("marked").str());
    expectMissingLookup();
}

TEST_F(FileKindTest, AFileThatMayBeWrittenMeanwhileIsReadAllTheSame) {
    addApi("Orchard.json", resourceText("open", {}));
    const std::fstream writer(apiPath("Orchard.json"), std::ios::in | std::ios::out);
    ASSERT_TRUE(writer.is_open());
    EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard").count(u"open"), 1U);
}

} // namespace
} // namespace docparser_tests
