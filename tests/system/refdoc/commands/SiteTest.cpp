#include "tests/support/Schema.hpp"
#include "tests/system/refdoc/RefdocTest.hpp"

#include <boost/algorithm/string/replace.hpp>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace refdoc_tests {
namespace {

namespace fs = std::filesystem;

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

std::string contentOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

// The paths of all files below a folder.
std::set<std::string> filesIn(const fs::path& folder) {
    std::set<std::string> files;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
        if (!entry.is_directory())
            files.insert(entry.path().lexically_relative(folder).generic_string());
    }
    return files;
}

// The values of an attribute in a page.
std::vector<std::string> valuesOf(const std::string& attribute, const std::string& page) {
    const std::regex pattern(' ' + attribute + "=\"([^\"]*)\"");
    std::vector<std::string> values;
    for (std::sregex_iterator match(page.begin(), page.end(), pattern), end; match != end; ++match)
        values.push_back((*match)[1]);
    return values;
}

// Without percent-encoding.
std::string decoded(const std::string& text) {
    std::string result;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '%') {
            result += static_cast<char>(std::stoi(text.substr(at + 1, 2), nullptr, 16));
            at += 2;
        } else {
            result += text[at];
        }
    }
    return result;
}

// The links of all pages that lead to no file or anchor of the site: "PAGE: LINK".
std::vector<std::string> brokenLinks(const fs::path& site) {
    std::vector<std::string> broken;
    for (const std::string& name : filesIn(site)) {
        if (!name.ends_with(".html"))
            continue;
        const std::string page = contentOf(site / name);
        for (const std::string& link : valuesOf("(?:href|src)", page)) {
            if (link.starts_with("https://"))
                continue;
            const std::string path = decoded(link.substr(0, link.find('#')));
            const fs::path target = path.empty() ? site / name : (site / name).parent_path() / path;
            const std::string anchor =
                link.find('#') == link.npos ? "" : decoded(link.substr(link.find('#') + 1));
            if (!fs::is_regular_file(target) ||
                (!anchor.empty() &&
                 contentOf(target).find(" id=\"" + anchor + '"') == std::string::npos))
                broken.push_back(name + ": " + link);
        }
    }
    return broken;
}

class SiteTest : public RefdocTest {
protected:
    Outcome site(std::vector<std::string> options = {}) const {
        options.insert(options.begin(), {"site", path("out")});
        return run(options);
    }

    std::string page(const std::string& below) const { return contentOf(path("out/" + below)); }
};

