#include "platform/i18n/Converter.hpp"
#include "tests/system/SystemTest.hpp"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

namespace docparser_tests {
namespace {

using fl::i18n::to_string;

// The results of the worked examples in the documentation.
class WorkedExamplesTest : public SystemTest {
protected:
    WorkedExamplesTest() {
        setLanguage(u"de");
        host->install({"orchard"});
        DocResourceParser::setReferenceRoot(std::filesystem::path(WORKED_EXAMPLES).u16string());
    }

    static std::string read(const std::string& file) {
        std::ifstream stream(std::string(WORKED_EXAMPLES "/") + file);
        return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    }
};

// Returns a line for each section and each record.
template <class T, class Line>
std::string listed(const ResourceMap<T>& resources, Line line) {
    std::ostringstream text;
    for (const auto& [key, resource] : resources) {
        text << to_string(key) << ": " << to_string(resource.header.getProductName()) << '\n';
        for (const auto& [itemKey, records] : resource.items) {
            for (const T& record : records)
                text << "  " << to_string(itemKey) << ": " << line(record) << '\n';
        }
    }
    return text.str();
}

TEST_F(WorkedExamplesTest, OverlayMatchesTheDocumentation) {
    const auto line = [](const RefItem& item) { return to_string(item.getRefPurpose()); };
    EXPECT_EQ(listed(DocResourceParser::getResourceFile(u"Orchard"), line), read("overlay.txt"));
}

TEST_F(WorkedExamplesTest, MergeMatchesTheDocumentation) {
    const auto line = [](const RefItemLookup& item) {
        return to_string(item.getHref()) + ", " + to_string(item.getRefPurpose());
    };
    const Lookups lookups = DocResourceParser::getResourceLookupFiles();
    EXPECT_EQ("installed\n" + listed(lookups.installed, line) + "not installed\n" +
                  listed(lookups.notInstalled, line),
              read("merge.txt"));
}

} // namespace
} // namespace docparser_tests
