#include "tests/support/NativeText.hpp"
#include "tests/support/PosixTest.hpp"
#include "tests/system/refdoc/RefdocTest.hpp"

#include <boost/json/array.hpp>
#include <boost/json/object.hpp>
#include <boost/json/serialize.hpp>

#include <algorithm>

namespace refdoc_tests {
namespace {

using docparser_tests::native;

using testing::HasSubstr;
using testing::Not;
using testing::UnorderedElementsAreArray;

class ProductsTest : public RefdocTest {
protected:
    ProductsTest() {
        addManifest(R"({"docLanguage": "de", "supportedDocLanguages": ["en", "de", "ja"],
            "topLevelProducts": [{"shortName": "orchard", "displayName": "Obstgarten",
                                  "helpLocation": "help/or"},
                                 {"shortName": "cellar"}],
            "supportPackageRoot": "packages", "hardwareSupportPackages": ["kit", "gauge"]})");
        for (const char* file : {"Orchard.json", "Orchard_de.json", "Orchard_ja.json", "Cellar.zip",
                                 "Cellar_de.zip", "Cellar_ja.zip", "notes.txt"})
            add(std::string("help/docCatalog/referenceapi_lookup/") + file, "");
        addResource("Orchard", "");
        add("packages/help/docCatalog/referenceapi/Kit_de.json", "");
    }

    // Returns the elements of a list of files in the order of their names, because the order of a
    // folder is arbitrary.
    static std::string sorted(const boost::json::value& files) {
        std::vector<std::string> texts;
        for (const boost::json::value& file : files.as_array())
            texts.push_back(boost::json::serialize(file));
        std::ranges::sort(texts);
        std::string joined;
        for (const std::string& text : texts)
            joined += text + "\n";
        return joined;
    }

    // The entry of a product without a usable file.
    static boost::json::value unusable(const std::string& product) {
        return {{"product", product},
                {"languages", boost::json::array()},
                {"items", 0},
                {"translations", boost::json::object()}};
    }

    std::string file(const std::string& name, bool isTranslation,
                     const std::string& fileName) const {
        return boost::json::serialize(boost::json::object{
                   {"name", name},
                   {"nonEnglishLocale", isTranslation},
                   {"fullPath", path("help/docCatalog/referenceapi_lookup/" + fileName)}}) +
               "\n";
    }
};

TEST_F(ProductsTest, JsonListsRootsLanguagesFilesAndInstalledProducts) {
    const Outcome outcome = run({"products", "--json"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    boost::json::value products = document(outcome.out);
    EXPECT_EQ(sorted(products.at("jsonProducts")),
              file("Orchard", false, "Orchard.json") + file("Orchard_de", true, "Orchard_de.json"));
    EXPECT_EQ(sorted(products.at("zipProducts")),
              file("Cellar", false, "Cellar.zip") + file("Cellar_de", true, "Cellar_de.zip"));
    products.as_object()["jsonProducts"] = "compared above";
    products.as_object()["zipProducts"] = "compared above";
    const boost::json::value expected{
        {"roots",
         {{"root", path("help")},
          {"lookupFolder", path("help/docCatalog/referenceapi_lookup")},
          {"referenceApiFolder", path("help/docCatalog/referenceapi")},
          {"supportPackageFolder", path("packages/help/docCatalog/referenceapi")}}},
        {"language", "de"},
        {"localeSuffixes", {"_de", "_ja"}},
        {"jsonProducts", "compared above"},
        {"zipProducts", "compared above"},
        {"topLevelProducts", {"orchard", "cellar"}},
        {"supportPackages", {"gauge", "kit"}},
        {"installFolder", path()},
        {"origins",
         {{"installFolder", "option --install"},
          {"root", "option --install"},
          {"language", "default"}}},
        {"products", {unusable("Kit"), unusable("Orchard")}},
        {"undocumented", {"cellar", "gauge", "kit", "orchard"}}};
    EXPECT_EQ(boost::json::serialize(products), boost::json::serialize(expected));
}

TEST_F(ProductsTest, JsonOfAnEmptyInstallation) {
    EXPECT_EQ(runProgram({"--install", "i", "--root", "r", "--support-folder", "s", "--installed",
                          "", "--langs", "en", "--lang", "en", "products", "--json"})
                  .out,
              R"({
  "roots": {
    "root": "r",
    "lookupFolder": )" +
                  boost::json::serialize("r" + native("/docCatalog/referenceapi_lookup")) + R"(,
    "referenceApiFolder": )" +
                  boost::json::serialize("r" + native("/docCatalog/referenceapi")) + R"(,
    "supportPackageFolder": "s"
  },
  "language": "en",
  "localeSuffixes": [],
  "jsonProducts": [],
  "zipProducts": [],
  "topLevelProducts": [],
  "supportPackages": [],
  "installFolder": "i",
  "origins": {
    "installFolder": "option --install",
    "root": "option --root",
    "language": "option --lang"
  },
  "products": [],
  "undocumented": []
}
)");
}

