#include "tests/system/refdoc/RefdocTest.hpp"
#include "tests/system/refdoc/commands/FullProduct.hpp"

#include <boost/json/serialize.hpp>

namespace refdoc_tests {
namespace {

// The record of kFullProduct, with the members in the expected order.
constexpr const char* kFullItem = R"json({
  "href": "graft.html",
  "refEntities": [
    {"entityType": "class", "name": "graft", "functionType": "function"},
    {"entityType": "method", "name": "graft", "functionType": "constructor"},
    {"entityType": "function", "name": "join", "functionType": "function"}],
  "packageName": "orchard.trees",
  "refPurpose": "Join two trees",
  "introduced": "1.2",
  "description": "Joins the scion to the rootstock and waits until both have grown together, which takes about a year.\nBoth stay alive.",
  "appThumbnail": {"fileRef": "graft.png", "alt": "Two trees"},
  "deprecationStatus": "discouraged",
  "syntaxGroups": [
    {"title": "Join", "syntaxType": "function", "syntaxes": ["t = graft(a, b)", "t = graft(a, b, way: w)"]},
    {"title": "", "syntaxType": "command", "syntaxes": ["graft a b"]}],
  "inputs": [
    {"objectInfo": {"name": "a", "purpose": "Rootstock", "values": [], "href": "graft.html#in-a"},
     "syntaxType": "function", "defaultValue": "", "isNameValuePair": false},
    {"objectInfo": {"name": "b", "purpose": "Scion", "values": [], "href": "graft.html#in-b"},
     "syntaxType": "command", "defaultValue": "", "isNameValuePair": false},
    {"objectInfo": {"name": "way", "purpose": "How to cut, which depends on how thick both are", "values": ["whip", "cleft"], "href": "graft.html#in-way"},
     "syntaxType": "function", "defaultValue": "whip", "isNameValuePair": true}],
  "inputGroups": [{"title": "More", "inputs": [
    {"objectInfo": {"name": "wax", "purpose": "Seal", "values": [], "href": "graft.html#in-wax"},
     "syntaxType": "function", "defaultValue": "", "isNameValuePair": false}]}],
  "outputs": [
    {"objectInfo": {"name": "t", "purpose": "Tree", "values": ["alive", "dead"], "href": "graft.html#out-t"},
     "syntaxType": "function"}],
  "classPropertyGroups": [
    {"title": "Look", "properties": [
      {"objectInfo": {"name": "Height", "purpose": "In m", "values": [], "href": "graft.html#prop_Height"}, "defaultValue": "1"}]},
    {"title": "", "properties": [
      {"objectInfo": {"name": "Age", "purpose": "In years", "values": [], "href": "graft.html#prop_Age"}, "defaultValue": ""}]}],
  "seeAlso": [{"url": "prune.html", "name": "prune"}, {"url": "sow.html", "name": "sowing"}],
  "examples": [{"url": "ex/first.html", "openCommand": "orchard demo first", "title": "A first tree"}],
  "parameters": [
    {"objectInfo": {"name": "sun", "purpose": "Hours a day", "values": [], "href": "graft.html#par-sun"}, "defaultValue": "6"}]
})json";

constexpr const char* kHeader = R"({"schema": "referenceapi", "schemaVersion": "2.1",
  "productName": "Orchard", "baseCode": "OR", "helpFolder": "orchard", "helpLocation": "help/or",
  "product": "Orchard"})";

// Returns a document as text, because values compare equal whatever the order of their members.
std::string canonical(const std::string& text) {
    return boost::json::serialize(document(text));
}

class ShowJsonTest : public RefdocTest {};

