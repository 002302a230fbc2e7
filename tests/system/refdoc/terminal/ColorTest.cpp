#include "tests/system/refdoc/RefdocTest.hpp"

namespace refdoc_tests {
namespace {

using testing::HasSubstr;
using testing::Not;

class ColorTest : public RefdocTest {
protected:
    ColorTest() {
        addResource("P", section("p", R"({"href": "a.html", "refpurpose": "b",
                                          "deprecationstatus": "deprecated"},
                                         {"href": "b.html", "refpurpose": "c",
                                          "deprecationstatus": "removed"})"));
        addLookup("P", section("p", R"({"name": "a", "href": "a.html", "refpurpose": "b",
                                        "deprecated": true})"));
    }
};

TEST_F(ColorTest, FilesAndPipesGetNoColor) {
    EXPECT_THAT(run({"show", "P"}).out, Not(HasSubstr("\x1b")));
    EXPECT_THAT(run({"show", "P", "--color", "auto"}).out, Not(HasSubstr("\x1b")));
    EXPECT_THAT(run({"show", "P", "--color", "never"}).out, Not(HasSubstr("\x1b")));
}

TEST_F(ColorTest, AlwaysPaintsHeadingsLinksAndDeprecation) {
    const std::string out = run({"show", "P", "--color", "always"}).out;
    EXPECT_THAT(out, HasSubstr("\x1b[1mp name\x1b[0m\n"));
    EXPECT_THAT(out, HasSubstr("\x1b[2ma.html\x1b[0m\n"));
    EXPECT_THAT(out, HasSubstr("\x1b[33mDEPRECATED: "));
    EXPECT_THAT(out, HasSubstr("\x1b[31mREMOVED: "));
}

TEST_F(ColorTest, AlwaysPaintsTheIndexAndKeepsItAligned) {
    EXPECT_EQ(run({"lookup", "--color=always"}).out,
              "\x1b[1mp name\x1b[0m  \x1b[2mp\x1b[0m  \x1b[2mnot installed\x1b[0m\n"
              "  \x1b[33ma\x1b[0m  function  b  P  \x1b[33mdeprecated\x1b[0m\n");
}

TEST_F(ColorTest, AlwaysPaintsColumnNamesAndWhereProductsAre) {
    addManifest(R"({"topLevelProducts": [{"shortName": "p", "displayName": "p name",
                                          "helpLocation": "help/p"}]})");
    const std::string out = run({"products", "--color=always"}).out;
    EXPECT_THAT(out, HasSubstr("\n\x1b[2mlanguage\x1b[0m        default\n"));
    EXPECT_THAT(out, HasSubstr("\x1b[2mFile\x1b[0m\nP     en        \x1b[2m"));
    EXPECT_THAT(out, HasSubstr("P.json\x1b[0m\n"));
    EXPECT_THAT(out, HasSubstr("\np     p name        \x1b[2mhelp/p\x1b[0m"));
}

TEST_F(ColorTest, AlwaysPaintsTranslationsByTheirProgress) {
    addResource("P_de", section("p", R"({"href": "a.html", "refpurpose": "B"},
                                        {"href": "b.html", "refpurpose": "C"})"));
    addResource("P_ja", section("p", R"({"href": "a.html", "refpurpose": "B"})"));
    const std::string out = run({"translations", "--langs", "en,de,fr,ja", "--color=always"}).out;
    EXPECT_THAT(out, HasSubstr(" ########## 100.0 % "));
    EXPECT_THAT(out, HasSubstr("\x1b[31m..........   0.0 %\x1b[0m"));
    EXPECT_THAT(out, HasSubstr("\x1b[33m#####.....  50.0 %\x1b[0m"));
}

TEST_F(ColorTest, AlwaysOverridesNoColor) {
    EXPECT_THAT(run({"show", "P", "--color", "always"}, {.variables = {{"NO_COLOR", "1"}}}).out,
                HasSubstr("\x1b[1m"));
}

} // namespace
} // namespace refdoc_tests