TEST_F(ProductsTest, LinesHaveTheFilesOfEachPlace) {
    struct Line {
        std::string product, place, language;
        bool isPackage;
        std::string file;
    };
    const std::string lookups = "help/docCatalog/referenceapi_lookup/";
    std::vector<std::string> expectedJson, expectedPlain;
    for (const Line& line : {
             Line{"Orchard", "referenceApi", "en", false,
                  "help/docCatalog/referenceapi/Orchard.json"},
             Line{"Kit", "supportPackages", "de", false,
                  "packages/help/docCatalog/referenceapi/Kit_de.json"},
             Line{"Orchard", "lookup", "en", false, lookups + "Orchard.json"},
             Line{"Orchard", "lookup", "de", false, lookups + "Orchard_de.json"},
             Line{"Cellar", "lookup", "en", true, lookups + "Cellar.zip"},
             Line{"Cellar", "lookup", "de", true, lookups + "Cellar_de.zip"},
         }) {
        expectedJson.push_back(
            boost::json::serialize(boost::json::object{{"product", line.product},
                                                       {"place", line.place},
                                                       {"language", line.language},
                                                       {"package", line.isPackage},
                                                       {"fullPath", path(line.file)}}));
        expectedPlain.push_back(line.product + '\t' + line.place + '\t' + line.language +
                                (line.isPackage ? "\tyes\t" : "\tno\t") + path(line.file));
    }
    EXPECT_THAT(linesOf(run({"products", "--jsonl"}).out), UnorderedElementsAreArray(expectedJson));
    EXPECT_THAT(linesOf(run({"products", "--plain"}).out),
                UnorderedElementsAreArray(expectedPlain));
}

TEST_F(ProductsTest, TextHasTheContentOfTheJsonInTables) {
    const std::string help = path("help");
    const std::string lookup = help + native("/docCatalog/referenceapi_lookup");
    const std::string packages = path("packages/help/docCatalog/referenceapi");
    EXPECT_EQ(run({"products"}).out, "Folders\n"
                                     "-------\n"
                                     "install folder       " +
                                         path() +
                                         "\n"
                                         "reference root       " +
                                         help +
                                         "\n"
                                         "full resource files  " +
                                         help + native("/docCatalog/referenceapi") +
                                         "\n"
                                         "support packages     " +
                                         packages +
                                         "\n"
                                         "lookup files         " +
                                         lookup +
                                         "\n"
                                         "\n"
                                         "Languages\n"
                                         "---------\n"
                                         "current          de\n"
                                         "besides English  de, ja\n"
                                         "\n"
                                         "Origins\n"
                                         "-------\n"
                                         "install folder  option --install\n"
                                         "reference root  option --install\n"
                                         "language        default\n"
                                         "\n"
                                         "Products\n"
                                         "--------\n"
                                         "Product  Items  Remark\n"
                                         "Kit      0      no usable file\n"
                                         "Orchard  0      no usable file\n"
                                         "\n"
                                         "Full resource files\n"
                                         "-------------------\n"
                                         "Name     Language  File\n"
                                         "Orchard  en        " +
                                         help + native("/docCatalog/referenceapi/Orchard.json") +
                                         "\n"
                                         "\n"
                                         "Full resource files of support packages\n"
                                         "---------------------------------------\n"
                                         "Name    Language  File\n"
                                         "Kit_de  de        " +
                                         packages + native("/Kit_de.json") +
                                         "\n"
                                         "\n"
                                         "Lookup files\n"
                                         "------------\n"
                                         "Name        Language  Kind         File\n"
                                         "Orchard     en        plain file   " +
                                         lookup + native("/Orchard.json") +
                                         "\n"
                                         "Orchard_de  de        plain file   " +
                                         lookup + native("/Orchard_de.json") +
                                         "\n"
                                         "Cellar      en        zip package  " +
                                         lookup + native("/Cellar.zip") +
                                         "\n"
                                         "Cellar_de   de        zip package  " +
                                         lookup + native("/Cellar_de.zip") +
                                         "\n"
                                         "\n"
                                         "Installed products\n"
                                         "------------------\n"
                                         "Name     Display name  Help location  Remark\n"
                                         "orchard  Obstgarten    help/or        no documentation\n"
                                         "cellar                                no documentation\n"
                                         "\n"
                                         "Installed support packages\n"
                                         "--------------------------\n"
                                         "gauge  no documentation\n"
                                         "kit    no documentation\n");
}

