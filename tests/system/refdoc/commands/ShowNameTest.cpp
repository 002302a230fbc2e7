#include "tests/system/refdoc/RefdocTest.hpp"

namespace refdoc_tests {
namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

class ShowNameTest : public RefdocTest {
protected:
    ShowNameTest() {
        addResource("Orchard", section("orchard",
                                       R"({"href": "graft.html", "refpurpose": "Join trees",
                                "refentity": [{"type": "function", "name": "graft"}]},
                               {"href": "prune.html", "refpurpose": "Cut back"})"));
        addResource("Cellar",
                    section("cellar", R"({"href": "g.html", "refpurpose": "Mix wines"})"));
        addLookup("Orchard",
                  section("orchard",
                          R"({"name": "graft", "href": "graft.html", "refpurpose": "Join trees"},
                             {"name": "prune", "href": "prune.html", "refpurpose": "Cut back"},
                             {"name": "prune", "href": "prune.html", "refpurpose": "Cut again"},
                             {"name": "Cellar", "href": "prune.html", "refpurpose": "Store"},
                             {"name": "lost", "href": "lost.html", "refpurpose": "Not there"})"));
        addLookup("Cellar", section("cellar", R"({"name": "graft", "href": "g.html",
                                                  "refpurpose": "Mix wines"})"));
        addLookup("Gone", section("gone", R"({"name": "away", "href": "a.html",
                                              "refpurpose": "No full file"})"));
    }
};

TEST_F(ShowNameTest, NameOfOneItemPrintsIt) {
    EXPECT_EQ(run({"show", "prune"}), run({"show", "Orchard", "prune.html"}));
    EXPECT_EQ(run({"show", "prune", "--json"}), run({"show", "Orchard", "prune.html", "--json"}));
}

TEST_F(ShowNameTest, NameOfSeveralItemsListsThemAndPickPrintsOne) {
    EXPECT_EQ(run({"--installed", "orchard", "show", "graft"}),
              (Outcome{0,
                       "Installed\n"
                       "  1  graft  function  Join trees  Orchard  graft.html\n"
                       "\n"
                       "Not installed\n"
                       "  2  graft  function  Mix wines   Cellar   g.html\n"
                       "\n"
                       "refdoc show \"graft\" --pick N prints item N of 2\n",
                       ""}));
    EXPECT_EQ(run({"--installed", "orchard", "show", "graft", "--pick", "2"}),
              run({"show", "Cellar", "g.html"}));
    EXPECT_EQ(run({"show", "graft", "--json"}),
              (Outcome{1, "{\n  \"product\": \"graft\",\n  \"resources\": {}\n}\n",
                       "refdoc: \"graft\" names several items; refdoc show \"graft\" --pick N "
                       "prints item N of 2\n"}));
}

TEST_F(ShowNameTest, PickMustBeTheNumberOfAnItem) {
    for (const char* number : {"0", "3", "x", "1x", "-1", ""})
        EXPECT_EQ(run({"show", "graft", std::string("--pick=") + number}),
                  (Outcome{2, "",
                           std::string("refdoc: --pick must be a number from 1 to 2, not \"") +
                               number + "\"\n"}));
    EXPECT_EQ(run({"show", "Orchard", "graft.html", "--pick", "1"}),
              (Outcome{2, "", "refdoc: --pick needs a NAME alone; see refdoc show --help\n"}));
}

TEST_F(ShowNameTest, ProductPrecedesTheNameUnlessItIsPicked) {
    EXPECT_THAT(run({"show", "Cellar"}).out, AllOf(HasSubstr("Mix wines"), Not(HasSubstr("Cut"))));
    EXPECT_EQ(run({"show", "Cellar", "--pick", "1"}), run({"show", "Orchard", "prune.html"}));
}

TEST_F(ShowNameTest, ArgumentsAfterTheProductMayBeNames) {
    const Outcome graft = run({"show", "Orchard", "graft.html"});
    EXPECT_EQ(run({"show", "Orchard", "graft"}), graft);
    EXPECT_EQ(run({"show", "Orchard", "prune"}), run({"show", "Orchard", "prune.html"}));
    EXPECT_EQ(run({"show", "Orchard", "graft", "graft.html"}), graft);
    EXPECT_EQ(run({"show", "Cellar", "graft"}), run({"show", "Cellar", "g.html"}));
    EXPECT_EQ(run({"show", "Cellar", "prune"}).status, 1);
}

TEST_F(ShowNameTest, ItemThatDocumentsTheNamePrecedesTheIndex) {
    addResource("Meadow", section("meadow",
                                  R"({"href": "mow.html", "refpurpose": "Cut grass",
                                      "refentity": [{"type": "function", "name": "mow"}]},
                                     {"href": "rake.html", "refpurpose": "Collect grass"})"));
    addLookup("Meadow",
              section("meadow", R"({"name": "mow", "href": "rake.html", "refpurpose": "Rake"})"));
    EXPECT_EQ(run({"show", "Meadow", "mow"}), run({"show", "Meadow", "mow.html"}));
    EXPECT_EQ(run({"show", "mow"}), run({"show", "Meadow", "rake.html"}));
}

TEST_F(ShowNameTest, EntryWithoutAFullRecordIsAComplaint) {
    EXPECT_THAT(run({"show", "lost"}).err, HasSubstr("no item \"lost.html\" in \"Orchard\""));
    EXPECT_THAT(run({"show", "away"}).err, HasSubstr("no resources for \"Gone\""));
    EXPECT_EQ(run({"show", "away"}).status, 1);
}

TEST_F(ShowNameTest, SuggestsSimilarNamesAndProducts) {
    EXPECT_THAT(run({"show", "garft"}).err, EndsWith("; did you mean \"graft\"?\n"));
    EXPECT_THAT(run({"show", "celar"}).err, EndsWith("; did you mean \"Cellar\"?\n"));
    EXPECT_THAT(run({"show", "garft", "graft.html"}).err, EndsWith("; see refdoc products\n"));
}

} // namespace
} // namespace refdoc_tests