TEST_F(ShowJsonTest, PrintsAllFieldsInRecordOrder) {
    addResource("Orchard", kFullProduct);
    const Outcome outcome = run({"show", "Orchard", "--json"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(
        canonical(outcome.out),
        canonical(std::string(R"({"product": "Orchard", "resources": {"orchard": {"header": )") +
                  kHeader + R"(, "items": {"graft.html": [)" + kFullItem + "]}}}}"));
}

TEST_F(ShowJsonTest, PrintsAbsentFieldsAsEmpty) {
    addResource("P", section("p", R"({"href": "a.html", "refpurpose": "b"})"));
    EXPECT_EQ(run({"show", "P", "--json"}).out, R"({
  "product": "P",
  "resources": {
    "p": {
      "header": {
        "schema": "",
        "schemaVersion": "",
        "productName": "p name",
        "baseCode": "p code",
        "helpFolder": "p",
        "helpLocation": "p/help",
        "product": "P"
      },
      "items": {
        "a.html": [
          {
            "href": "a.html",
            "refEntities": [],
            "packageName": "",
            "refPurpose": "b",
            "introduced": "",
            "description": "",
            "appThumbnail": {
              "fileRef": "",
              "alt": ""
            },
            "deprecationStatus": "none",
            "syntaxGroups": [],
            "inputs": [],
            "inputGroups": [],
            "outputs": [],
            "classPropertyGroups": [],
            "seeAlso": [],
            "examples": [],
            "parameters": []
          }
        ]
      }
    }
  }
}
)");
}

TEST_F(ShowJsonTest, PrintsNoResourcesForAMissingProduct) {
    const Outcome outcome = run({"--json", "show", "P"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "{\n  \"product\": \"P\",\n  \"resources\": {}\n}\n");
    EXPECT_THAT(outcome.err, testing::StartsWith("refdoc: no resources for \"P\"; tried "));
}

TEST_F(ShowJsonTest, OmitsSectionsWithoutTheGivenHrefs) {
    addResource("P", section("p",
                             R"({"href": "a.html", "refpurpose": "one"},
                                {"href": "b.html", "refpurpose": "two"},
                                {"href": "a.html", "refpurpose": "three"})",
                             R"(, "supportPackages": [)" +
                                 section("kit", R"({"href": "k.html", "refpurpose": "k"})") + "]"));
    const auto keys = [&](std::vector<std::string> hrefs) {
        hrefs.insert(hrefs.begin(), {"show", "P", "--json"});
        const boost::json::value shown = document(run(hrefs).out);
        std::string text;
        for (const auto& section : shown.at("resources").as_object()) {
            text += std::string(section.key()) + ":";
            for (const auto& item : section.value().at("items").as_object())
                text += " " + std::string(item.key()) + "*" +
                        std::to_string(item.value().as_array().size());
            text += ";";
        }
        return text;
    };
    EXPECT_EQ(keys({}), "kit code: k.html*1;p: a.html*2 b.html*1;");
    EXPECT_EQ(keys({"a.html"}), "p: a.html*2;");
    EXPECT_EQ(keys({"k.html", "nothing"}), "kit code: k.html*1;");
    EXPECT_EQ(keys({"nothing"}), "");
}

TEST_F(ShowJsonTest, PrintsTheItemsThatAreFoundAndReturns1) {
    addResource("P", section("p", R"({"href": "a.html", "refpurpose": "b"})"));
    const Outcome whole = run({"--json", "show", "P"});
    EXPECT_EQ(run({"--json", "show", "P", "a.html", "x"}),
              (Outcome{1, whole.out, "refdoc: no item \"x\" in \"P\"; see refdoc show \"P\"\n"}));
}

TEST_F(ShowJsonTest, EscapesControlCharacters) {
    addResource("P", section("p", R"({"href": "a.html",
        "refpurpose": "é 木 🌳 \u0001\u001b\u007f\u009b\"\\\t"})"));
    const Outcome outcome = run({"--json", "show", "P"});
    EXPECT_THAT(outcome.out, testing::HasSubstr("\"refPurpose\": \"é 木 🌳 "
                                                "\\u0001\\u001b\\u007f\\u009b\\\"\\\\\\t\""));
}

TEST_F(ShowJsonTest, IgnoresColor) {
    addResource("Orchard", kFullProduct);
    EXPECT_EQ(run({"--json", "--color", "always", "show", "Orchard"}),
              run({"--json", "show", "Orchard"}));
}

} // namespace
} // namespace refdoc_tests
