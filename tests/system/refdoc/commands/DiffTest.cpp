#include "tests/support/Schema.hpp"
#include "tests/support/ZipBytes.hpp"
#include "tests/system/refdoc/RefdocTest.hpp"

#include <boost/json/array.hpp>

#include <algorithm>
#include <string>
#include <vector>

namespace refdoc_tests {
namespace {

using docparser_tests::ZipBytes;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::string kGraft = R"({"href": "graft.html", "refpurpose": "Join two trees"})";
const std::string kPrune = R"({"href": "prune.html", "refpurpose": "Cut"})";

// Writes trees below the folders "old" and "new", and compares them.
class DiffTest : public RefdocTest {
protected:
    void addFull(const std::string& side, const std::string& name, const std::string& text) const {
        add(side + "/docCatalog/referenceapi/" + name + ".json", text);
    }

    void addIndex(const std::string& side, const std::string& file, const std::string& text) const {
        add(side + "/docCatalog/referenceapi_lookup/" + file, text);
    }

    // Both sides have the product; the purpose differs.
    void addChangedProduct() const {
        addFull("old", "Orchard", section("orchard", kGraft));
        addFull("new", "Orchard",
                section("orchard", R"({"href": "graft.html", "refpurpose": "Join trees"})"));
    }

    Outcome diff(std::vector<std::string> options = {}, const std::string& oldSide = "old",
                 const std::string& newSide = "new") const {
        options.insert(options.begin(), {"diff", path(oldSide), path(newSide)});
        return runProgram(options);
    }

    // "id product href field" of each change.
    std::vector<std::string> changes(const std::vector<std::string>& options = {},
                                     const std::string& oldSide = "old",
                                     const std::string& newSide = "new") const {
        std::vector<std::string> all = options;
        all.push_back("--jsonl");
        std::vector<std::string> lines;
        for (const boost::json::value& change : documents(diff(all, oldSide, newSide).out)) {
            std::string line;
            for (const char* member : {"id", "product", "href", "field"}) {
                const boost::json::string& text = change.at(member).as_string();
                if (!text.empty())
                    line.append(line.empty() ? "" : " ").append(text.data(), text.size());
            }
            lines.push_back(line);
        }
        return lines;
    }
};

TEST_F(DiffTest, TreeDoesNotDifferFromItself) {
    addChangedProduct();
    EXPECT_EQ(diff({"--exit-code"}, "old", "old"), (Outcome{0, "no differences\n", ""}));
}

TEST_F(DiffTest, StatusTellsOfPrintedChangesOnlyIfAskedTo) {
    addChangedProduct(); // textual
    EXPECT_EQ(diff().status, 0);
    EXPECT_EQ(diff({"--exit-code"}).status, 1);
    EXPECT_EQ(diff({"--exit-code", "--json"}).status, 1);
    EXPECT_EQ(diff({"--exit-code", "--only", "textual"}).status, 1);
    EXPECT_EQ(diff({"--exit-code", "--only", "breaking"}),
              (Outcome{0, "no breaking differences\n", ""}));
}

TEST_F(DiffTest, OnlyOneClassIsPrinted) {
    addFull("old", "Orchard", section("orchard", kGraft));
    addFull("new", "Orchard", section("orchard", kPrune));
    EXPECT_THAT(changes(),
                ElementsAre("item-removed Orchard graft.html", "item-added Orchard prune.html"));
    EXPECT_THAT(changes({"--only=breaking"}), ElementsAre("item-removed Orchard graft.html"));
    EXPECT_THAT(changes({"--only=notable"}), ElementsAre("item-added Orchard prune.html"));
    EXPECT_THAT(changes({"--only=textual"}), IsEmpty());
}

TEST_F(DiffTest, WhatCannotBeComparedIsAFailure) {
    addChangedProduct();
    add("folder/file.json", "{}");
    EXPECT_EQ(diff({}, "gone").status, 3);
    EXPECT_EQ(diff({}, "old", "gone").status, 3);
    EXPECT_EQ(diff({}, "old", "folder").status, 3);
    EXPECT_EQ(diff({}, "old", "folder/file.json").status, 2);
    EXPECT_EQ(runProgram({"diff", path("old")}).status, 2);
    EXPECT_EQ(runProgram({"git-diff", "a.json", "b"}).status, 2);
}

TEST_F(DiffTest, JsonMatchesItsSchema) {
    addChangedProduct();
    addFull("old", "Cellar", section("cellar", kGraft));
    addFull("new", "Cellar", "{");
    addFull("new", "Market", section("market", kPrune));
    const docparser_tests::Schema schema("refdoc-output.schema.json", "diff");
    const docparser_tests::Schema lineSchema("refdoc-output.schema.json", "diffLine");
    const boost::json::value printed = document(diff({"--json"}).out);
    EXPECT_EQ(schema.problemsOf(printed), "");
    EXPECT_EQ(printed.at("summary").at("notable"), 1);
    EXPECT_EQ(printed.at("damagedFiles").as_array().size(), 1U);
    boost::json::array lines;
    for (const boost::json::value& line : documents(diff({"--jsonl"}).out)) {
        EXPECT_EQ(lineSchema.problemsOf(line), "");
        lines.push_back(line);
    }
    EXPECT_EQ(printed.at("changes"), boost::json::value(lines));
}

TEST_F(DiffTest, DamagedFilesAreReportedAndNothingElseIsLost) {
    addChangedProduct();
    for (const std::string side : {"old", "new"}) {
        addFull(side, "Both", "[");
        addFull(side, "Old", side == "old" ? "{" : section("old", kGraft));
        addFull(side, "New", side == "new" ? "{" : section("new", kGraft));
    }
    addIndex("old", "Index.json",
             section("index", R"({"name": "a", "href": "", "refpurpose": ""})"));
    addIndex("new", "Index.json", "nothing");
    const std::string entry = R"({"name": "b", "href": "", "refpurpose": ""})";
    const ZipBytes package{.entries = {{.name = "Inner.json", .content = section("inner", entry)}}};
    addIndex("old", "Package.zip", package.build());
    addIndex("new", "Package.zip", "nothing");
    EXPECT_THAT(changes(), ElementsAre("item-changed Orchard graft.html /refPurpose"));
    const Outcome outcome = diff();
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.out, HasSubstr("undamaged files"));
    for (const char* words :
         {"skipped in OLD and NEW: ", "referenceapi/Both.json: ", "skipped in OLD: ",
          "referenceapi/Old.json: ", "skipped in NEW: ", "referenceapi/New.json: ",
          "referenceapi_lookup/Index.json: ", "referenceapi_lookup/Package.zip: "})
        EXPECT_THAT(outcome.err, HasSubstr(words));
    EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 5) << outcome.err;
}

