#include "tests/support/NativeText.hpp"
#include "tests/system/refdoc/RefdocTest.hpp"

namespace refdoc_tests {
namespace {

using docparser_tests::native;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class ShowTest : public RefdocTest {
protected:
    static constexpr const char* kGraft = R"({"href": "graft.html", "refpurpose": "Join trees"})";
    static constexpr const char* kPrune = R"({"href": "prune.html", "refpurpose": "Cut back"})";

    // The end of a complaint while there is no product at all.
    static constexpr const char* kNoProducts = "; --install or --root names another folder\n";

    std::string tried(const std::string& files) const {
        return path("help/docCatalog/referenceapi") + " (" + files + ")";
    }
};

TEST_F(ShowTest, PrintsTheProductOfTheReferenceRoot) {
    addResource("Orchard", section("orchard", kGraft));
    EXPECT_EQ(run({"show", "Orchard"}), (Outcome{0,
                                                 "orchard name\n"
                                                 "============\n"
                                                 "help folder    orchard\n"
                                                 "base code      orchard code\n"
                                                 "help location  orchard/help\n"
                                                 "\n"
                                                 "graft.html\n"
                                                 "----------\n"
                                                 "  Join trees\n"
                                                 "  link  graft.html\n",
                                                 ""}));
}

TEST_F(ShowTest, NamesTheFoldersAndFilesTriedForAMissingProduct) {
    EXPECT_EQ(run({"show", "Orchard"}), (Outcome{1, "",
                                                 "refdoc: no resources for \"Orchard\"; tried " +
                                                     tried("Orchard.json") + kNoProducts}));
}

TEST_F(ShowTest, NamesTheTranslatedFilesTriedForAMissingProduct) {
    EXPECT_EQ(run({"--lang", "de", "show", "Orchard"}),
              (Outcome{1, "",
                       "refdoc: no resources for \"Orchard\"; tried " +
                           tried("Orchard.json, Orchard_de.json") + kNoProducts}));
}

TEST_F(ShowTest, NamesTheSupportFolderAsGiven) {
    EXPECT_EQ(
        run({"--root", "no/root", "--support-folder", "no/support", "show", "P"}),
        (Outcome{
            1, "",
            "refdoc: no resources for \"P\"; tried no/root" + native("/docCatalog/referenceapi") +
                " (P.json), no/support (P.json); --install or --root names another folder\n"}));
}

TEST_F(ShowTest, NamesTheErrorInAMalformedFile) {
    addResource("Orchard", "{\n  \"productName\": 1}");
    addLookup("Cellar",
              section("cellar", R"({"name": "Orchard", "href": "a", "refpurpose": "b"})"));
    for (const char* command : {"show", "explain"}) {
        const Outcome outcome = run({command, "Orchard"});
        EXPECT_EQ(outcome.status, 1);
        EXPECT_THAT(outcome.err,
                    StartsWith("refdoc: " + path("help/docCatalog/referenceapi/Orchard.json") +
                               " is malformed at 2:18: "));
        EXPECT_THAT(outcome.err, EndsWith("; run refdoc check\n"));
    }
}

TEST_F(ShowTest, FindsAProductInTheSupportPackageFolderOfTheManifest) {
    addManifest(R"({"supportPackageRoot": "packages"})");
    add("packages/help/docCatalog/referenceapi/Kit.json", section("kit", kGraft));
    const Outcome outcome = run({"show", "Kit"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.out, HasSubstr("kit name\n"));
}

TEST_F(ShowTest, FindsAProductInTheGivenSupportFolder) {
    add("anywhere/Kit.json", section("kit", kGraft));
    const Outcome outcome = run({"--support-folder", path("anywhere"), "show", "Kit"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.out, HasSubstr("kit name\n"));
}

TEST_F(ShowTest, SearchesTheReferenceRootBeforeTheSupportFolder) {
    addResource("Kit", section("fromroot", kGraft));
    add("anywhere/Kit.json", section("fromsupport", kGraft));
    const Outcome outcome = run({"--support-folder", path("anywhere"), "show", "Kit"});
    EXPECT_THAT(outcome.out, HasSubstr("fromroot name\n"));
    EXPECT_THAT(outcome.out, Not(HasSubstr("fromsupport")));
}

TEST_F(ShowTest, RootReplacesTheHelpFolder) {
    addResource("Orchard", section("fromhelp", kGraft));
    add("other/docCatalog/referenceapi/Orchard.json", section("fromroot", kGraft));
    const Outcome outcome = run({"--root", path("other"), "show", "Orchard"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.out, HasSubstr("fromroot name\n"));
}

TEST_F(ShowTest, RelativeFoldersStartAtTheCurrentFolder) {
    addResource("Orchard", section("orchard", kGraft));
    add("other/docCatalog/referenceapi/Orchard.json", section("fromroot", kGraft));
    Surroundings here;
    here.folder = path();
    EXPECT_THAT(runProgram({"--install", ".", "show", "Orchard"}, here).out,
                HasSubstr("orchard name\n"));
    EXPECT_THAT(runProgram({"--root", "other", "show", "Orchard"}, here).out,
                HasSubstr("fromroot name\n"));
}

TEST_F(ShowTest, PrintsOnlyTheGivenHrefsAndTheirSections) {
    addResource("Orchard",
                section("orchard", std::string(kGraft) + ", " + kPrune,
                        R"(, "supportPackages": [)" +
                            section("kit", R"({"href": "kit.html", "refpurpose": "Connect"})") +
                            "]"));
    const Outcome outcome = run({"show", "Orchard", "prune.html"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_THAT(outcome.out, HasSubstr("Cut back"));
    EXPECT_THAT(outcome.out, Not(HasSubstr("Join trees")));
    EXPECT_THAT(outcome.out, Not(HasSubstr("kit name")));
}

TEST_F(ShowTest, ReportsEachMissingHrefAndPrintsTheOthers) {
    addResource("Orchard", section("orchard", kGraft));
    const Outcome outcome = run({"show", "Orchard", "a.html", "graft.html", "b.html", "a.html"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err,
              "refdoc: no item \"a.html\" in \"Orchard\"; see refdoc show \"Orchard\"\n"
              "refdoc: no item \"b.html\" in \"Orchard\"; see refdoc show \"Orchard\"\n");
    EXPECT_THAT(outcome.out, HasSubstr("Join trees"));
}

TEST_F(ShowTest, PrintsNothingIfNoHrefIsFound) {
    addResource("Orchard", section("orchard", kGraft));
    EXPECT_EQ(
        run({"show", "Orchard", "a.html"}),
        (Outcome{1, "",
                 "refdoc: no item \"a.html\" in \"Orchard\"; see refdoc show \"Orchard\"\n"}));
}

TEST_F(ShowTest, SuggestsSimilarProducts) {
    addResource("Orchard", section("orchard", kGraft));
    add("support/Kit.json", section("kit", kGraft));
    const auto complaint = [&](const char* product) {
        return run({"--support-folder", path("support"), "show", product}).err;
    };
    EXPECT_THAT(complaint("orchrad"), EndsWith("); did you mean \"Orchard\"?\n"));
    EXPECT_THAT(complaint("Kid"), EndsWith("); did you mean \"Kit\"?\n"));
    EXPECT_THAT(complaint("Vineyard"), EndsWith("); see refdoc products\n"));
}

TEST_F(ShowTest, SuggestsSimilarHrefs) {
    addResource("P", section("p", R"({"href": "ref/graft.html#way", "refpurpose": "a",
                                      "refentity": [{"type": "method", "name": "tree.join"}]},
                                     {"href": "ref/prune.html", "refpurpose": "b"},
                                     {"href": "old/prune.html", "refpurpose": "c"})"));
    const auto complaint = [&](const char* href) { return run({"show", "P", href}).err; };
    EXPECT_THAT(complaint("Tree.Join"), EndsWith("; did you mean \"ref/graft.html#way\"?\n"));
    EXPECT_THAT(complaint("graft"), EndsWith("; did you mean \"ref/graft.html#way\"?\n"));
    EXPECT_THAT(complaint("new/prune.html"),
                EndsWith("; did you mean \"old/prune.html\" or \"ref/prune.html\"?\n"));
    EXPECT_THAT(complaint("rfe/prone.html"), EndsWith("; did you mean \"ref/prune.html\"?\n"));
    EXPECT_THAT(complaint("grafd"), EndsWith("; did you mean \"ref/graft.html#way\"?\n"));
    EXPECT_THAT(complaint("sow.html"), EndsWith("; see refdoc show \"P\"\n"));
}

TEST_F(ShowTest, FindsAProductWithoutItems) {
    addResource("Orchard", section("orchard", ""));
    const Outcome outcome = run({"show", "Orchard"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.out, HasSubstr("orchard name\n"));
}

} // namespace
} // namespace refdoc_tests
