#include "tests/system/refdoc/RefdocTest.hpp"
#include "tools/refdoc/cli/CommandTable.hpp"

namespace refdoc_tests {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

using Arguments = std::vector<std::string>;

class CompletionTest : public RefdocTest {
protected:
    CompletionTest() {
        addManifest(R"({"docLanguage": "de", "supportedDocLanguages": ["en", "de", "ja"],
                        "supportPackageRoot": "packages"})");
        addResource("Orchard", section("orchard", R"({"href": "graft.html", "refpurpose": "Join"},
                                                     {"href": "grow.html", "refpurpose": ""},
                                                     {"href": "prune.html", "refpurpose": "Cut"})"));
        addResource("Orchard_de", section("orchard", ""));
        addResource("Orchard_ja", section("orchard", ""));
        addResource("Olive_de", section("olive", ""));
        add("packages/help/docCatalog/referenceapi/Kit.json", section("kit", ""));
        addLookup("P", section("p", R"({"name": "graft", "href": "a", "refpurpose": "Join\ttrees"},
                                       {"name": "gra\nft", "href": "a", "refpurpose": "b"},
                                       {"name": "gra\u009bft", "href": "a", "refpurpose": "b"},
                                       {"name": "接続", "href": "a", "refpurpose": "c"})"));
    }

    // What the words could become, with the install folder among the options.
    std::string completions(Arguments words) const {
        words.insert(words.begin(), {"complete", "--install", path()});
        const Outcome outcome = runProgram(words);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.err, "");
        return outcome.out;
    }
};

TEST_F(CompletionTest, OffersTheCommandsThatStartLikeTheWord) {
    EXPECT_EQ(completions({"sh"}), "show\tPrint the full records of one product\n");
    for (const refdoc::CommandEntry& command : refdoc::commandTable().commands)
        EXPECT_THAT(completions({""}), HasSubstr(std::string(command.name) + '\t'));
}

TEST_F(CompletionTest, OffersOptionsBeforeAndAfterTheCommand) {
    EXPECT_EQ(completions({"--ve"}), "--verbose\tSay on standard error which files are read\n"
                                     "--version\tPrint the version and exit\n");
    EXPECT_EQ(completions({"show", "Orchard", "--verb"}),
              "--verbose\tSay on standard error which files are read\n");
    EXPECT_THAT(completions({"show", "--", "--verb"}), IsEmpty());
}

TEST_F(CompletionTest, OffersTheProductsOfBothPlacesWithoutTheirLanguage) {
    EXPECT_EQ(completions({"show", ""}), "Kit\nOlive\nOrchard\n");
    EXPECT_EQ(completions({"show", "Or"}), "Orchard\n");
}

TEST_F(CompletionTest, OffersWhatCanBeExplained) {
    EXPECT_EQ(completions({"explain", "Or"}), "Orchard\n");
    EXPECT_EQ(completions({"explain", "Orchard", "pr"}), "prune.html\tCut\n");
    EXPECT_THAT(completions({"explain", "Orchard", "prune.html", ""}), IsEmpty());
    EXPECT_THAT(completions({"explain", "--name", "gra"}), HasSubstr("graft\tJoin"));
}

TEST_F(CompletionTest, OffersTheLinksOfTheProductThatWasTyped) {
    EXPECT_EQ(completions({"show", "Orchard", "gr"}), "graft.html\tJoin\ngrow.html\n");
    EXPECT_EQ(completions({"show", "Orchard", "graft.html", "p"}), "prune.html\tCut\n");
    EXPECT_THAT(completions({"show", "Orchid", ""}), IsEmpty());
}

TEST_F(CompletionTest, OffersNamesOfTheIndexThatALineCanCarry) {
    EXPECT_EQ(completions({"lookup", ""}), "graft\tJoin␉trees\n接続\tc\n");
    EXPECT_EQ(completions({"lookup", "接"}), "接続\tc\n");
    EXPECT_EQ(completions({"lookup", "other", "gra"}), "graft\tJoin␉trees\n");
}

TEST_F(CompletionTest, OffersLanguagesAndChoicesAsValues) {
    EXPECT_EQ(completions({"--lang", ""}), "de\nen\nja\n");
    EXPECT_EQ(completions({"--lang=j"}), "ja\n");
    EXPECT_EQ(completions({"show", "--color", "a"}), "always\nauto\n");
}

TEST_F(CompletionTest, OffersTheRestOfALanguageList) {
    EXPECT_EQ(completions({"--langs", "en,"}), "en,de\nen,ja\n");
    EXPECT_EQ(completions({"--langs=de,en,j"}), "de,en,ja\n");
}

TEST_F(CompletionTest, OffersTheKeysOfTheIndexAsInstalledProducts) {
    EXPECT_EQ(completions({"--installed", ""}), "p\tp name\n");
    EXPECT_EQ(completions({"--support-packages", "kit,"}), "kit,p\tp name\n");
}

TEST_F(CompletionTest, TheOptionsThatWereTypedHold) {
    add("other/docCatalog/referenceapi/Vine.json", section("vine", ""));
    EXPECT_EQ(completions({"--root", path("other"), "show", "V"}), "Vine\n");
    EXPECT_EQ(completions({"--lang=ja", "--langs", "en,ja,de", "show", "Ol"}), "");
    EXPECT_EQ(completions({"--support-folder", path("nowhere"), "show", "K"}), "");
}

TEST_F(CompletionTest, WhatTakesNoMoreWordsOffersNone) {
    EXPECT_THAT(completions({"products", ""}), IsEmpty());
    EXPECT_THAT(completions({"--install", ""}), IsEmpty());
    EXPECT_THAT(completions({"nonsense", "x"}), IsEmpty());
}

TEST_F(CompletionTest, NothingIsSaidOfWhatIsWrong) {
    addManifest("{");
    EXPECT_THAT(completions({"show", ""}), IsEmpty());
    EXPECT_THAT(completions({"--color", "pink", "--json=x", "sho"}), Not(HasSubstr("refdoc:")));
    EXPECT_EQ(runProgram({"complete"}).status, 0);
}

} // namespace
} // namespace refdoc_tests