TEST_F(DiffTest, FilesAreTheSameProductUnderDifferentNames) {
    add("a/first.json", section("orchard", kGraft));
    add("b/second.json", section("orchard", kPrune));
    EXPECT_THAT(changes({}, "a/first.json", "b/second.json"),
                ElementsAre("item-removed second graft.html", "item-added second prune.html"));
}

TEST_F(DiffTest, TranslationIsAFileLikeAnyOther) {
    add("installation.json", R"({"docLanguage": "de", "supportedDocLanguages": ["en", "de"]})");
    add("Orchard.json", section("orchard", kGraft));
    add("Orchard_de.json", section("orchard", kPrune));
    EXPECT_THAT(
        changes({"--langs", "en,de"}, "Orchard.json", "Orchard_de.json"),
        ElementsAre("item-removed Orchard_de graft.html", "item-added Orchard_de prune.html"));
}

TEST_F(DiffTest, LookupFilesAndPackagesAreCompared) {
    const std::string oldText =
        section("orchard", R"({"name": "graft", "href": "graft.html", "refpurpose": "Join"})");
    const std::string newText =
        section("orchard", R"({"name": "graft", "href": "graft.html", "refpurpose": "Bind"})");
    add("old.json", oldText);
    add("new.json", newText);
    add("old.zip", ZipBytes{.entries = {{.name = "Orchard.json", .content = oldText}}}.build());
    add("new.zip", ZipBytes{.entries = {{.name = "Orchard.json", .content = newText}}}.build());
    EXPECT_THAT(changes({}, "old.json", "new.json"),
                ElementsAre("lookup-changed new graft.html /refPurpose"));
    EXPECT_THAT(changes({}, "old.zip", "new.zip"),
                ElementsAre("lookup-changed Orchard graft.html /refPurpose"));
}

TEST_F(DiffTest, SectionOfTwoProductsBelongsToTheSmallerNameInBothDirections) {
    const std::string index =
        section("orchard", R"({"name": "graft", "href": "graft.html", "refpurpose": "Join"})");
    addIndex("old", "Apple.json", index);
    addIndex("new", "Pear.json", index);
    EXPECT_THAT(changes(), ElementsAre("section-changed Apple /product"));
    EXPECT_THAT(changes({}, "new", "old"), ElementsAre("section-changed Apple /product"));
}

TEST_F(DiffTest, RootIsComparedWithItsTranslation) {
    addFull("old", "Orchard", section("orchard", kGraft));
    addFull("old", "Orchard_de",
            section("orchard", R"({"href": "graft.html", "refpurpose": "Veredeln"})"));
    EXPECT_THAT(changes({"--new-lang", "de"}, "old", "old"),
                ElementsAre("item-changed Orchard graft.html /refPurpose"));
}

TEST_F(DiffTest, LanguageOfOneManifestCountsForBothFolders) {
    add("old/installation.json", R"({"supportedDocLanguages": ["en", "de"]})");
    for (const std::string side : {"old/help", "new/help"}) {
        addFull(side, "Orchard", section("orchard", kGraft));
        addFull(side, "Orchard_de", section("orchard", kPrune));
    }
    EXPECT_THAT(changes(), IsEmpty());
    EXPECT_THAT(changes({}, "new", "old"), IsEmpty());
}

TEST_F(DiffTest, SupportPackagesBelongToInstallFoldersOnly) {
    for (const std::string side : {"old", "new"}) {
        add(side + "/installation.json", R"({"supportPackageRoot": "packages"})");
        addFull(side + "/help", "Orchard", section("orchard", kGraft));
    }
    addFull("new/packages/help", "Kit", section("kit", kPrune));
    EXPECT_THAT(changes(), ElementsAre("product-added Kit"));
    EXPECT_THAT(changes({}, "old/help", "new/help"), IsEmpty());
}

TEST_F(DiffTest, HostileFilesAreComparedLikeOthers) {
    const std::string deep = std::string(20, '[') + std::string(20, ']');
    const std::string link = "a\\u202e\\u0007<b>.html";
    for (const std::string side : {"old", "new"}) {
        const std::string items = R"({"href": ")" + link + R"(", "refpurpose": ")" + side +
                                  R"( \u202e\u0007", "x": )" + deep + "}";
        // The same link many times, and the same text.
        std::string more;
        for (int count = 0; count < 2000; ++count)
            more += "," + items;
        addFull(side, "Orchard", section("orchard", items + more));
        addFull(side, "Long",
                section("long", R"({"href": "a", "refpurpose": ")" + std::string(1 << 20, side[0]) +
                                    R"("})"));
    }
    EXPECT_EQ(changes().size(), 2002U);
    const Outcome outcome = diff();
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out.find('\x07'), std::string::npos);
}

} // namespace
} // namespace refdoc_tests