// Two products, the first with a translation that lacks "b.html" and has "c.html" alone.
class TwoProductsTest : public SiteTest {
protected:
    TwoProductsTest() {
        addManifest(R"({"supportedDocLanguages": ["en", "de"],
                        "topLevelProducts": [{"shortName": "cellar"}]})");
        addResource("Orchard", section("orchard",
                                       R"({"href": "ref/a.html", "refpurpose": "Join trees"},
                                          {"href": "b.html", "refpurpose": "Cut trees"})"));
        addResource("Orchard_de", section("orchard",
                                          R"({"href": "ref/a.html", "refpurpose": "Verbinden"},
                                             {"href": "c.html", "refpurpose": "Neu"})"));
        addResource("Cellar", section("cellar", R"({"href": "a.html", "refpurpose": "Press"})"));
    }
};

TEST_F(TwoProductsTest, EachSectionAndItemHasAPageInEachLanguage) {
    EXPECT_EQ(
        site(),
        (Outcome{0, path("out/index.html") + ": 18 files written, 0 unchanged, 0 removed\n", ""}));
    EXPECT_THAT(filesIn(path("out")),
                ElementsAre(".refdoc-site", "cellar/a.html", "cellar/index.html",
                            "de/cellar/a.html", "de/cellar/index.html", "de/index.html",
                            "de/orchard/b.html", "de/orchard/c.html", "de/orchard/index.html",
                            "de/orchard/ref/a.html", "index.html", "orchard/b.html",
                            "orchard/index.html", "orchard/ref/a.html", "refdoc-site/icon.svg",
                            "refdoc-site/script.js", "refdoc-site/search/de/start.js",
                            "refdoc-site/search/en/start.js", "refdoc-site/style.css"));
    EXPECT_THAT(brokenLinks(path("out")), IsEmpty());
}

TEST_F(TwoProductsTest, StartPageListsInstalledProductsFirst) {
    site();
    EXPECT_THAT(page("index.html"),
                HasSubstr("<h2>Installed</h2><table><thead><tr><th scope=\"col\">Product</th>"
                          "<th scope=\"col\">Items</th><th scope=\"col\">Deprecated</th>"
                          "<th scope=\"col\">Languages</th></tr></thead><tbody>"
                          "<tr><th scope=\"row\"><a href=\"cellar/index.html\"><bdi>cellar name"
                          "</bdi></a></th><td>1</td><td>0</td><td>en</td></tr></tbody></table>"
                          "<h2>Not installed</h2>"));
    EXPECT_THAT(page("de/index.html"), HasSubstr("<td>3</td><td>0</td><td>en, de</td>"));
}

TEST_F(TwoProductsTest, LanguageLinksKeepThePlace) {
    site();
    EXPECT_THAT(page("orchard/ref/a.html"),
                HasSubstr("<span aria-current=\"true\">en</span>"
                          "<a href=\"../../de/orchard/ref/a.html\" hreflang=\"de\">de</a>"));
    EXPECT_THAT(page("de/orchard/c.html"),
                HasSubstr("<a href=\"../../orchard/index.html\" hreflang=\"en\">en</a>"
                          "<span aria-current=\"true\">de</span>"));
    EXPECT_THAT(page("de/index.html"),
                HasSubstr("<a href=\"../index.html\" hreflang=\"en\">en</a>"));
}

TEST_F(TwoProductsTest, RecordsThatAreNotTranslatedAreEnglishAndSaySo) {
    site();
    const std::string note = "<p class=\"note\">English: not translated into de</p>";
    EXPECT_THAT(page("de/orchard/b.html"), HasSubstr("<bdi>Cut trees</bdi>"));
    EXPECT_THAT(page("de/orchard/b.html"), HasSubstr(note));
    EXPECT_THAT(page("de/orchard/ref/a.html"), HasSubstr("<bdi lang=\"de\">Verbinden</bdi>"));
    EXPECT_THAT(page("de/orchard/ref/a.html"), Not(HasSubstr(note)));
    EXPECT_THAT(page("de/orchard/index.html"),
                HasSubstr("<bdi>Cut trees</bdi> <small class=\"mark\">English</small>"));
    EXPECT_THAT(page("orchard/b.html"), Not(HasSubstr("not translated")));
}

TEST_F(TwoProductsTest, RecordsTellWhereTheyComeFrom) {
    site();
    const std::string folder = path("help/docCatalog/referenceapi/");
    EXPECT_THAT(page("de/orchard/ref/a.html"),
                HasSubstr("<summary>Where this record comes from</summary><ul><li><code><bdi>" +
                          folder + "Orchard_de.json:1:"));
    EXPECT_THAT(page("de/orchard/ref/a.html"),
                HasSubstr("</bdi></code>: <bdi>Join trees</bdi> (<bdi>replaced: the translation "
                          "has the href, in Orchard_de.json</bdi>)</li>"));
}

TEST_F(TwoProductsTest, SearchIndexLeadsToThePagesOfEachLanguage) {
    addLookup("Orchard", section("orchard", R"({"name": "a", "href": "ref/a.html", "type": "class",
                                                "refpurpose": "<Join> trees"},
                                               {"name": "b", "href": "c.html", "refpurpose": "new",
                                                "deprecated": true},
                                               {"name": "c", "href": "d.html", "refpurpose": ""})"));
    addLookup("Cellar", section("cellar", R"({"name": "z", "href": "a.html",
                                              "refpurpose": "Press"})"));
    site();
    EXPECT_EQ(
        page("refdoc-site/search/en/row0.js"),
        R"(refdocIndex("row0", 270,[["z","a.html","Press","function","cellar name","cellar/a.html"],
["a","ref/a.html","<Join> trees","class","orchard name","orchard/ref/a.html"],
["c","d.html","","function","orchard name",""],
["b","c.html","new","function","orchard name",""]]);
)");
    EXPECT_THAT(page("refdoc-site/search/de/row0.js"),
                HasSubstr(R"(["b","c.html","new","function","orchard name","orchard/c.html"])"));
    EXPECT_THAT(page("de/orchard/ref/a.html"),
                HasSubstr("data-index=\"../../../refdoc-site/search/de/\" data-pages=\"../../\""));
}

