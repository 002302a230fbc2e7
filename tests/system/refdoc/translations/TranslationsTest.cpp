#include "tests/system/refdoc/translations/TranslationsTest.hpp"

#include "tests/support/ZipBytes.hpp"

#include <boost/algorithm/string/join.hpp>
#include <boost/json/array.hpp>
#include <boost/json/object.hpp>

namespace refdoc_tests {

namespace json = boost::json;
using docparser_tests::item;
using docparser_tests::lookupItem;
using docparser_tests::ResourceText;
using docparser_tests::resourceText;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

// "a.html", "graft a.html" or "a.html inputs,outputs": the values of an element.
std::string textOf(const json::value& element) {
    if (const json::string* text = element.if_string())
        return std::string(*text);
    std::vector<std::string> parts;
    if (const json::array* array = element.if_array()) {
        for (const json::value& each : *array)
            parts.push_back(textOf(each));
        return boost::algorithm::join(parts, ",");
    }
    for (const auto& member : element.as_object())
        parts.push_back(textOf(member.value()));
    return boost::algorithm::join(parts, " ");
}

void addDefects(const std::string& start, const json::object& comparison,
                std::set<std::string>& lines) {
    for (const auto& [name, value] : comparison) {
        if (name == "details" || !value.is_array())
            continue;
        for (const json::value& element : value.as_array())
            lines.insert(start + std::string(name) + ' ' + textOf(element));
    }
}

} // namespace

std::set<std::string> defectsIn(const json::value& report) {
    std::set<std::string> lines;
    for (const json::value& product : report.at("products").as_array()) {
        for (const auto& [language, comparison] : product.at("languages").as_object()) {
            const std::string start =
                std::string(product.at("product").as_string()) + ' ' + std::string(language) + ' ';
            addDefects(start, comparison.as_object(), lines);
            addDefects(start + "lookup ", comparison.at("lookup").as_object(), lines);
        }
    }
    return lines;
}

json::object itemWith(std::string_view href, std::string_view refPurpose, json::object more) {
    json::object result = item(href, refPurpose);
    for (auto& [key, value] : more)
        result[key] = std::move(value);
    return result;
}

TranslationsTest::TranslationsTest() {
    addManifest(
        R"({"supportedDocLanguages": ["en", "de", "ja"], "supportPackageRoot": "packages"})");
}

std::set<std::string> TranslationsTest::defects(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), {"translations", "--json"});
    const Outcome outcome = run(arguments);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.status, 0);
    return defectsIn(document(outcome.out));
}

void TranslationsTest::addPackage(
    const std::string& name,
    const std::vector<std::pair<std::string, std::string>>& entries) const {
    docparser_tests::ZipBytes zip;
    for (const auto& [entry, content] : entries)
        zip.entries.push_back({.name = entry, .content = content});
    add("help/docCatalog/referenceapi_lookup/" + name + ".zip", zip.build());
}

