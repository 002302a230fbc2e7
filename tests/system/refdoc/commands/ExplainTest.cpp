#include "tests/support/NativeText.hpp"
#include "tests/support/Schema.hpp"
#include "tests/support/ZipBytes.hpp"
#include "tests/system/refdoc/RefdocTest.hpp"

#include <boost/json/serialize.hpp>

#include <algorithm>
#include <filesystem>

namespace refdoc_tests {
namespace {

namespace json = boost::json;
using docparser_tests::portable;
using docparser_tests::Schema;
using docparser_tests::ZipBytes;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

// Replaces the path of a folder by "ROOT".
std::string shortened(std::string text, const std::string& folder) {
    for (std::size_t at = text.find(folder); at != std::string::npos; at = text.find(folder, at))
        text.replace(at, folder.size(), "ROOT");
    return text;
}

class ExplainTest : public RefdocTest {
protected:
    // Runs the command at a width at which no path is wrapped. Paths in text get '/'.
    Outcome explain(std::vector<std::string> arguments) const {
        const bool isText = std::ranges::none_of(
            arguments, [](const std::string& word) { return word.starts_with("--json"); });
        arguments.insert(arguments.begin(), "explain");
        Outcome outcome = run(std::move(arguments), {.variables = {{"COLUMNS", "100"}}});
        outcome.out = shortened(std::move(outcome.out), path("help/docCatalog"));
        outcome.err = shortened(std::move(outcome.err), path("help/docCatalog"));
        if (isText)
            outcome.out = portable(std::move(outcome.out));
        return outcome;
    }

    // Returns the output with --json, which must be valid.
    json::value explainDocument(std::vector<std::string> arguments, int status = 0) const {
        arguments.emplace_back("--json");
        const Outcome outcome = explain(std::move(arguments));
        EXPECT_EQ(outcome.status, status) << outcome.err;
        json::value printed = document(outcome.out);
        EXPECT_EQ(schema_.problemsOf(printed), "") << outcome.out;
        return printed;
    }

    const Schema schema_{"refdoc-explain.schema.json", "explain"};
};

class ExplainProductTest : public ExplainTest {
protected:
    ExplainProductTest() {
        addResource("Orchard", R"({
"productName": "Orchard", "baseCode": "OR", "helpFolder": "orchard", "helpLocation": "h",
"refItems": [
  {"href": "graft.html", "refpurpose": "Join trees"},
  {"href": "prune.html", "refpurpose": "Cut back"},
  {"href": "graft.html", "refpurpose": "Join trees again"}],
"supportPackages": [
  {"productName": "Orchard", "baseCode": "orchard", "helpFolder": "x", "helpLocation": "h",
   "refItems": [{"href": "late.html", "refpurpose": "Too late"}]}]})");
        addResource("Orchard_de", R"({
"productName": "Orchard", "baseCode": "OR", "helpFolder": "orchard", "helpLocation": "h",
"refItems": [
  {"href": "graft.html", "refpurpose": "Veredeln"}]})");
    }

    // A file as the lines name it.
    json::object fileObject(const std::string& name) const {
        return {{"path", path("help/docCatalog/referenceapi/" + name)}, {"entry", ""}};
    }
};

TEST_F(ExplainProductTest, ShowsTheOriginOfEachRecordAndWhatItReplaced) {
    EXPECT_EQ(explain({"Orchard", "--lang", "de"}), (Outcome{0, R"(Orchard
=======
documentation language: de

Files considered
  used      ROOT/referenceapi/Orchard.json
  overlay   ROOT/referenceapi/Orchard_de.json

Section orchard
---------------
  header    ROOT/referenceapi/Orchard_de.json:1:1
  dropped   ROOT/referenceapi/Orchard.json:8:3
            key-taken: an earlier section of the same file has the key
  dropped   ROOT/referenceapi/Orchard.json:1:1
            overlay: replaced by the header of the translation, in Orchard_de.json

  graft.html
    from      ROOT/referenceapi/Orchard_de.json:4:3
              Veredeln
    dropped   ROOT/referenceapi/Orchard.json:4:3
              Join trees
              replaced: the translation has the href, in Orchard_de.json
    dropped   ROOT/referenceapi/Orchard.json:6:3
              Join trees again
              replaced: the translation has the href, in Orchard_de.json

  late.html
    dropped   ROOT/referenceapi/Orchard.json:9:17
              Too late
              key-taken: an earlier section of the same file has the section's key

  prune.html
    from      ROOT/referenceapi/Orchard.json:5:3
              Cut back
)",
                                                             ""}));
}

