// The C interface returns the documents that the tool prints, and accounts as the schema says.

#include "docparser/c/docparser.h"
#include "tests/support/Schema.hpp"
#include "tests/system/refdoc/RefdocTest.hpp"

#include <boost/json/parse.hpp>
#include <boost/json/serialize.hpp>

namespace refdoc_tests {
namespace {

namespace json = boost::json;
using docparser_tests::Schema;

// Frees a string of the interface and returns its content.
std::string take(char* text) {
    const std::string copy = text ? text : "";
    docparser_free(text);
    return copy;
}

class CInterfaceAgreementTest : public RefdocTest {
protected:
    ~CInterfaceAgreementTest() override {
        EXPECT_EQ(docparser_set_install_folder(nullptr), DOCPARSER_OK);
    }

    // Compares the texts, because the members must also have the same order.
    void expectOutputOfTool(const std::string& result, const std::string& definition,
                            const std::string& language,
                            const std::vector<std::string>& command) const {
        SCOPED_TRACE(language + testing::PrintToString(command));
        std::vector<std::string> arguments{"--install", samplesFolder(), "--lang", language,
                                           "--json"};
        arguments.insert(arguments.end(), command.begin(), command.end());
        const json::value printed = document(runProgram(arguments).out);
        EXPECT_EQ(result, json::serialize(printed));
        EXPECT_EQ(Schema("refdoc-output.schema.json", definition).problemsOf(printed), "");
    }

    void expectValidAccount(char* account) const {
        ASSERT_NE(account, nullptr);
        const json::value value = json::parse(take(account));
        EXPECT_EQ(account_.problemsOf(value), "") << value;
        EXPECT_FALSE(value.at("files").as_array().empty());
    }

private:
    Schema account_{"docparser-account.schema.json"};
};

TEST_F(CInterfaceAgreementTest, DocumentsOfTheSamplesAreThoseOfTheTool) {
    ASSERT_EQ(docparser_set_install_folder(samplesFolder().c_str()), DOCPARSER_OK);
    for (const std::string language : {"en", "de", "ja", "fr", ""}) {
        ASSERT_EQ(docparser_set_language(language.c_str(), nullptr, 0), DOCPARSER_OK);
        char* account = nullptr;
        for (const std::string product : {"Orchard", "Cellar", "HiveScale"}) {
            char* records = nullptr;
            EXPECT_EQ(docparser_get_product(product.c_str(), &records, &account), DOCPARSER_OK);
            expectOutputOfTool(take(records), "show", language, {"show", product});
            expectValidAccount(account);
        }
        char* index = nullptr;
        EXPECT_EQ(docparser_get_index(&index, &account), DOCPARSER_OK);
        expectOutputOfTool(take(index), "lookup", language, {"lookup"});
        expectValidAccount(account);
    }
}

TEST_F(CInterfaceAgreementTest, AccountsOfDamagedFilesAreValid) {
    addResource("Damaged", R"({"productName": 7})");
    addLookup("Damaged", "{");
    add("help/docCatalog/referenceapi_lookup/Broken.zip", "not a package");
    ASSERT_EQ(docparser_set_install_folder(path().c_str()), DOCPARSER_OK);
    char* result = nullptr;
    char* account = nullptr;
    EXPECT_EQ(docparser_get_product("Damaged", &result, &account), DOCPARSER_NOT_FOUND);
    expectValidAccount(account);
    EXPECT_EQ(docparser_get_index(&result, &account), DOCPARSER_OK);
    EXPECT_EQ(take(result), R"({"installed":{},"notInstalled":{}})");
    expectValidAccount(account);
}

} // namespace
} // namespace refdoc_tests
