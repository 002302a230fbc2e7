#include "tests/system/refdoc/RefdocTest.hpp"
#include "tools/refdoc/Commands.hpp"

#include <algorithm>

namespace refdoc_tests {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

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

    // The answer for the words, with the install folder among the options.
    std::string answer(Arguments words) const {
        words.insert(words.begin(), {"complete", "--install", path()});
        const Outcome outcome = runProgram(words);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.err, "");
        return outcome.out;
    }

    // The lines of an answer that consists of words.
    std::string completions(const Arguments& words) const {
        const std::string lines = answer(words);
        EXPECT_THAT(lines, StartsWith("words\n")) << testing::PrintToString(words);
        return lines.substr(std::min(lines.size(), lines.find('\n') + 1));
    }
};

TEST_F(CompletionTest, OffersTheCommandsThatStartWithTheWord) {
    EXPECT_EQ(completions({"sh"}), "show\tPrint the full records of one product\n");
    for (const refdoc::CommandEntry& command : refdoc::commandTable().commands)
        EXPECT_THAT(completions({""}), HasSubstr(std::string(command.name) + '\t'));
}

TEST_F(CompletionTest, OffersCommandsAfterHelp) {
    EXPECT_EQ(completions({"help", "sh"}), "show\tPrint the full records of one product\n");
}

TEST_F(CompletionTest, OffersOptionsBeforeAndAfterTheCommand) {
    EXPECT_EQ(completions({"--ve"}), "--verbose\tLog each file that is read to stderr\n"
                                     "--version\tPrint the version and exit\n");
    EXPECT_EQ(completions({"show", "Orchard", "--verb"}),
              "--verbose\tLog each file that is read to stderr\n");
    EXPECT_THAT(completions({"show", "--", "--verb"}), IsEmpty());
}

TEST_F(CompletionTest, OffersTheProductsOfBothFoldersWithoutTheirLanguage) {
    EXPECT_EQ(completions({"show", ""}), "Kit\nOlive\nOrchard\n");
    EXPECT_EQ(completions({"show", "Or"}), "Orchard\n");
}

TEST_F(CompletionTest, OffersTheArgumentsOfExplain) {
    EXPECT_EQ(completions({"explain", "Or"}), "Orchard\n");
    EXPECT_EQ(completions({"explain", "Orchard", "pr"}), "prune.html\tCut\n");
    EXPECT_EQ(answer({"explain", "Orchard", "prune.html", ""}), "");
    EXPECT_THAT(completions({"explain", "--name", "gra"}), HasSubstr("graft\tJoin"));
}

TEST_F(CompletionTest, OffersTheLinksOfTheTypedProduct) {
    EXPECT_EQ(completions({"show", "Orchard", "gr"}), "graft.html\tJoin\ngrow.html\n");
    EXPECT_EQ(completions({"show", "Orchard", "graft.html", "p"}), "prune.html\tCut\n");
    EXPECT_EQ(answer({"show", "Orchid", ""}), "");
}

TEST_F(CompletionTest, OffersOnlyNamesThatFitOnALine) {
    EXPECT_EQ(completions({"lookup", ""}), "graft\tJoin␉trees\n接続\tc\n");
    EXPECT_EQ(completions({"lookup", "接"}), "接続\tc\n");
    EXPECT_EQ(completions({"lookup", "other", "gra"}), "graft\tJoin␉trees\n");
}

TEST_F(CompletionTest, OffersLanguagesAndChoicesAsValues) {
    EXPECT_EQ(completions({"--lang", ""}), "de\nen\nja\n");
    EXPECT_EQ(completions({"--lang=j"}), "--lang=ja\n");
    EXPECT_EQ(completions({"show", "--color", "a"}), "always\nauto\n");
}

TEST_F(CompletionTest, OffersTheRestOfALanguageList) {
    EXPECT_EQ(completions({"--langs", ""}), "auto\nde\nen\nja\n");
    EXPECT_EQ(completions({"--langs", "en,"}), "en,de\nen,ja\n");
    EXPECT_EQ(completions({"--langs=de,en,j"}), "--langs=de,en,ja\n");
}

TEST_F(CompletionTest, OffersTheKeysOfTheIndexAsInstalledProducts) {
    EXPECT_EQ(completions({"--installed", ""}), "p\tp name\n");
    EXPECT_EQ(completions({"--support-packages", "kit,"}), "kit,p\tp name\n");
}

TEST_F(CompletionTest, AppliesTheOptionsThatWereTyped) {
    add("other/docCatalog/referenceapi/Vine.json", section("vine", ""));
    EXPECT_EQ(completions({"--root", path("other"), "show", "V"}), "Vine\n");
    EXPECT_EQ(completions({"--lang=ja", "--langs", "en,ja,de", "show", "Ol"}), "");
    EXPECT_EQ(completions({"--support-folder", path("nowhere"), "show", "K"}), "");
}

TEST_F(CompletionTest, OffersRulesByName) {
    EXPECT_EQ(completions({"check", "--ignore", "missing"}),
              "missing-key\ta required key is missing\n");
    EXPECT_EQ(completions({"check", "--werror=missing"}),
              "--werror=missing-key\ta required key is missing\n");
}

TEST_F(CompletionTest, LeavesPathsToTheShell) {
    EXPECT_EQ(answer({"--install", ""}), "folder\n");
    EXPECT_EQ(answer({"--root=a"}), "folder\n");
    EXPECT_EQ(answer({"check", ""}), "file\n");
    EXPECT_EQ(answer({"check", "--baseline", "a"}), "file\n");
}

TEST_F(CompletionTest, OffersNothingWhereNothingCanFollow) {
    EXPECT_EQ(answer({"products", ""}), "");
    EXPECT_EQ(answer({"--", "sh"}), "");
    EXPECT_EQ(answer({"--bad=x"}), "");
    EXPECT_EQ(answer({"--json=x"}), "words\n");
    EXPECT_EQ(answer({"nonsense", "x"}), "words\n");
}

TEST_F(CompletionTest, FaultsAndFailuresAreNotReported) {
    addManifest("{");
    EXPECT_EQ(answer({"show", ""}), "");
    addManifest("{}");
    EXPECT_EQ(completions({"--color", "pink", "--json=x", "sho"}),
              "show\tPrint the full records of one product\n");
    EXPECT_EQ(runProgram({"complete"}).status, 0);
}

} // namespace
} // namespace refdoc_tests