TEST_F(TwoProductsTest, OnlyChangedFilesAreWrittenAgain) {
    site();
    EXPECT_EQ(site().out, path("out/index.html") + ": 0 files written, 18 unchanged, 0 removed\n");
    addResource("Cellar", section("cellar", R"({"href": "a.html", "refpurpose": "Press grapes"})"));
    fs::remove(path("help/docCatalog/referenceapi/Orchard_de.json"));
    EXPECT_EQ(site().out, path("out/index.html") + ": 8 files written, 9 unchanged, 1 removed\n");
    EXPECT_FALSE(fs::exists(path("out/de/orchard/c.html")));
}

TEST_F(TwoProductsTest, JsonHasTheNumberOfFiles) {
    const docparser_tests::Schema schema("refdoc-output.schema.json", "site");
    for (const char* format : {"--json", "--jsonl"}) {
        const boost::json::value output = document(site({format}).out);
        const std::size_t written = format == std::string("--json") ? 18 : 0;
        EXPECT_EQ(output, (boost::json::value{{"index", path("out/index.html")},
                                              {"written", written},
                                              {"unchanged", 18 - written},
                                              {"removed", 0}}));
        EXPECT_EQ(schema.problemsOf(output), "");
    }
}

TEST_F(TwoProductsTest, FilesOfOthersAreRefusedUnlessForced) {
    add("out/mine.txt", "mine");
    const Outcome refused = site();
    EXPECT_EQ(refused.status, 3);
    EXPECT_THAT(refused.err, HasSubstr("contains \"mine.txt\", which is not a file of a site"));
    EXPECT_THAT(filesIn(path("out")), ElementsAre("mine.txt"));
    EXPECT_EQ(site({"--force"}).status, 0);
    EXPECT_EQ(page("mine.txt"), "mine");
    EXPECT_EQ(site().status, 3);
}

TEST_F(TwoProductsTest, FailureLeavesTheOldSite) {
    site();
    const std::set<std::string> before = filesIn(path());
    addResource("Cellar", section("cellar", ""));
    addManifest("{");
    EXPECT_EQ(site().status, 3);
    EXPECT_EQ(filesIn(path()), before);
    EXPECT_THAT(page("cellar/index.html"), HasSubstr("Press"));
}

TEST_F(TwoProductsTest, ProductThatCannotBeReadIsReported) {
    addResource("Cellar", "{\n");
    const Outcome outcome = site();
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "refdoc: " + path("help/docCatalog/referenceapi/Cellar.json") +
                               " is malformed at 2:1: incomplete JSON; run refdoc check\n");
    EXPECT_TRUE(fs::exists(path("out/orchard/b.html")));
}

TEST_F(TwoProductsTest, ProductThatCannotBeReadHasAPageWithTheReason) {
    addResource("Cellar", "{\n");
    addLookup("Cellar", section("cellar", R"({"name": "z", "href": "a.html", "refpurpose": ""})"));
    site();
    for (const std::string language : {"", "de/"}) {
        EXPECT_THAT(page(language + "index.html"),
                    HasSubstr("<a href=\"cellar/index.html\"><bdi>cellar name</bdi></a> "
                              "<small class=\"mark error\">file cannot be used</small>"));
        EXPECT_THAT(page(language + "cellar/index.html"), HasSubstr("Cellar.json:2:1"));
    }
    EXPECT_THAT(brokenLinks(path("out")), IsEmpty());
}

TEST_F(TwoProductsTest, BrokenProductThatIsNotInTheLookupIndexIsNamedByItsFile) {
    addResource("Cellar", "{\n");
    site();
    EXPECT_THAT(page("Cellar/index.html"), HasSubstr("<h1><bdi>Cellar</bdi></h1>"));
}

TEST_F(TwoProductsTest, BrokenFileOfOneLanguageLeavesTheOtherLanguages) {
    addResource("Orchard", "{\n");
    site();
    EXPECT_THAT(page("orchard/index.html"), HasSubstr("Orchard.json:2:1"));
    EXPECT_THAT(page("orchard/index.html"),
                HasSubstr("<a href=\"../de/orchard/index.html\" hreflang=\"de\">"));
    EXPECT_THAT(page("de/orchard/c.html"),
                HasSubstr("<a href=\"../../orchard/index.html\" hreflang=\"en\">"));
    EXPECT_FALSE(fs::exists(path("out/orchard/b.html")));
    EXPECT_THAT(brokenLinks(path("out")), IsEmpty());
}

