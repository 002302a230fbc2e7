#include "tests/system/SystemTest.hpp"

#include <filesystem>
#include <fstream>
#include <iterator>

namespace docparser_tests {
namespace {

#ifdef DOCPARSER_TESTDATA

// Inputs from a folder outside the checkout.
class FurtherInputTest : public SystemTest {};

TEST_F(FurtherInputTest, RejectsEveryFileOfAJsonParserTestSuite) {
    const std::filesystem::path suite =
        std::filesystem::path(DOCPARSER_TESTDATA) / "json" / "jsontestsuite";
    int count = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(suite)) {
        if (!entry.is_regular_file())
            continue;
        std::ifstream stream(entry.path(), std::ios::binary);
        addApi("X.json", std::string(std::istreambuf_iterator<char>(stream), {}));
        EXPECT_EQ(findResources(u"X"), std::nullopt) << entry.path();
        ++count;
    }
    EXPECT_GT(count, 0) << suite;
}

#endif

} // namespace
} // namespace docparser_tests
