#include "tests/support/NativeText.hpp"
#include "tests/support/Schema.hpp"
#include "tests/system/refdoc/translations/TranslationsTest.hpp"

#include <boost/json/array.hpp>
#include <boost/json/object.hpp>
#include <boost/json/serialize.hpp>

namespace refdoc_tests {
namespace {

namespace json = boost::json;
using docparser_tests::item;
using docparser_tests::lookupItem;
using docparser_tests::native;
using docparser_tests::ResourceText;
using docparser_tests::resourceText;
using docparser_tests::Schema;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class TranslationsFormatsTest : public TranslationsTest {
protected:
    // Two products in German, with defects of several classes.
    void addProducts() const {
        addResource("Cellar", resourceText("c", {{"r", "Rack"}}));
        addResource("Cellar_de", resourceText("c", {{"r", "Rack"}}));
        addResource("Orchard", "{\"productName\": \"o\", \"baseCode\": \"o\", \"helpFolder\": "
                               "\"o\", \"helpLocation\": \"o\", \"refItems\": [\n"
                               "{\"href\": \"a\", \"refpurpose\": \"Join\"},\n"
                               "{\"href\": \"b\", \"refpurpose\": \"Cut\", \"outputs\": "
                               "[{\"name\": \"x\", \"purpose\": \"p\"}]},\n"
                               "{\"href\": \"new.html\", \"refpurpose\": \"Water\"}]}");
        addResource("Orchard_de",
                    resourceText(
                        "o", {{"a", "Verbinden"}, {"b", "Schneiden"}, {"old/new.html", "Gießen"}}));
        addLookup("Orchard", ResourceText("o").add(lookupItem("graft", "a", "Join")).str());
    }

    std::string positionOf(const std::string& file, const std::string& place) const {
        return path("help") + native("/docCatalog/" + file) + ":" + place;
    }

    Outcome translations(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), {"translations", "--langs", "en,de"});
        return run(arguments);
    }
};

TEST_F(TranslationsFormatsTest, TextHasATableOfItemsAndOneOfLookupEntries) {
    addProducts();
    EXPECT_EQ(translations({}),
              (Outcome{0,
                       "Items\n"
                       "-----\n"
                       "Product       Language  Translated          English  Missing  Orphaned  "
                       "Identical  Out of step\n"
                       "Cellar        de        ..........   0.0 %  1        0        0         1"
                       "          0\n"
                       "Orchard       de        ######....  66.6 %  3        1        1         0"
                       "          1\n"
                       "all products  de        #####.....  50.0 %  4        1        1         1"
                       "          1\n"
                       "\n"
                       "Lookup entries\n"
                       "--------------\n"
                       "Product       Language  Translated          English  Missing  Orphaned  "
                       "Identical  Out of step  Dropped\n"
                       "Orchard       de        ..........   0.0 %  1        1        0         0"
                       "          0            0\n"
                       "all products  de        ..........   0.0 %  1        1        0         0"
                       "          0            0\n",
                       ""}));
}

TEST_F(TranslationsFormatsTest, DetailsListTheItemsWithTheirPositions) {
    addProducts();
    const std::string text = translations({"--details", "Orchard"}).out;
    EXPECT_THAT(text, HasSubstr("\nOrchard, de\n"
                                "missing      new.html                             " +
                                positionOf("referenceapi/Orchard.json", "4:1") + "\n"));
    EXPECT_THAT(text, HasSubstr("orphaned     old/new.html  now probably new.html  " +
                                positionOf("referenceapi/Orchard_de.json", "1:")));
    EXPECT_THAT(text, HasSubstr("out of step  b             outputs                " +
                                positionOf("referenceapi/Orchard_de.json", "1:")));
    EXPECT_THAT(text, HasSubstr("missing  graft  a  " +
                                positionOf("referenceapi_lookup/Orchard.json", "1:")));
}

TEST_F(TranslationsFormatsTest, PositionOfAPackageEntryNamesBoth) {
    addPackage("All", {{"in/Orchard.json",
                        ResourceText("o").add(lookupItem("graft", "a", "Join")).str()}});
    EXPECT_THAT(translations({"--details"}).out,
                HasSubstr(native("/referenceapi_lookup/All.zip!") + "in/Orchard.json:1:"));
}

TEST_F(TranslationsFormatsTest, CsvHasARowForEachProductAndLanguage) {
    addProducts();
    EXPECT_EQ(translations({"--csv"}).out,
              "product,language,list,english,translated,share,missing,orphaned,identical,outOfStep,"
              "dropped\n"
              "Cellar,de,items,1,0,0.0,0,0,1,0,0\n"
              "Orchard,de,items,3,2,66.6,1,1,0,1,0\n"
              "Orchard,de,lookup,1,0,0.0,1,0,0,0,0\n");
}