TEST_F(TwoProductsTest, BrokenEnglishFileHasTheNameOfTheLookupIndex) {
    addResource("Orchard", "{\n");
    addResource("Orchard_de", boost::replace_all_copy(
                                  section("orchard", R"({"href": "c.html", "refpurpose": "Neu"})"),
                                  "orchard name", "Obstgarten"));
    addLookup("Orchard",
              section("orchard", R"({"name": "z", "href": "a.html", "refpurpose": ""})"));
    site();
    EXPECT_THAT(page("orchard/index.html"), HasSubstr("<h1><bdi>orchard name</bdi></h1>"));
    EXPECT_THAT(page("de/orchard/index.html"), HasSubstr("<h1><bdi>Obstgarten</bdi></h1>"));
}

TEST_F(TwoProductsTest, PagesOfAProductShowItsBrokenTranslation) {
    addResource("Orchard_de", "{\n");
    site();
    for (const std::string name : {"orchard/index.html", "orchard/b.html"}) {
        EXPECT_THAT(page("de/" + name),
                    AllOf(HasSubstr("This file cannot be used"), HasSubstr("Orchard_de.json:2:1")));
        EXPECT_THAT(page(name), Not(HasSubstr("This file cannot be used")));
    }
    EXPECT_THAT(page("de/orchard/b.html"), HasSubstr("not translated into de"));
}

// The links of an item and of its translation lead nowhere, and a lookup file has no product.
class FindingsTest : public SiteTest {
protected:
    FindingsTest() {
        addManifest(R"({"supportedDocLanguages": ["en", "de"]})");
        addResource("Orchard", section("orchard",
                                       R"json({"href": "a.html", "refpurpose": "Join trees",
                                               "seealso": [{"url": "en.html", "name": ""}]},
                                              {"href": "b.html", "refpurpose": "Cut trees"})json"));
        addResource("Orchard_de",
                    section("orchard", R"json({"href": "a.html", "refpurpose": "Verbinden",
                                               "seealso": [{"url": "de.html", "name": ""}]})json"));
        addLookup("Cellar", "{");
    }

    // The pages that show a finding with this message.
    std::vector<std::string> pagesWith(const std::string& message) const {
        std::vector<std::string> pages;
        for (const std::string& name : filesIn(path("out"))) {
            const std::string text = page(name);
            const std::size_t panel = text.find("id=\"refdoc-findings\"");
            if (panel != text.npos && text.find(message, panel) != text.npos)
                pages.push_back(name);
        }
        return pages;
    }
};

TEST_F(FindingsTest, FindingsAreOnThePagesThatTheyBelongTo) {
    EXPECT_EQ(site().err, "");
    EXPECT_THAT(pagesWith("link &quot;en.html&quot;"),
                ElementsAre("de/orchard/a.html", "de/orchard/index.html", "orchard/a.html",
                            "orchard/index.html"));
    EXPECT_THAT(pagesWith("link &quot;de.html&quot;"),
                ElementsAre("de/orchard/a.html", "de/orchard/index.html", "orchard/index.html"));
    EXPECT_THAT(pagesWith("Cellar.json"), ElementsAre("de/index.html", "index.html"));
    EXPECT_THAT(page("orchard/b.html"), Not(HasSubstr("refdoc-findings")));
}

TEST_F(FindingsTest, FindingTellsRuleAndPosition) {
    site();
    const std::string text = page("orchard/a.html");
    const fs::path file(path("help/docCatalog/referenceapi/Orchard.json"));
    EXPECT_THAT(text, HasSubstr("<p class=\"findings-note\">"
                                "<a href=\"#refdoc-findings\">1 warning</a></p>"));
    EXPECT_THAT(text.substr(text.find("<section class=\"findings\"")),
                HasSubstr("<h3><span class=\"warning\">warning</span> <code>broken-link</code></h3>"
                          "<ul><li><bdi>no product has an item with the link &quot;en.html&quot;"
                          "</bdi> (<bdi>a.html, seealso[0].url</bdi>)<p><code><bdi>" +
                          file.generic_string() + ":2:"));
}

TEST_F(FindingsTest, FindingsCanBeLeftOut) {
    site({"--no-check"});
    EXPECT_THAT(pagesWith(""), IsEmpty());
    EXPECT_THAT(page("index.html"), Not(HasSubstr("refdoc check")));
}

TEST_F(FindingsTest, StartPageHasTheTotals) {
    site();
    EXPECT_THAT(
        page("index.html"),
        HasSubstr("<p class=\"findings-note\">refdoc check: 1 error, 2 warnings in 3 files; "
                  "4 files checked</p>"));
    EXPECT_THAT(page("index.html"), HasSubstr("<bdi>orchard name</bdi></a> "
                                              "<small class=\"mark warning\">2 warnings</small>"));
}

