#include "tests/system/refdoc/RefdocTest.hpp"

namespace refdoc_tests {
namespace {

using testing::HasSubstr;
using testing::Not;

class ShowTest : public RefdocTest {
protected:
    static constexpr const char* kGraft = R"({"href": "graft.html", "refpurpose": "Join trees"})";
    static constexpr const char* kPrune = R"({"href": "prune.html", "refpurpose": "Cut back"})";

    std::string tried(const std::string& files) const {
        return path("help/docCatalog/referenceapi") + " (" + files + "), " +
               "/help/docCatalog/referenceapi (" + files + ")";
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

TEST_F(ShowTest, AMissingProductIsOneLineWithTheFoldersAndFilesThatWereTried) {
    EXPECT_EQ(run({"show", "Orchard"}), (Outcome{1, "",
                                                 "refdoc: no resources for \"Orchard\"; tried " +
                                                     tried("Orchard.json") + "\n"}));
}

TEST_F(ShowTest, AMissingProductNamesTheLanguageFilesThatWereTried) {
    EXPECT_EQ(run({"--lang", "de", "show", "Orchard"}),
              (Outcome{1, "",
                       "refdoc: no resources for \"Orchard\"; tried " +
                           tried("Orchard.json, Orchard_de.json") + "\n"}));
}

TEST_F(ShowTest, AMissingProductNamesTheSupportFolderAsItStands) {
    EXPECT_EQ(run({"--root", "no/root", "--support-folder", "no/support", "show", "P"}),
              (Outcome{1, "",
                       "refdoc: no resources for \"P\"; tried no/root/docCatalog/referenceapi "
                       "(P.json), no/support (P.json)\n"}));
}

TEST_F(ShowTest, AMalformedFileIsAsGoodAsAMissingOne) {
    addResource("Orchard", "{");
    const Outcome outcome = run({"show", "Orchard"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(outcome.err, HasSubstr("no resources for \"Orchard\""));
}

TEST_F(ShowTest, FindsAProductInTheSupportPackageFolderOfTheManifest) {
    addManifest(R"({"supportPackageRoot": "packages"})");
    add("packages/help/docCatalog/referenceapi/Kit.json", section("kit", kGraft));
    const Outcome outcome = run({"show", "Kit"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.out, HasSubstr("kit name\n"));
}

TEST_F(ShowTest, FindsAProductInTheSupportFolderAsItStands) {
    add("anywhere/Kit.json", section("kit", kGraft));
    const Outcome outcome = run({"--support-folder", path("anywhere"), "show", "Kit"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.out, HasSubstr("kit name\n"));
}

TEST_F(ShowTest, TheReferenceRootComesBeforeTheSupportFolder) {
    addResource("Kit", section("fromroot", kGraft));
    add("anywhere/Kit.json", section("fromsupport", kGraft));
    const Outcome outcome = run({"--support-folder", path("anywhere"), "show", "Kit"});
    EXPECT_THAT(outcome.out, HasSubstr("fromroot name\n"));
    EXPECT_THAT(outcome.out, Not(HasSubstr("fromsupport")));
}

TEST_F(ShowTest, RootTakesThePlaceOfTheHelpFolder) {
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

TEST_F(ShowTest, WithHrefsOnlyThoseItemsAndTheirSectionsAreShown) {
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

TEST_F(ShowTest, EachMissingHrefIsALineAndTheOthersAreShown) {
    addResource("Orchard", section("orchard", kGraft));
    const Outcome outcome = run({"show", "Orchard", "a.html", "graft.html", "b.html", "a.html"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "refdoc: no item \"a.html\" in \"Orchard\"\n"
                           "refdoc: no item \"b.html\" in \"Orchard\"\n");
    EXPECT_THAT(outcome.out, HasSubstr("Join trees"));
}

TEST_F(ShowTest, NoHrefFoundLeavesNothingToPrint) {
    addResource("Orchard", section("orchard", kGraft));
    EXPECT_EQ(run({"show", "Orchard", "a.html"}),
              (Outcome{1, "", "refdoc: no item \"a.html\" in \"Orchard\"\n"}));
}

TEST_F(ShowTest, AProductWithoutItemsIsFound) {
    addResource("Orchard", section("orchard", ""));
    const Outcome outcome = run({"show", "Orchard"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.out, HasSubstr("orchard name\n"));
}

} // namespace
} // namespace refdoc_tests
