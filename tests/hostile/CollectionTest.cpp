#include "docparser/DocParserException.hpp"
#include "platform/i18n/Converter.hpp"
#include "tests/hostile/ChildProcess.hpp"
#include "tests/system/SystemTest.hpp"

#include <boost/json/parse.hpp>
#include <boost/json/value_to.hpp>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace docparser_tests {
namespace {

// The folder of further test inputs. None of its files is a valid resource file of any type.
class CollectionTest : public SystemTest, public testing::WithParamInterface<std::string> {
protected:
    static std::filesystem::path collection() { return DOCPARSER_TESTDATA; }

    static std::string readAll(const std::filesystem::path& file) {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    static std::vector<std::filesystem::path> files() {
        std::vector<std::filesystem::path> result;
        for (const auto& entry :
             std::filesystem::recursive_directory_iterator(collection() / GetParam())) {
            if (entry.is_regular_file())
                result.push_back(entry.path());
        }
        std::ranges::sort(result);
        return result;
    }

    // Writes the bytes to each location that the library reads, and expects that nothing is found.
    void expectNothingOf(const std::string& bytes) const {
        // Some file systems write a file to disk at once if its content is replaced.
        for (const std::string& file :
             {apiPath("X.json"), supportPath("X.json"), lookupPath("X.json"), lookupPath("X.zip")})
            std::filesystem::remove(file);
        addApi("X.json", bytes);
        addSupport("X.json", bytes);
        addLookup("X.json", bytes);
        addLookup("X.zip", bytes);
        EXPECT_EQ(findResources(u"X"), std::nullopt);
        EXPECT_EQ(DocResourceParser::getResourceLookupFiles(), Lookups());
    }
};

TEST_P(CollectionTest, NoFileIsReadAsAResourceFromAnyLocation) {
    setLanguage(u"de");
    const std::vector<std::filesystem::path> inputs = files();
    ASSERT_FALSE(inputs.empty());
    runInChild({}, [&](Progress& progress) {
        for (const std::filesystem::path& input : inputs) {
            SCOPED_TRACE(input);
            progress.at(input.string());
            expectNothingOf(readAll(input));
        }
    });
}

INSTANTIATE_TEST_SUITE_P(Folders, CollectionTest, testing::Values("json", "zip", "utf", "fuzz"),
                         [](const auto& folder) { return folder.param; });

class NaughtyNameTest : public SystemTest {};

TEST_F(NaughtyNameTest, ExceptionCarriesEachName) {
    const std::filesystem::path strings =
        std::filesystem::path(DOCPARSER_TESTDATA) / "utf/naughty-strings/blns.json";
    std::ifstream stream(strings, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    const auto names = boost::json::value_to<std::vector<std::string>>(boost::json::parse(text));
    ASSERT_FALSE(names.empty());
    const LogCapture log(512);
    for (const std::string& name : names) {
        EXPECT_EQ(findResources(fl::i18n::to_ustring(name)), std::nullopt) << name;
        EXPECT_EQ(log.messages().back(),
                  "DocParserException thrown in getResourceFile for product: " + name);
    }
    EXPECT_EQ(log.messages().size(), names.size());
}

} // namespace
} // namespace docparser_tests
