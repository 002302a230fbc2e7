#include "tests/system/SystemTest.hpp"
#include "tests/system/Watchdog.hpp"

#include <sys/stat.h>

#include <filesystem>
#include <fstream>

namespace docparser_tests {
namespace {

using testing::ElementsAre;

// Things that have the name of a product's file, in the reference-API folder and the lookup folder.
class FileTypeTest : public SystemTest {
protected:
    FileTypeTest() { addSupport("Orchard.json", resourceText("orchard", {})); }

    // Expects that the file counts as missing: only the attempt is logged, and the next folder is
    // tried.
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

TEST_F(FileTypeTest, MissingFileLogsOnlyTheAttempt) {
    expectMissing();
}

TEST_F(FileTypeTest, EmptyFileCountsAsMissing) {
    addApi("Orchard.json", "");
    expectMissing();
    addLookup("Orchard.json", "");
    expectMissingLookup();
}

TEST_F(FileTypeTest, FolderCountsAsMissing) {
    std::filesystem::create_directory(apiPath("Orchard.json"));
    expectMissing();
    std::filesystem::create_directory(lookupPath("Orchard.json"));
    expectMissingLookup();
}

TEST_F(FileTypeTest, PipeWithoutWriterCountsAsMissing) {
    ASSERT_EQ(::mkfifo(apiPath("Orchard.json").c_str(), 0600), 0);
    expectMissing();
    ASSERT_EQ(::mkfifo(lookupPath("Orchard.json").c_str(), 0600), 0);
    expectMissingLookup();
}

TEST_F(FileTypeTest, EndlessDeviceCountsAsMissing) {
    std::filesystem::create_symlink("/dev/zero", apiPath("Orchard.json"));
    expectMissing();
    std::filesystem::create_symlink("/dev/zero", lookupPath("Orchard.json"));
    expectMissingLookup();
}

TEST_F(FileTypeTest, SocketCountsAsMissing) {
    ASSERT_EQ(::mknod(apiPath("Orchard.json").c_str(), S_IFSOCK | 0600, 0), 0);
    expectMissing();
    ASSERT_EQ(::mknod(lookupPath("Orchard.json").c_str(), S_IFSOCK | 0600, 0), 0);
    expectMissingLookup();
}

TEST_F(FileTypeTest, DanglingLinkCountsAsMissing) {
    std::filesystem::create_symlink("absent", apiPath("Orchard.json"));
    expectMissing();
    std::filesystem::create_symlink("Orchard.json", lookupPath("Orchard.json"));
    expectMissingLookup();
}

TEST_F(FileTypeTest, FollowsLinkToFile) {
    folder.write("elsewhere.json", resourceText("linked", {}));
    std::filesystem::create_symlink(folder.path() / "elsewhere.json", apiPath("Orchard.json"));
    const Resources expected = {{u"linked", section(u"linked", u"Orchard", {})}};
    EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), expected);
}

TEST_F(FileTypeTest, MissingFolderHasNoFiles) {
    std::filesystem::remove_all(folder.path() / "root");
    expectMissing();
    EXPECT_EQ(DocResourceParser::getResourceLookupFiles(), Lookups());
}

TEST_F(FileTypeTest, FileOverTheLimitLogsProblemAndNextFolderIsTried) {
    const std::string large = resourceText("orchard", {{"graft.html", "Join trees"}});
    addApi("Orchard.json", large);
    platform::setReadLimits({.fileBytes = large.size() - 1});
    const LogCapture log(528);
    EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), supported);
    EXPECT_THAT(log.messages(), ElementsAre("Reading file: " + apiPath("Orchard.json"),
                                            "Problem reading JSON file: " + apiPath("Orchard.json"),
                                            "Reading file: " + supportPath("Orchard.json")));
}

TEST_F(FileTypeTest, SkipsOnlyLookupFileOverTheLimit) {
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

TEST_F(FileTypeTest, ReadsFileOfExactlyTheLimit) {
    const std::string text = resourceText("exact", {});
    addApi("Orchard.json", text);
    platform::setReadLimits({.fileBytes = text.size()});
    EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard").count(u"exact"), 1U);
}

TEST_F(FileTypeTest, SparseFileTakesNoMemory) {
    addApi("Orchard.json", "{");
    std::filesystem::resize_file(apiPath("Orchard.json"), std::uintmax_t{1} << 40);
    const LogCapture log(512);
    EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), supported);
    EXPECT_THAT(log.messages(),
                ElementsAre("Problem reading JSON file: " + apiPath("Orchard.json")));
}

TEST_F(FileTypeTest, AcceptsWindowsLineEnds) {
    std::string text = resourceText("orchard", {{"graft.html", "Join trees"}});
    for (std::size_t comma = text.find(','); comma != std::string::npos;
         comma = text.find(',', comma + 3))
        text.replace(comma, 1, ",\r\n");
    addApi("Orchard.json", "\r\n" + text + "\r\n");
    const Resources expected = {
        {u"orchard", section(u"orchard", u"Orchard", {{u"graft.html", u"Join trees"}})}};
    EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), expected);
}

TEST_F(FileTypeTest, ByteOrderMarkIsInvalidJson) {
    addApi("Orchard.json", "\xEF\xBB\xBF" + resourceText("marked", {}));
    expectMissing();
    addLookup("Orchard.json", "\xEF\xBB\xBF" + ResourceText("marked").str());
    expectMissingLookup();
}

TEST_F(FileTypeTest, ReadsFileThatIsOpenForWriting) {
    addApi("Orchard.json", resourceText("open", {}));
    const std::fstream writer(apiPath("Orchard.json"), std::ios::in | std::ios::out);
    ASSERT_TRUE(writer.is_open());
    EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard").count(u"open"), 1U);
}

} // namespace
} // namespace docparser_tests