TEST_F(TranslationsFormatsTest, CsvQuotesFieldsAndShowsControlCharacters) {
    addResource("Orchard", resourceText("o", {{"a,\"b\"\n\x1b", "Join"}}));
    EXPECT_THAT(translations({"--csv", "--details"}).out,
                StartsWith("product,language,list,class,section,name,href,fields,likelyName,"
                           "likelyHref,path,entry,line,column\n"
                           "Orchard,de,items,missing,o,,\"a,\"\"b\"\"␊␛\",,,,"));
}

TEST_F(TranslationsFormatsTest, MarkdownHasTotalsAndIncompleteProducts) {
    addProducts();
    addResource("Whole", resourceText("w", {{"a", "Join"}}));
    addResource("Whole_de", resourceText("w", {{"a", "Verbinden"}}));
    EXPECT_EQ(
        translations({"--markdown"}).out,
        "## Translations\n"
        "\n"
        "| Language | of | translated | English | missing | orphaned | identical | out of step | "
        "dropped |\n"
        "| --- | --- | ---: | ---: | ---: | ---: | ---: | ---: | ---: |\n"
        "| `de` | items | 60.0 % | 5 | 1 | 1 | 1 | 1 | 0 |\n"
        "| `de` | lookup entries | 0.0 % | 1 | 1 | 0 | 0 | 0 | 0 |\n"
        "\n"
        "| Product | Language | of | translated | English | missing | orphaned | identical | out "
        "of step | dropped |\n"
        "| --- | --- | --- | ---: | ---: | ---: | ---: | ---: | ---: | ---: |\n"
        "| `Cellar` | `de` | items | 0.0 % | 1 | 0 | 0 | 1 | 0 | 0 |\n"
        "| `Orchard` | `de` | items | 66.6 % | 3 | 1 | 1 | 0 | 1 | 0 |\n"
        "| `Orchard` | `de` | lookup entries | 0.0 % | 1 | 1 | 0 | 0 | 0 | 0 |\n");
}

TEST_F(TranslationsFormatsTest, MarkdownOfHostileStringsIsCode) {
    addResource("Orchard", resourceText("o", {{"``a|b` <img> @all\n# x", "Join"}, {"`", "Cut"}}));
    const std::string text = translations({"--markdown", "--details"}).out;
    EXPECT_THAT(text, HasSubstr("\n- missing ``` ``a|b` <img> @all␊# x ```, `"));
    EXPECT_THAT(text, HasSubstr("\n- missing `` ` ``, `"));
}

