#include "tests/system/refdoc/check/rules/RuleCases.hpp"

namespace refdoc_tests {

ExampleFile germanManifest() {
    return {"installation.json", R"({"supportedDocLanguages": ["en", "de"]})"};
}

std::string text(const std::string& items, const std::string& more,
                 const std::string& helpLocation) {
    return R"({"productName": "", "baseCode": "b", "helpFolder": "k", "helpLocation": ")" +
           helpLocation + "\", \"refItems\": [\n" + items + "\n]" + more + "}";
}

std::string record(const std::string& href, const std::string& more) {
    return R"({"name": "n", "href": ")" + href + R"(", "refpurpose": "")" + more + "}";
}

std::string item(const std::string& href, const std::string& more) {
    return R"({"href": ")" + href + R"(", "refpurpose": "")" + more + "}";
}

} // namespace refdoc_tests