TEST_F(ProductsTest, TextSaysNoneForEmptyLists) {
    const std::string out =
        runProgram({"--root", "r", "--support-folder", "s", "--installed", "", "products"}).out;
    EXPECT_THAT(out, HasSubstr("Lookup files\n------------\nnone found\n"));
    EXPECT_THAT(out, HasSubstr("Full resource files\n-------------------\nnone found\n"));
    EXPECT_THAT(out, HasSubstr("Installed products\n------------------\nnone\n"));
    EXPECT_THAT(out, HasSubstr("Installed support packages\n--------------------------\nnone\n"));
}

class InventoryTest : public RefdocTest {
protected:
    static constexpr const char* kPrune = R"({"href": "prune.html", "refpurpose": "Cut"})";
    static constexpr const char* kGraft = R"({"href": "graft.html", "refpurpose": "Join"})";

    static std::string both() { return std::string(kPrune) + "," + kGraft; }

    // The element of "products" for the only product.
    std::string inventory(std::vector<std::string> arguments) const {
        arguments.insert(arguments.end(), {"products", "--json"});
        const boost::json::value products = document(run(arguments).out);
        EXPECT_EQ(products.at("products").as_array().size(), 1U);
        return boost::json::serialize(products.at_pointer("/products/0"));
    }

    std::string undocumented(std::vector<std::string> arguments) const {
        arguments.insert(arguments.end(), {"products", "--json"});
        return boost::json::serialize(document(run(arguments).out).at("undocumented"));
    }
};

TEST_F(InventoryTest, CountsRecordsAndTranslationsWhateverTheLanguage) {
    addResource("P",
                section("p", both(), R"(, "supportPackages": [)" + section("kit", kPrune) + "]"));
    addResource("P_ja", section("p", kPrune));
    addResource("P_de", section("p", both()));
    for (const char* language : {"en", "de", "ja", "fr"})
        EXPECT_EQ(inventory({"--langs", "en,ja,de", "--lang", language}),
                  R"({"product":"P","languages":["en","de","ja"],"items":3,)"
                  R"("translations":{"de":2,"ja":1}})")
            << language;
    EXPECT_THAT(run({"--langs", "en,ja,de", "products"}).out,
                HasSubstr("Product  Items  Translations\n"
                          "P        3      de 2, ja 1\n"));
}

TEST_F(InventoryTest, ProductMayHaveOnlyATranslation) {
    addResource("P_de", section("p", kPrune));
    EXPECT_EQ(inventory({"--langs", "en,de"}),
              R"({"product":"P","languages":["de"],"items":0,"translations":{"de":1}})");
}

TEST_F(InventoryTest, UnusableFilesDoNotCount) {
    addResource("P", section("p", kPrune));
    addResource("P_de", "{");
    EXPECT_EQ(inventory({"--langs", "en,de"}),
              R"({"product":"P","languages":["en"],"items":1,"translations":{}})");
}

TEST_F(InventoryTest, TranslationsCountOnlyIfTheyAreUsed) {
    const std::vector<std::string> options{"--support-folder", path("support"), "--langs", "en,de"};
    add("support/P_de.json", section("p", kPrune));
    EXPECT_EQ(inventory(options),
              R"({"product":"P","languages":["de"],"items":0,"translations":{"de":1}})");
    add("support/P.json", section("p", both()));
    EXPECT_EQ(inventory(options),
              R"({"product":"P","languages":["en","de"],"items":2,"translations":{"de":1}})");
    addResource("P", section("p", kPrune));
    EXPECT_EQ(inventory(options),
              R"({"product":"P","languages":["en"],"items":1,"translations":{}})");
}

TEST_F(InventoryTest, InstalledProductsWithoutAnySectionHaveNoDocumentation) {
    addResource("Full", section("full", kPrune));
    addResource("German_de", section("german", kPrune));
    addLookup("Index_ja",
              section("index", R"({"name": "a", "href": "a.html", "refpurpose": "b"})"));
    const std::vector<std::string> options{
        "--langs", "en,de,ja", "--installed", "none,full,german,index", "--support-packages",
        "kit"};
    EXPECT_EQ(undocumented(options), R"(["kit","none"])");
    std::vector<std::string> text = options;
    text.push_back("products");
    EXPECT_THAT(run(text).out, HasSubstr("\nnone    testDisplayName  testHelpLocation  no "
                                         "documentation\n"
                                         "full    testDisplayName  testHelpLocation\n"));
}

POSIX_TEST_F(ProductsTest, ReplacesInvalidUtf8InFileNames) {
    add("help/docCatalog/referenceapi_lookup/a\xff\x1b.json", "");
    EXPECT_THAT(run({"products"}).out, HasSubstr("a\xef\xbf\xbd␛  "));
    const Outcome json = run({"products", "--json"});
    EXPECT_THAT(json.out, HasSubstr("\"name\": \"a\xef\xbf\xbd\\u001b\""));
    EXPECT_THAT(json.out, Not(HasSubstr("\xff")));
}

} // namespace
} // namespace refdoc_tests