TEST_F(SiteTest, WithoutProductsThereIsNoSite) {
    const Outcome outcome = site();
    EXPECT_EQ(outcome.status, 3);
    EXPECT_THAT(outcome.err, HasSubstr("no product has a full resource file in \"" +
                                       path("help/docCatalog/referenceapi")));
    EXPECT_FALSE(fs::exists(path("out")));
    EXPECT_EQ(run({"site"}), (Outcome{2, "", "refdoc: site needs an OUT; see refdoc --help\n"}));
}

TEST_F(SiteTest, LinksLeadToItemsOrTheWebOrStayText) {
    addResource("Orchard", section("orchard", R"json(
        {"href": "ref/a.html", "refpurpose": "a",
         "inputs": [{"name": "x", "purpose": "x", "htmlid": "in x"}],
         "seealso": [{"url": "b.html", "name": "same"}, {"url": "ref/c.html", "name": "full"},
                     {"url": "c.html#in-y", "name": "relative"}, {"url": "../b.html", "name": "up"},
                     {"url": "#in x", "name": "own"}, {"url": "d.html", "name": "none"},
                     {"url": "https://a.example/?b&c", "name": "web"},
                     {"url": "javascript:alert(1)", "name": "script"}]},
        {"href": "b.html", "refpurpose": "b"},
        {"href": "ref/c.html", "refpurpose": "c",
         "inputs": [{"name": "y", "purpose": "y", "htmlid": "in-y"}]})json"));
    site();
    const std::string text = page("orchard/ref/a.html");
    EXPECT_THAT(valuesOf("href", text.substr(text.find("<article"))),
                ElementsAre("../b.html", "c.html", "c.html#in-y", "../b.html", "a.html#in%20x",
                            "https://a.example/?b&amp;c"));
    EXPECT_THAT(text, HasSubstr("<bdi>script</bdi> "
                                "<small><code><bdi>javascript:alert(1)</bdi></code></small>"));
    EXPECT_THAT(brokenLinks(path("out")), IsEmpty());
}

TEST_F(SiteTest, LinksLeadToItemsOfOtherProducts) {
    addManifest(R"({"supportedDocLanguages": ["en", "de"]})");
    addResource("Orchard", section("orchard", R"json(
        {"href": "ref/a.html", "refpurpose": "a",
         "seealso": [{"url": "../../cellar/help/ref/b.html#in-x", "name": "other"},
                     {"url": "../../cellar/help/ref/none.html", "name": "none"},
                     {"url": "../../../cellar/help/ref/b.html", "name": "above"},
                     {"url": "ref/b.html", "name": "same href"}]})json"));
    addResource("Cellar", section("cellar", R"json(
        {"href": "ref/b.html", "refpurpose": "b",
         "inputs": [{"name": "x", "purpose": "x", "htmlid": "in-x"}],
         "seealso": [{"url": "../../orchard/help/ref/a.html", "name": "back"}]})json"));
    EXPECT_THAT(site().out, HasSubstr("files written, 0 unchanged, 0 removed"));
    for (const std::string language : {"", "de/"}) {
        const std::string text = page(language + "orchard/ref/a.html");
        EXPECT_THAT(valuesOf("href", text.substr(text.find("<h2>See also"))),
                    ElementsAre("../../cellar/ref/b.html#in-x"));
        EXPECT_THAT(page(language + "cellar/ref/b.html"),
                    HasSubstr("<a href=\"../../orchard/ref/a.html\"><bdi"));
    }
    EXPECT_THAT(brokenLinks(path("out")), IsEmpty());
}

TEST_F(SiteTest, LinksLeadToItemsOfProductsWithHelpLocationsOnOnePath) {
    const auto resource = [](const std::string& name, const std::string& location,
                             const std::string& link) {
        return R"({"productName": ")" + name + R"(", "baseCode": "B", "helpFolder": ")" + name +
               R"(", "helpLocation": ")" + location + R"(", "refItems": [
                   {"href": "of-)" +
               name + R"(.html", "refpurpose": "", "seealso": [{"url": ")" + link +
               R"(", "name": "other"}, {"url": "none.html", "name": "none"}]}]})";
    };
    addResource("A", resource("a", "help", "b/of-b.html"));
    addResource("B", resource("b", "help/b", "of-c.html"));
    addResource("C", resource("c", "help/b", "of-b.html"));
    addResource("D", resource("d", "help/b/d", "../of-c.html"));
    const auto linksOf = [&](const std::string& name) {
        const std::string text = page(name + "/of-" + name + ".html");
        return valuesOf("href", text.substr(text.find("<h2>See also")));
    };
    for (const char* changes : {"files written, 0 unchanged", " 0 files written"}) {
        EXPECT_THAT(site().out, HasSubstr(changes));
        EXPECT_THAT(linksOf("a"), ElementsAre("../b/of-b.html"));
        EXPECT_THAT(linksOf("b"), ElementsAre("../c/of-c.html"));
        EXPECT_THAT(linksOf("c"), ElementsAre("../b/of-b.html"));
        EXPECT_THAT(linksOf("d"), ElementsAre("../c/of-c.html"));
    }
    EXPECT_THAT(brokenLinks(path("out")), IsEmpty());
}