namespace {

std::string lookupText(std::string_view helpFolder, const std::vector<json::object>& records) {
    ResourceText text(helpFolder);
    for (const json::object& record : records)
        text.add(record);
    return text.str();
}

TEST_F(TranslationsTest, ReportsTheNumbersOfEachLanguage) {
    addResource("Orchard", resourceText("o", {{"a", "Join"}, {"b", "Cut"}, {"c", "Water"}}));
    addResource("Orchard_de", resourceText("o", {{"a", "Verbinden"}, {"b", "Schneiden"}}));
    addResource("Orchard_ja", resourceText("o", {{"a", "Join"}}));
    const json::value report = document(run({"translations", "--json"}).out);
    const json::object& languages = report.at("products").at(0).at("languages").as_object();
    EXPECT_EQ(languages.at("de").at("english"), json::value(3));
    EXPECT_EQ(languages.at("de").at("translated"), json::value(2));
    EXPECT_EQ(languages.at("de").at("share"), json::value(66));
    EXPECT_EQ(languages.at("ja").at("translated"), json::value(0));
    EXPECT_EQ(report.at("languages"),
              (json::value{{"de",
                            {{"english", 3},
                             {"translated", 2},
                             {"share", 66},
                             {"lookup", {{"english", 0}, {"translated", 0}, {"share", 100}}}}},
                           {"ja",
                            {{"english", 3},
                             {"translated", 0},
                             {"share", 0},
                             {"lookup", {{"english", 0}, {"translated", 0}, {"share", 100}}}}}}));
    EXPECT_THAT(defectsIn(report), ElementsAre("Orchard de missing c", "Orchard ja identical a",
                                               "Orchard ja missing b", "Orchard ja missing c"));
}

TEST_F(TranslationsTest, ReportsRenamedPages) {
    const json::object entity{{"refentity", json::array{{{"name", "graft"}}}}};
    addResource("Orchard", ResourceText("o").add(itemWith("new.html", "Join", entity)).str());
    addResource("Orchard_de",
                ResourceText("o").add(itemWith("alt.html", "Verbinden", entity)).str());
    EXPECT_THAT(defects({"--langs", "en,de"}),
                ElementsAre("Orchard de missing new.html", "Orchard de orphaned alt.html",
                            "Orchard de renamed alt.html new.html"));
}

TEST_F(TranslationsTest, ReportsTheFieldsThatAreOutOfStep) {
    const auto inputs = [](const json::array& names) {
        json::array list;
        for (const json::value& name : names)
            list.push_back({{"name", name}, {"purpose", "p"}});
        return json::object{{"inputs", list}};
    };
    addResource("Orchard", ResourceText("o").add(itemWith("a", "Join", inputs({"x", "y"}))).str());
    addResource("Orchard_de",
                ResourceText("o").add(itemWith("a", "Verbinden", inputs({"x"}))).str());
    EXPECT_THAT(defects({"--langs", "en,de"}), ElementsAre("Orchard de outOfStep a inputs"));
}

TEST_F(TranslationsTest, ReportsSectionsOfSupportPackages) {
    addResource(
        "Orchard",
        ResourceText("o").addSupportPackage(ResourceText("kit").add(item("k", "Tool"))).str());
    addResource(
        "Orchard_de",
        ResourceText("o").addSupportPackage(ResourceText("kit").add(item("l", "Werkzeug"))).str());
    EXPECT_THAT(defects({"--langs", "en,de"}),
                ElementsAre("Orchard de missing k", "Orchard de orphaned l"));
}

TEST_F(TranslationsTest, ReportsProductsOfTheSupportPackageFolder) {
    const std::string folder = "packages/help/docCatalog/referenceapi/";
    add(folder + "Kit.json", resourceText("k", {{"a", "Tool"}, {"b", "Box"}}));
    add(folder + "Kit_de.json", resourceText("k", {{"a", "Werkzeug"}}));
    EXPECT_THAT(defects({"--langs", "en,de"}), ElementsAre("Kit de missing b"));
}

TEST_F(TranslationsTest, IgnoresATranslationThatTheLibraryNeverReads) {
    addResource("Kit", resourceText("k", {{"a", "Tool"}}));
    add("packages/help/docCatalog/referenceapi/Kit_de.json",
        resourceText("k", {{"a", "Werkzeug"}}));
    EXPECT_THAT(defects({"--langs", "en,de"}), ElementsAre("Kit de missing a"));
}

TEST_F(TranslationsTest, TranslationThatEqualsEnglishHasNothingTranslated) {
    const std::string text = resourceText("o", {{"a", "Join"}, {"b", "Cut"}});
    addResource("Orchard", text);
    addResource("Orchard_de", text);
    EXPECT_THAT(defects({"--langs", "en,de"}),
                ElementsAre("Orchard de identical a", "Orchard de identical b"));
}

TEST_F(TranslationsTest, ComparesPlainLookupFiles) {
    addLookup("Orchard",
              lookupText("o", {lookupItem("graft", "a", "Join"), lookupItem("prune", "b", "Cut"),
                               lookupItem("water", "c", "Water")}));
    json::object deprecated = lookupItem("graft", "a", "Verbinden");
    deprecated["deprecated"] = true;
    addLookup("Orchard_de", lookupText("o", {deprecated, lookupItem("prune", "b", "Cut"),
                                             lookupItem("old", "z", "Alt")}));
    EXPECT_THAT(defects({"--langs", "en,de"}),
                ElementsAre("Orchard de lookup identical prune b",
                            "Orchard de lookup missing water c", "Orchard de lookup orphaned old z",
                            "Orchard de lookup outOfStep graft a deprecated"));
}

TEST_F(TranslationsTest, ComparesLookupFilesInPackages) {
    const std::string english =
        lookupText("o", {lookupItem("graft", "a", "Join"), lookupItem("prune", "b", "Cut")});
    addPackage("All",
               {{"in/Orchard.json", english},
                {"in/Orchard_de.json", lookupText("o", {lookupItem("graft", "a", "Verbinden")})}});
    addPackage("Cellar", {{"Cellar.json", lookupText("c", {lookupItem("rack", "r", "Rack")})}});
    addPackage("Cellar_de",
               {{"Cellar_de.json", lookupText("c", {lookupItem("rack", "r", "Rack")})}});
    EXPECT_THAT(defects({"--langs", "en,de"}), ElementsAre("Cellar de lookup identical rack r",
                                                           "Orchard de lookup missing prune b"));
}

TEST_F(TranslationsTest, ComparesLookupSectionsOfSupportPackages) {
    addLookup("Orchard",
              ResourceText("o")
                  .addSupportPackage(ResourceText("kit").add(lookupItem("k", "k", "Tool")))
                  .str());
    EXPECT_THAT(defects({"--langs", "en,de"}), ElementsAre("Orchard de lookup missing k k"));
}

TEST_F(TranslationsTest, ReportsRecordsThatTheMergeDrops) {
    addLookup("Orchard", lookupText("o", {lookupItem("graft", "a", "Join")}));
    addPackage("More", {{"Orchard_de.json", lookupText("o", {lookupItem("graft", "b", "Alt")})},
                        {"Orchard.json", lookupText("o", {})}});
    addLookup("Orchard_de", lookupText("o", {lookupItem("graft", "a", "Verbinden")}));
    EXPECT_THAT(defects({"--langs", "en,de"}), ElementsAre("Orchard de lookup dropped graft b"));
}

TEST_F(TranslationsTest, ReportsRecordsOfSectionsThatAreDropped) {
    addLookup("Orchard", lookupText("o", {lookupItem("graft", "a", "Join")}));
    addLookup(
        "Orchard_de",
        ResourceText("o")
            .add(lookupItem("graft", "a", "Verbinden"))
            .addSupportPackage(
                ResourceText("kit").set("baseCode", "o").add(lookupItem("prune", "b", "Schneiden")))
            .str());
    EXPECT_THAT(defects({"--langs", "en,de"}), ElementsAre("Orchard de lookup dropped prune b"));
}

TEST_F(TranslationsTest, ProductWithoutEnglishFileIsOrphaned) {
    addResource("Orchard_de", resourceText("o", {{"a", "Verbinden"}}));
    const json::value report = document(run({"translations", "--json"}).out);
    EXPECT_EQ(report.at("products").at(0).at("hasEnglish"), json::value(false));
    EXPECT_THAT(defectsIn(report), ElementsAre("Orchard de orphaned a"));
    EXPECT_THAT(run({"translations"}).out, testing::HasSubstr("no English file"));
}

TEST_F(TranslationsTest, OnlyTheNamedProductsAreCompared) {
    for (const char* product : {"Cellar", "Kit", "Orchard"})
        addResource(product, resourceText(product, {{"a", "Join"}}));
    EXPECT_THAT(defects({"--langs", "en,de", "Orchard", "Cellar"}),
                ElementsAre("Cellar de missing a", "Orchard de missing a"));
}

TEST_F(TranslationsTest, LanguageOfTheOptionIsCompared) {
    addResource("Orchard", resourceText("o", {{"a", "Join"}}));
    addResource("Orchard_fr", resourceText("o", {{"a", "Joindre"}}));
    const json::value report =
        document(run({"translations", "--json", "--langs", "en", "--lang", "fr"}).out);
    EXPECT_THAT(defectsIn(report), IsEmpty());
    EXPECT_EQ(report.at("languages").at("fr").at("share"), json::value(100));
}

} // namespace
} // namespace refdoc_tests