TEST_F(ExplainProductTest, ShowsOnlyTheGivenHref) {
    EXPECT_EQ(explain({"Orchard", "prune.html"}), (Outcome{0, R"(Orchard, prune.html
===================
documentation language: en

Files considered
  used      ROOT/referenceapi/Orchard.json

Section orchard
---------------
  header    ROOT/referenceapi/Orchard.json:1:1
  dropped   ROOT/referenceapi/Orchard.json:8:3
            key-taken: an earlier section of the same file has the key

  prune.html
    from      ROOT/referenceapi/Orchard.json:5:3
              Cut back
)",
                                                           ""}));
}

TEST_F(ExplainProductTest, ExplainsDroppedItemsThatAreNotFound) {
    const Outcome outcome = explain({"Orchard", "late.html"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "refdoc: no item \"late.html\" in \"Orchard\"; see refdoc show "
                           "\"Orchard\"\n");
    EXPECT_THAT(outcome.out, AllOf(HasSubstr("ROOT/referenceapi/Orchard.json:9:17"),
                                   HasSubstr("key-taken"), Not(HasSubstr("from "))));
}

TEST_F(ExplainProductTest, SuggestsSimilarHrefs) {
    const Outcome outcome = explain({"Orchard", "prun.html"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err,
              "refdoc: no item \"prun.html\" in \"Orchard\"; did you mean \"prune.html\"?\n");
    EXPECT_THAT(outcome.out, Not(HasSubstr("Section")));
}

TEST_F(ExplainProductTest, ShowsTheErrorInAMalformedFileAndItsPosition) {
    addResource("Cellar", "{\n \"productName\": 1}");
    EXPECT_EQ(explain({"Cellar"}).out, R"(Cellar
======
documentation language: en

Files considered
  malformed ROOT/referenceapi/Cellar.json:2:17
            expected a string, found a number, at /productName
)");
    EXPECT_EQ(explain({"Cellar"}).status, 1);
}

TEST_F(ExplainProductTest, IndentsTheRemarkBelowALongFate) {
    std::filesystem::create_directories(
        docparser_tests::pathOf(path("help/docCatalog/referenceapi/Cellar.json")));
    EXPECT_THAT(explain({"Cellar"}).out, HasSubstr(R"(
  not-regular ROOT/referenceapi/Cellar.json
              a folder, pipe, socket or device has the name
)"));
}

TEST_F(ExplainProductTest, MissingTranslationIsNoProblem) {
    EXPECT_THAT(explain({"Orchard", "--lang", "fr", "--color", "always"}).out,
                HasSubstr("\x1b[2mmissing  \x1b[0m ROOT/referenceapi/Orchard_fr.json\n"));
    addResource("Orchard_fr", "{");
    EXPECT_THAT(explain({"Orchard", "--lang", "fr", "--color", "always"}).out,
                HasSubstr("\x1b[31mmalformed\x1b[0m ROOT/referenceapi/Orchard_fr.json:1:2\n"));
}

TEST_F(ExplainProductTest, SuggestsSimilarProducts) {
    const Outcome outcome = explain({"Orchad"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err, AllOf(HasSubstr("refdoc: no resources for \"Orchad\"; tried "),
                                   HasSubstr("; did you mean \"Orchard\"?\n")));
    EXPECT_THAT(outcome.out, HasSubstr("  missing   ROOT/referenceapi/Orchad.json\n"));
}

TEST_F(ExplainProductTest, TriesSupportPackagesAfterTheReferenceRoot) {
    addManifest(R"({"supportPackageRoot": "packages"})");
    add("packages/help/docCatalog/referenceapi/Kit.json",
        section("kit", R"({"href": "a.html", "refpurpose": "b"})"));
    const json::value printed = explainDocument({"Kit"});
    EXPECT_EQ(printed.at_pointer("/files/0/fate"), "missing");
    EXPECT_EQ(printed.at_pointer("/files/1/fate"), "used");
    EXPECT_EQ(printed.at_pointer("/sections/0/header/file"), 1);
}

TEST_F(ExplainProductTest, DocumentHasTheContentOfTheText) {
    const json::value printed = explainDocument({"Orchard", "graft.html", "--lang", "de"});
    EXPECT_EQ(json::serialize(printed.at("sections")),
              json::serialize(document(R"([{"key": "orchard",
        "header": {"file": 1, "pointer": "", "place": {"offset": 0, "line": 1, "column": 1}},
        "items": {"graft.html": [{"href": "graft.html", "refPurpose": "Veredeln",
            "origin": {"file": 1, "pointer": "/refItems/0",
                       "place": {"offset": 108, "line": 4, "column": 3}}}]},
        "droppedHeaders": [
            {"origin": {"file": 0, "pointer": "/supportPackages/0",
                        "place": {"offset": 296, "line": 8, "column": 3}},
             "rule": "key-taken", "winner": 0},
            {"origin": {"file": 0, "pointer": "", "place": {"offset": 0, "line": 1, "column": 1}},
             "rule": "overlay", "winner": 1}],
        "droppedRecords": [
            {"key": "graft.html", "href": "graft.html", "refPurpose": "Join trees",
             "origin": {"file": 0, "pointer": "/refItems/0",
                        "place": {"offset": 108, "line": 4, "column": 3}},
             "rule": "replaced", "winner": 1},
            {"key": "graft.html", "href": "graft.html", "refPurpose": "Join trees again",
             "origin": {"file": 0, "pointer": "/refItems/2",
                        "place": {"offset": 214, "line": 6, "column": 3}},
             "rule": "replaced", "winner": 1}]}])")));
    EXPECT_EQ(printed.at("product"), "Orchard");
    EXPECT_EQ(printed.at("href"), "graft.html");
    EXPECT_EQ(printed.at("language"), "de");
}

TEST_F(ExplainProductTest, LinesNameTheFileOfEachRecordAndOfItsWinner) {
    const auto record = [&](const char* file, const char* pointer, const char* purpose,
                            json::value place) {
        return json::object{{"section", "orchard"},  {"language", "de"},
                            {"key", "graft.html"},   {"href", "graft.html"},
                            {"refPurpose", purpose}, {"file", fileObject(file)},
                            {"pointer", pointer},    {"place", std::move(place)}};
    };
    json::object kept = record("Orchard_de.json", "/refItems/0", "Veredeln",
                               {{"offset", 108}, {"line", 4}, {"column", 3}});
    kept["rule"] = nullptr;
    kept["winner"] = nullptr;
    json::object first = record("Orchard.json", "/refItems/0", "Join trees",
                                {{"offset", 108}, {"line", 4}, {"column", 3}});
    json::object second = record("Orchard.json", "/refItems/2", "Join trees again",
                                 {{"offset", 214}, {"line", 6}, {"column", 3}});
    for (json::object* lost : {&first, &second}) {
        (*lost)["rule"] = "replaced";
        (*lost)["winner"] = fileObject("Orchard_de.json");
    }
    EXPECT_EQ(run({"explain", "Orchard", "graft.html", "--lang", "de", "--jsonl"}),
              (Outcome{0,
                       json::serialize(kept) + "\n" + json::serialize(first) + "\n" +
                           json::serialize(second) + "\n",
                       ""}));
}

TEST_F(ExplainProductTest, PrintsNoLineForAnUnknownItem) {
    const Outcome outcome = run({"explain", "Orchard", "prun.html", "--jsonl"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
}

TEST_F(ExplainProductTest, DocumentsAreValid) {
    addResource("Cellar", "{\n \"productName\": 1}");
    explainDocument({"Orchard"});
    explainDocument({"Cellar"}, 1);
    explainDocument({"Orchad"}, 1);
    explainDocument({"Orchard", "late.html"}, 1);
    explainDocument({"--name", "graft"}, 1);
}

class ExplainNameTest : public ExplainTest {
protected:
    ExplainNameTest() {
        addManifest(R"({"supportedDocLanguages": ["en", "de"],
                        "topLevelProducts": [{"shortName": "orchard"}]})");
        add("help/docCatalog/referenceapi_lookup/Estate.zip",
            ZipBytes{.entries = {{.name = "lookup/Orchard.json", .content = lookup({"a.html"})},
                                 {.name = "lookup/notes.txt", .content = "notes"}}}
                .build());
    }

    // A file of records of the name "graft", each on a line of its own from the second on.
    static std::string lookup(const std::vector<std::string>& hrefs) {
        std::string items;
        for (const std::string& href : hrefs)
            items += (items.empty() ? "\n" : ",\n") +
                     (R"({"name": "graft", "href": ")" + href + R"(", "refpurpose": "Join"})");
        return section("orchard", items);
    }
};

TEST_F(ExplainNameTest, ShowsWhichRecordsAMergeAddedAndDropped) {
    addLookup("Orchard", lookup({"a.html", "b.html"}));
    EXPECT_EQ(explain({"--name", "graft"}), (Outcome{0, R"(graft
=====
documentation language: en

Files considered
  used      ROOT/referenceapi_lookup/Estate.zip!lookup/Orchard.json
  merged    ROOT/referenceapi_lookup/Orchard.json
  2 more: 1 skipped-name, 1 used

Section orchard
---------------
  header    ROOT/referenceapi_lookup/Estate.zip!lookup/Orchard.json:1:1
  dropped   ROOT/referenceapi_lookup/Orchard.json:1:1
            merged: the header of the earlier section is kept, in Estate.zip!lookup/Orchard.json

  graft
    from      ROOT/referenceapi_lookup/Estate.zip!lookup/Orchard.json:2:1
              a.html: Join
    from      ROOT/referenceapi_lookup/Orchard.json:3:1
              b.html: Join
    dropped   ROOT/referenceapi_lookup/Orchard.json:2:1
              a.html: Join
              dropped-href: a record of the name has this href, in Estate.zip!lookup/Orchard.json
)",
                                                     ""}));
}

TEST_F(ExplainNameTest, AcceptsNamesBeyondAscii) {
    addLookup("Cellar",
              section("cellar", "\n"
                                R"({"name": "größe", "href": "g.html", "refpurpose": "Size"})"));
    const Outcome outcome = explain({"--name", "größe"});
    EXPECT_EQ(outcome.err, "");
    EXPECT_THAT(outcome.out, AllOf(testing::StartsWith("größe\n=====\n"), HasSubstr(R"(
  größe
    from      ROOT/referenceapi_lookup/Cellar.json:2:1
              g.html: Size
)")));
}

TEST_F(ExplainNameTest, ShowsRecordsThatAreDroppedByTheirNumber) {
    addLookup("Orchard", lookup({"b.html"}));
    EXPECT_THAT(explain({"--name", "graft"}).out, HasSubstr(R"(
    dropped   ROOT/referenceapi_lookup/Orchard.json:2:1
              b.html: Join
              dropped-count: the name has at least as many records, in
              Estate.zip!lookup/Orchard.json
)"));
}

TEST_F(ExplainNameTest, ShowsWhatATranslationReplaced) {
    addLookup("Orchard_de", lookup({"a.html"}));
    const json::value printed = explainDocument({"--name", "graft", "--lang", "de"});
    const json::value& section = printed.at_pointer("/sections/0");
    EXPECT_EQ(section.at("isInstalled"), true);
    const std::size_t kept =
        section.at_pointer("/items/graft/0/origin/file").to_number<std::size_t>();
    const std::size_t lost =
        section.at_pointer("/droppedRecords/0/origin/file").to_number<std::size_t>();
    EXPECT_EQ(printed.at("files").at(kept).at("fate"), "overlay");
    EXPECT_EQ(printed.at("files").at(lost).at("entry"), "lookup/Orchard.json");
    EXPECT_EQ(section.at_pointer("/droppedRecords/0/rule"), "dropped-href");
    EXPECT_EQ(section.at_pointer("/droppedRecords/0/winner"), kept);
    EXPECT_EQ(section.at_pointer("/droppedHeaders/0/rule"), "overlay");
}

TEST_F(ExplainNameTest, DistinguishesEntriesWithEqualNames) {
    add("help/docCatalog/referenceapi_lookup/Estate.zip",
        ZipBytes{
            .entries = {{.name = "Orchard.json", .content = lookup({"a.html"})},
                        {.name = "Orchard.json", .content = "\n\n" + lookup({"b.html", "c.html"})}}}
            .build());
    EXPECT_THAT(explain({"--name", "graft"}).out,
                AllOf(HasSubstr("Orchard.json:2:1\n              a.html: Join\n"),
                      HasSubstr("Orchard.json:4:1\n              b.html: Join\n"),
                      HasSubstr("Orchard.json:5:1\n              c.html: Join\n")));
}

TEST_F(ExplainNameTest, SuggestsSimilarNamesAndShowsUnusableFiles) {
    addLookup("Broken", "{\"productName\": }");
    const Outcome outcome = explain({"--name", "grapt"});
    EXPECT_EQ(outcome, (Outcome{1, R"(grapt
=====
documentation language: en

Files considered
  malformed ROOT/referenceapi_lookup/Broken.json:1:17
            syntax error
  3 more: 1 skipped-name, 2 used
)",
                                "refdoc: no entry \"grapt\" in the lookup index; did you mean "
                                "\"graft\"?\n"}));
}

TEST_F(ExplainNameTest, AlwaysShowsUnusablePackages) {
    add("help/docCatalog/referenceapi_lookup/Broken.zip", "no zip");
    const Outcome outcome = explain({"--name", "graft"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.out, HasSubstr("  unreadable ROOT/referenceapi_lookup/Broken.zip\n"));
}

TEST_F(ExplainNameTest, ColorsDroppedRecords) {
    addLookup("Orchard", lookup({"a.html"}));
    EXPECT_THAT(explain({"--name", "graft", "--color", "always"}).out,
                HasSubstr("\x1b[33mdropped  \x1b[0m ROOT/"));
}

TEST_F(ExplainNameTest, DocumentsAreValid) {
    addLookup("Orchard", lookup({"a.html", "b.html"}));
    addLookup("Broken", "{");
    explainDocument({"--name", "graft"});
    explainDocument({"--name", "graft", "--installed", ""});
    explainDocument({"--name", "nothing"}, 1);
}

TEST_F(ExplainNameTest, MarksSectionsThatAreNotInstalled) {
    EXPECT_THAT(explain({"--name", "graft", "--installed", ""}).out,
                HasSubstr("Section orchard, not installed\n"));
}

class EmptyExplainTest : public ExplainTest {};

TEST_F(EmptyExplainTest, SaysNoneIfThereAreNoFiles) {
    EXPECT_EQ(explain({"--name", "graft"}).out,
              "graft\n=====\ndocumentation language: en\n\nFiles considered\n  none\n");
}

TEST_F(EmptyExplainTest, MakesControlCharactersVisible) {
    addResource("Odd", section("odd\\u001b", R"({"href": "a\u0007", "refpurpose": "b\u001b"})"));
    const std::string out = explain({"Odd"}).out;
    EXPECT_THAT(out, AllOf(HasSubstr("Section odd␛"), HasSubstr("a␇"), HasSubstr("b␛")));
    EXPECT_THAT(explain({"Odd\x1b"}).out, HasSubstr("Odd␛"));
}

} // namespace
} // namespace refdoc_tests