TEST_F(SiteTest, AnchorsAreUniqueOnAPage) {
    addResource("Orchard", section("orchard", R"(
        {"href": "a.html", "refpurpose": "a",
         "inputs": [{"name": "x", "purpose": "x", "htmlid": "x"},
                    {"name": "y", "purpose": "y", "htmlid": "x"},
                    {"name": "z", "purpose": "z", "htmlid": "refdoc-content"},
                    {"name": "w", "purpose": "w"}],
         "classpropertygroup": [{"classproperty": [{"name": "Age", "purpose": "age"}]}]},
        {"href": "a.html", "refpurpose": "b",
         "outputs": [{"name": "x", "purpose": "x", "htmlid": "x"}]})"));
    site();
    EXPECT_THAT(valuesOf("id", page("orchard/a.html")),
                ElementsAre("refdoc-content", "x", "prop_Age"));
}

TEST_F(SiteTest, HostileDataStaysText) {
    addResource("Orchard", R"json({"productName": "</title><script>alert(1)</script>",
        "baseCode": "<b>", "helpFolder": "../<i>", "helpLocation": "\"><img src=x onerror=alert(1)>",
        "refItems": [{"href": "\"><script>.html", "refpurpose": "<script>alert(1)</script>",
            "refentity": [{"name": "'\"><img src=x onerror=alert(1)>"}],
            "description": "\u202e<svg onload=alert(1)>\u0000",
            "appthumbnail": {"fileref": "javascript:alert(1)", "alt": "\" onload=\"alert(1)"},
            "inputs": [{"name": "<a>", "purpose": "&lt;", "htmlid": "\" onclick=\"alert(1)"}],
            "seealso": [{"url": "https://a.example/\" onclick=\"alert(1)", "name": "<u>"}]}]})json");
    EXPECT_EQ(site().status, 0);
    const std::set<std::string> own{
        "a",      "article", "bdi",   "body",  "code",   "dd",      "details", "div",
        "dl",     "dt",      "h1",    "h2",    "h3",     "head",    "header",  "html",
        "input",  "label",   "li",    "link",  "main",   "meta",    "nav",     "p",
        "script", "section", "small", "span",  "strong", "summary", "table",   "tbody",
        "td",     "th",      "thead", "title", "tr",     "ul",      "ol"};
    std::set<std::string> foreign;
    for (const std::string& name : filesIn(path("out"))) {
        if (!name.ends_with(".html"))
            continue;
        const std::string text = page(name);
        const std::regex element("<([a-zA-Z0-9]+)([^>]*)>");
        for (std::sregex_iterator match(text.begin(), text.end(), element), end; match != end;
             ++match) {
            if (!own.contains((*match)[1]) ||
                std::regex_search((*match)[2].str(), std::regex(" on[a-z]+=\"")))
                foreign.insert((*match)[0]);
        }
        EXPECT_THAT(text, Not(HasSubstr("<script>")));
    }
    EXPECT_THAT(foreign, IsEmpty());
    EXPECT_THAT(brokenLinks(path("out")), IsEmpty());
}

TEST(SampleSiteTest, EveryLinkLeadsToAFileAndAnchor) {
    const docparser_tests::TemporaryFolder folder;
    const std::string out = (folder.path() / "site").string();
    const Outcome outcome = runProgram({"--install", samplesFolder(), "site", out});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_THAT(brokenLinks(out), IsEmpty());
    EXPECT_THAT(
        valuesOf("id", contentOf(out + "/orchard/ref/smooth.html")),
        ElementsAre("refdoc-content", "arg-x", "arg-window", "arg-shape", "arg-ends", "out-y"));
}

} // namespace
} // namespace refdoc_tests