TEST_F(TranslationsFormatsTest, JsonHasTheSchema) {
    addProducts();
    addResource("Broken", resourceText("b", {{"a", "Join"}}));
    addResource("Broken_de", "{");
    addLookup("Orchard_de", ResourceText("o").add(lookupItem("alt", "a", "Alt")).str());
    const std::string file = "refdoc-output.schema.json";
    for (const std::vector<std::string>& more : {std::vector<std::string>(), {"--details"}}) {
        std::vector<std::string> arguments{"--json"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        EXPECT_EQ(Schema(file, "translations").problemsOf(document(translations(arguments).out)),
                  "");
        arguments.front() = "--jsonl";
        const std::vector<json::value> lines = documents(translations(arguments).out);
        EXPECT_EQ(lines.size(), 3U);
        for (const json::value& line : lines)
            EXPECT_EQ(Schema(file, "translationsLine").problemsOf(line), "");
    }
}

TEST_F(TranslationsFormatsTest, DetailsOfTheJsonHavePositions) {
    addProducts();
    const json::value report = document(translations({"--json", "--details", "Cellar"}).out);
    const json::value& details = report.at("products").at(0).at("languages").at("de").at("details");
    EXPECT_EQ(details.at(0).at("class"), json::value("identical"));
    EXPECT_EQ(details.at(0).at("href"), json::value("r"));
    EXPECT_EQ(details.at(0).at("path"),
              json::value(path("help") + native("/docCatalog/referenceapi/Cellar_de.json")));
    EXPECT_EQ(details.at(0).at("line"), json::value(1));
}

TEST_F(TranslationsFormatsTest, LanguageBelowTheLimitIsStatus1) {
    addProducts();
    EXPECT_EQ(translations({"--fail-under", "0"}).status, 0);
    const Outcome outcome = translations({"--fail-under", "51"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "refdoc: \"de\": 50.0 % of the items are translated, less than 51 %\n"
                           "refdoc: \"de\": 0.0 % of the lookup entries are translated, less than "
                           "51 %\n");
    addLookup("Orchard_de", ResourceText("o").add(lookupItem("graft", "a", "Verbinden")).str());
    EXPECT_EQ(translations({"--fail-under", "50"}).status, 0);
}

TEST_F(TranslationsFormatsTest, LimitMustBeAPercentage) {
    for (const char* limit : {"101", "-1", "", "95%", "many"}) {
        const Outcome outcome = translations({"--fail-under", limit});
        EXPECT_EQ(outcome.status, 2);
        EXPECT_THAT(outcome.err, StartsWith("refdoc: --fail-under must be a number from 0 to 100, "
                                            "not \"" +
                                            std::string(limit) + "\""));
    }
}

TEST_F(TranslationsFormatsTest, ProductThatDoesNotExistIsStatus1) {
    addProducts();
    const Outcome outcome = translations({"Cellar", "Orchrd"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.out, HasSubstr("Cellar"));
    EXPECT_THAT(outcome.err, StartsWith("refdoc: no resources for \"Orchrd\"; tried "));
    EXPECT_THAT(outcome.err, EndsWith("; did you mean \"Orchard\"?\n"));
}

TEST_F(TranslationsFormatsTest, EnglishAloneIsStatus3) {
    addProducts();
    EXPECT_EQ(run({"translations", "--langs", "en"}),
              (Outcome{3, "",
                       "refdoc: English is the only supported language; --langs names others, and "
                       "--langs auto takes them from the names of the files\n"}));
}

TEST_F(TranslationsFormatsTest, FormatsExcludeEachOther) {
    EXPECT_EQ(translations({"--csv", "--markdown"}).status, 2);
    EXPECT_EQ(translations({"--json", "--csv"}).status, 2);
}

TEST_F(TranslationsFormatsTest, DamagedTranslationIsMissingWithAComplaint) {
    addResource("Orchard", resourceText("o", {{"a", "Join"}}));
    addResource("Orchard_de", "{\n  1}");
    addLookup("Orchard_de", "[");
    const Outcome outcome = translations({"--json"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.err,
                HasSubstr(native("/referenceapi/Orchard_de.json") + ":2:3: malformed: "));
    EXPECT_THAT(outcome.err,
                HasSubstr(native("/referenceapi_lookup/Orchard_de.json") + ":1:2: malformed: "));
    EXPECT_THAT(outcome.err, HasSubstr("; what it documents counts as missing\n"));
    const json::value report = document(outcome.out);
    EXPECT_THAT(defectsIn(report), testing::ElementsAre("Orchard de missing a"));
    EXPECT_EQ(report.at("damaged").as_array().size(), 2U);
}

TEST_F(TranslationsFormatsTest, DamagedPackageIsNamed) {
    add("help/docCatalog/referenceapi_lookup/Orchard_de.zip", "not a package");
    const Outcome outcome = translations({});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.err, HasSubstr(native("/referenceapi_lookup/Orchard_de.zip") + ": "));
}

TEST_F(TranslationsFormatsTest, DamagedEnglishFileIsReportedOnce) {
    addResource("Orchard", "{");
    addResource("Orchard_de", resourceText("o", {{"a", "Verbinden"}}));
    const Outcome outcome = run({"translations", "--json"});
    EXPECT_EQ(document(outcome.out).at("damaged").as_array().size(), 1U);
    EXPECT_EQ(document(outcome.out).at("damaged").at(0).at("language"), json::value("en"));
}

TEST_F(TranslationsFormatsTest, EmptyRootHasAnEmptyReport) {
    EXPECT_EQ(translations({}), (Outcome{0, "", ""}));
    EXPECT_EQ(document(translations({"--json"}).out).at("products"), json::value(json::array()));
}

TEST_F(TranslationsFormatsTest, HostileStringsReachNoTerminal) {
    const std::string href = "\x1b]0;title\x07\xc2\x9b\xe2\x80\xae" + std::string(100'000, 'x');
    addResource("Orchard", resourceText("o", {{href, href}, {"", ""}}));
    addResource("Orchard_de", resourceText("\x1b[31m", {{href + "y", href}}));
    addLookup("Orchard", ResourceText("o").add(lookupItem(href, href, href)).str());
    for (const char* format : {"--csv", "--markdown", "--json", "--jsonl", "--color=never"}) {
        const Outcome outcome = translations({format, "--details"});
        EXPECT_EQ(outcome.status, 0) << format;
        EXPECT_THAT(outcome.out + outcome.err, Not(HasSubstr("\x1b"))) << format;
        EXPECT_THAT(outcome.out + outcome.err, Not(HasSubstr("\xc2\x9b"))) << format;
    }
}

} // namespace
} // namespace refdoc_tests
