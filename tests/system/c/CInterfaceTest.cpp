#include "tests/system/c/CInterfaceTest.hpp"

#include "tests/support/ResourceText.hpp"

#include <boost/json/parse.hpp>

#include <filesystem>

namespace docparser_tests {

namespace json = boost::json;

namespace {

// Stands for a pointer that the caller has not initialised.
char uninitialised[] = "not returned by the library";

std::filesystem::path utf8Path(const std::string& path) {
    return std::u8string(path.begin(), path.end());
}

std::optional<json::value> take(char* text) {
    EXPECT_NE(text, uninitialised);
    if (!text)
        return std::nullopt;
    json::value document = json::parse(text);
    docparser_free(text);
    return document;
}

} // namespace

CAnswer productOf(const char* product) {
    char* records = uninitialised;
    char* account = uninitialised;
    const docparser_status status = docparser_get_product(product, &records, &account);
    return {status, take(records), take(account)};
}

CAnswer index() {
    char* index = uninitialised;
    char* account = uninitialised;
    const docparser_status status = docparser_get_index(&index, &account);
    return {status, take(index), take(account)};
}

CInterfaceTest::CInterfaceTest() {
    EXPECT_EQ(docparser_set_install_folder(path().c_str()), DOCPARSER_OK);
}

CInterfaceTest::~CInterfaceTest() {
    EXPECT_EQ(docparser_set_install_folder(nullptr), DOCPARSER_OK) << docparser_last_error();
}

std::string CInterfaceTest::path(const std::string& below) const {
    const std::u8string utf8 = (folder.path() / utf8Path(below)).make_preferred().u8string();
    return {utf8.begin(), utf8.end()};
}

void CInterfaceTest::addProduct(const std::string& file) const {
    folder.write(utf8Path(file), resourceText("orchard", {{"a.html", file}}));
}

void CInterfaceTest::addManifest(std::string_view text) const {
    folder.write("installation.json", text);
}

std::string CInterfaceTest::purposeOf(const char* product) {
    const CAnswer answer = productOf(product);
    if (answer.status != DOCPARSER_OK)
        return docparser_last_error();
    return std::string(
        answer.result->at_pointer("/resources/orchard/items/a.html/0/refPurpose").as_string());
}

} // namespace docparser_tests
