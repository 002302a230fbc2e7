#include "docparser/io/ResourceFileReader.hpp"

#include "tests/support/LogCapture.hpp"
#include "tests/support/NativeText.hpp"
#include "tests/support/TemporaryFolder.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace reference::docparser {
namespace {

using docparser_tests::LogCapture;
using docparser_tests::LogLine;
using docparser_tests::TemporaryFolder;
using docparser_tests::textOf;
using testing::ElementsAre;

class ResourceFileReader : public testing::Test {
protected:
    static std::optional<std::string> read(const std::u16string& path) {
        return openAndReadFile(path, unobserved);
    }
    static LogLine readingLine(const std::string& path) {
        return {"referenceApi::docparser", 16, "Reading file: " + path};
    }

    // What is read from a file that holds these bytes.
    std::optional<std::string> readBack(const std::string& bytes) const {
        return read(folder.write("Orchard.json", bytes).u16string());
    }

    const TemporaryFolder folder;
};

TEST_F(ResourceFileReader, ReturnsTheBytesAsTheyAreStored) {
    for (const std::string& bytes :
         {std::string("{\r\n  \"a\": 1\r\n}\r\n"), std::string("a\rb\nc\n\rd\r\n"),
          std::string("\xEF\xBB\xBF{}"), std::string("\xFF\xFE{\0}\0", 6),
          std::string("\x1A after the end of a text file"), std::string("\xC3\xA4 \xE4"),
          std::string(100'000, '\n')})
        EXPECT_EQ(readBack(bytes), bytes);
}

TEST_F(ResourceFileReader, TellsAnEmptyFileFromAMissingFileOrAFolder) {
    EXPECT_EQ(readBack(""), "");
    EXPECT_EQ(read(folder.u16() + u"/Missing.json"), std::nullopt);
    EXPECT_EQ(read(folder.u16()), std::nullopt);
}

TEST_F(ResourceFileReader, LogsThePathWhetherOrNotTheFileCanBeRead) {
    folder.write("Orchard.json", "{}");
    const LogCapture log;
    read(folder.u16() + u"/Orchard.json");
    read(folder.u16() + u"/Missing.json");
    EXPECT_THAT(log.lines(), ElementsAre(readingLine(textOf(folder.path()) + "/Orchard.json"),
                                         readingLine(textOf(folder.path()) + "/Missing.json")));
}

#ifdef __linux__
TEST_F(ResourceFileReader, ReturnsAnEmptyStringForFilesWithoutASize) {
    for (const std::string path : {"/proc/self/maps", "/proc/self/mem"}) {
        const LogCapture log;
        EXPECT_EQ(read(std::u16string(path.begin(), path.end())), "");
        EXPECT_THAT(log.lines(), ElementsAre(readingLine(path)));
    }
}
#endif

} // namespace
} // namespace reference::docparser
