#include "docparser/DocParserException.hpp"
#include "docparser/DocResourceParser.hpp"
#include "tests/support/TemporaryFolder.hpp"

#include <boost/json/parse.hpp>
#include <gtest/gtest.h>
#include <valijson/adapters/boost_json_adapter.hpp>
#include <valijson/schema.hpp>
#include <valijson/schema_parser.hpp>
#include <valijson/validator.hpp>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

namespace docparser_tests {
namespace {

namespace json = boost::json;
using reference::docparser::DocParserException;
using reference::docparser::DocResourceParser;

json::value readJson(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    return json::parse(text);
}

class Schema {
public:
    explicit Schema(const std::string& name) {
        const json::value text = readJson(std::filesystem::path(SCHEMA_FOLDER) / name);
        valijson::SchemaParser(valijson::SchemaParser::kDraft7)
            .populateSchema(valijson::adapters::BoostJsonAdapter(text), schema_);
    }

    bool accepts(const json::value& document) const {
        valijson::Validator validator;
        return validator.validate(schema_, valijson::adapters::BoostJsonAdapter(document), nullptr);
    }

private:
    valijson::Schema schema_;
};

std::vector<std::filesystem::path> samplesIn(const std::string& folder) {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(
             std::filesystem::path(SAMPLES_FOLDER) / folder)) {
        if (entry.path().extension() == ".json")
            files.push_back(entry.path());
    }
    return files;
}

TEST(Schema, EveryFullSampleIsValid) {
    const Schema schema("referenceapi.schema.json");
    std::vector<std::filesystem::path> files = samplesIn("help/docCatalog/referenceapi");
    std::ranges::move(samplesIn("supportpackages"), std::back_inserter(files));
    ASSERT_EQ(files.size(), 6U);
    for (const std::filesystem::path& file : files)
        EXPECT_TRUE(schema.accepts(readJson(file))) << file;
}

TEST(Schema, EveryLookupSampleIsValid) {
    const Schema schema("referenceapi_lookup.schema.json");
    std::vector<std::filesystem::path> files = samplesIn("help/docCatalog/referenceapi_lookup");
    std::ranges::move(samplesIn("lookup-packages"), std::back_inserter(files));
    ASSERT_EQ(files.size(), 12U);
    for (const std::filesystem::path& file : files)
        EXPECT_TRUE(schema.accepts(readJson(file))) << file;
}

TEST(Schema, TheManifestIsValid) {
    EXPECT_TRUE(
        Schema("installation.schema.json")
            .accepts(readJson(std::filesystem::path(SAMPLES_FOLDER) / "installation.json")));
}

// Whether the library reads a text as the full file of a product.
bool isRead(const TemporaryFolder& root, const std::string& text) {
    root.write("docCatalog/referenceapi/X.json", text);
    try {
        DocResourceParser::getResourceFile(u"X");
        return true;
    } catch (const DocParserException&) {
        return false;
    }
}

// The smallest full file around one item.
std::string fileOf(const std::string& item) {
    return R"({"productName": "p", "baseCode": "b", "helpFolder": "h", "helpLocation": "l",
               "refItems": [)" +
           item + "]}";
}

TEST(Schema, AgreesWithTheParserOnFullFiles) {
    const std::vector<std::string> texts = {
        "[]",
        "{}",
        R"({"productName": "p", "baseCode": "b", "helpFolder": "h", "helpLocation": "l"})",
        R"({"productName": "p", "baseCode": "b", "helpFolder": "h", "helpLocation": "l",
            "refItems": {}})",
        R"({"productName": "p", "baseCode": "b", "helpFolder": "h", "helpLocation": "l",
            "refItems": [], "supportPackages": {}})",
        R"({"productName": "p", "baseCode": "b", "helpFolder": "h", "helpLocation": "l",
            "refItems": [], "supportPackages": [{}]})",
        fileOf(""),
        fileOf("1"),
        fileOf("{}"),
        fileOf(R"({"href": "a"})"),
        fileOf(R"({"href": "a", "refpurpose": "b"})"),
        fileOf(R"({"href": "a", "refpurpose": 1})"),
        fileOf(R"({"href": "a", "refpurpose": "b", "unknown": {}})"),
        fileOf(R"({"href": "a", "refpurpose": "b", "deprecationstatus": 1})"),
        fileOf(R"({"href": "a", "refpurpose": "b", "deprecationstatus": "nonsense"})"),
        fileOf(R"({"href": "a", "refpurpose": "b", "appthumbnail": {"fileref": "f"}})"),
        fileOf(R"({"href": "a", "refpurpose": "b", "refentity": [{"type": "function"}]})"),
        fileOf(R"({"href": "a", "refpurpose": "b", "syntaxgroup": [{"syntax": []}]})"),
        fileOf(R"({"href": "a", "refpurpose": "b", "inputs": [{"name": "n", "purpose": "p"}]})"),
        fileOf(R"({"href": "a", "refpurpose": "b", "inputs": [{"name": "n"}]})"),
        fileOf(R"({"href": "a", "refpurpose": "b", "inputs": [{"namevaluepairs": []}]})"),
        fileOf(R"({"href": "a", "refpurpose": "b", "inputs": [{"namevaluepairs": [{}]}]})"),
        fileOf(R"({"href": "a", "refpurpose": "b", "inputgroup": [{"inputs": []}]})"),
        fileOf(R"({"href": "a", "refpurpose": "b", "classpropertygroup": [{}]})"),
        fileOf(R"({"href": "a", "refpurpose": "b", "seealso": [{"url": "u"}]})"),
        fileOf(R"({"href": "a", "refpurpose": "b", "examples": [{"url": "u", "title": "t"}]})"),
        fileOf(R"({"href": "a", "refpurpose": "b", "parameters": "none"})"),
    };
    const Schema schema("referenceapi.schema.json");
    const TemporaryFolder root;
    DocResourceParser::setReferenceRoot(root.u16());
    for (const std::string& text : texts)
        EXPECT_EQ(schema.accepts(json::parse(text)), isRead(root, text)) << text;
    DocResourceParser::restoreDefaultSettings();
}

} // namespace
} // namespace docparser_tests
