#include "tests/system/refdoc/RefdocTest.hpp"

#include <boost/json/serialize.hpp>

#include <algorithm>

namespace refdoc_tests {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

class SearchTest : public RefdocTest {
protected:
    SearchTest() {
        addManifest(R"({"topLevelProducts": [{"shortName": "orchard"}]})");
        addLookup(
            "Orchard",
            section("orchard",
                    R"({"name": "graft", "href": "ref/graft.html", "refpurpose": "Join trees"},
                             {"name": "grafting", "href": "b.html", "refpurpose": "Old way",
                              "deprecated": true},
                             {"name": "tree.graft", "href": "c.html", "refpurpose": "Join",
                              "type": "method"},
                             {"name": "regraft", "href": "d.html", "refpurpose": "Again"},
                             {"name": "prune", "href": "e.html", "refpurpose": "Undo a graft"},
                             {"name": "craft", "href": "f.html", "refpurpose": "Make it"})"));
        addLookup("Cellar", section("cellar", R"({"name": "graft", "href": "g.html",
                                                  "refpurpose": "Größe der Reben",
                                                  "type": "component"},
                                                 {"name": "graftage", "href": "h.html",
                                                  "refpurpose": "All of it"})"));
    }
};

TEST_F(SearchTest, PrintsTheBestMatchesFirst) {
    EXPECT_EQ(
        run({"search", "graft"}),
        (Outcome{0,
                 "graft       function   Join trees       Orchard  ref/graft.html\n"
                 "graft       component  Größe der Reben  Cellar   g.html          not installed\n"
                 "grafting    function   Old way          Orchard  b.html          deprecated\n"
                 "graftage    function   All of it        Cellar   h.html          not installed\n"
                 "tree.graft  method     Join             Orchard  c.html\n"
                 "prune       function   Undo a graft     Orchard  e.html\n"
                 "regraft     function   Again            Orchard  d.html\n"
                 "craft       function   Make it          Orchard  f.html\n",
                 ""}));
}

TEST_F(SearchTest, OptionsNarrowTheSearch) {
    const auto found = [&](std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"--jsonl", "search"});
        std::string names;
        for (const boost::json::value& line : documents(run(arguments).out))
            names += line.at("record").at("href").as_string().c_str() + std::string(" ");
        return names;
    };
    EXPECT_EQ(found({"ref/"}), "ref/graft.html ");
    EXPECT_EQ(found({"ref/", "--name"}), "");
    EXPECT_EQ(found({"graft", "--purpose"}), "e.html ");
    EXPECT_EQ(found({"join", "--name"}), "");
    EXPECT_EQ(found({"graft", "--type", "component"}), "g.html ");
    EXPECT_EQ(found({"GRAFT", "--type", "component"}), "g.html ");
    EXPECT_EQ(found({"GRAFT", "--case-sensitive"}), "");
    EXPECT_EQ(found({"GRÖSSE"}), "g.html ");
    EXPECT_EQ(found({"join", "graft"}), "ref/graft.html c.html ");
    EXPECT_EQ(found({"join trees"}), "ref/graft.html ");
}

TEST_F(SearchTest, LimitCutsTheListAndCountsTheRest) {
    const std::string first = "graft  function  Join trees  Orchard  ref/graft.html\n";
    EXPECT_EQ(run({"search", "graft", "--limit", "1"}),
              (Outcome{0, first + "and 7 more; --limit 0 prints all\n", ""}));
    EXPECT_EQ(run({"search", "graft", "--limit", "0"}), run({"search", "graft"}));
    EXPECT_EQ(run({"search", "graft", "--limit", "8"}), run({"search", "graft"}));
    const Outcome plain = run({"search", "graft", "--limit", "1", "--plain"});
    EXPECT_EQ(plain.err, "refdoc: and 7 more; --limit 0 prints all\n");
    for (const char* value : {"x", "-1", "1x", ""})
        EXPECT_EQ(run({"search", "graft", std::string("--limit=") + value}),
                  (Outcome{2, "",
                           std::string("refdoc: --limit must be a number, not \"") + value +
                               "\"; see refdoc search --help\n"}));
}

TEST_F(SearchTest, PrintsAtMost20ResultsByDefault) {
    std::string items;
    for (int item = 10; item < 67; ++item)
        items += std::string(items.empty() ? "" : ",") + R"({"name": "vine)" +
                 std::to_string(item) + R"(", "href": "a", "refpurpose": "b"})";
    addLookup("Vines", section("vines", items));
    const std::string out = run({"search", "vine"}).out;
    EXPECT_EQ(std::ranges::count(out, '\n'), 21);
    EXPECT_THAT(out, StartsWith("vine10  "));
    EXPECT_THAT(out, EndsWith("\nand 37 more; --limit 0 prints all\n"));
}

TEST_F(SearchTest, JsonHasTheQueryTheNumberOfMatchesAndEachResult) {
    EXPECT_EQ(boost::json::serialize(document(run({"search", "graft", "x", "--json"}).out)),
              R"({"query":"graft x","total":0,"results":[]})");
    const boost::json::value found =
        document(run({"search", "graft", "--limit", "1", "--json"}).out);
    EXPECT_EQ(
        boost::json::serialize(found),
        R"({"query":"graft","total":8,"results":[{"match":"exact","name":"graft",)"
        R"("section":"orchard","product":"Orchard","installed":true,"record":{"name":"graft",)"
        R"("entityType":"function","refPurpose":"Join trees","deprecated":false,)"
        R"("href":"ref/graft.html","functionType":"function"}}]})");
    EXPECT_EQ(documents(run({"search", "graft", "--limit", "1", "--jsonl"}).out).at(0),
              found.at("results").at(0));
}

TEST_F(SearchTest, PlainSeparatesFieldsByTabs) {
    EXPECT_EQ(
        run({"search", "--plain", "grafting"}),
        (Outcome{0, "grafting\tfunction\tOld way\tOrchard\torchard\tb.html\tyes\tyes\texact\n",
                 ""}));
    addLookup("Odd", section("odd", R"({"name": "odd\tname", "href": "a",
                                        "refpurpose": "one\ntwo"})"));
    EXPECT_EQ(run({"lookup", "--plain", "odd\tname"}),
              (Outcome{0, "odd␉name\tfunction\tone␊two\tOdd\todd\ta\tno\tno\n", ""}));
}

TEST_F(SearchTest, ColorHighlightsTheMatch) {
    EXPECT_EQ(run({"search", "ING", "--color", "always"}).out,
              "\x1b[33mgraft\x1b[0m\x1b[1m\x1b[4ming\x1b[0m  function  Old way  Orchard  "
              "\x1b[2mb.html\x1b[0m  \x1b[33mdeprecated\x1b[0m\n");
    EXPECT_EQ(run({"search", "function", "--color", "always"}).status, 1);
}

TEST_F(SearchTest, NoMatchIsStatus1) {
    EXPECT_EQ(run({"search", "zebra", "stripes"}),
              (Outcome{1, "",
                       "refdoc: no entry of the lookup index matches \"zebra stripes\"; see refdoc "
                       "lookup\n"}));
    EXPECT_EQ(run({"search", ""}).status, 1);
    EXPECT_EQ(run({"--root", path("none"), "search", "zebra"}).err,
              "refdoc: the lookup index is empty: " + path("none") +
                  " does not exist; --install or --root names another folder\n");
    EXPECT_EQ(run({"search"}),
              (Outcome{2, "", "refdoc: search needs a TEXT; see refdoc --help\n"}));
}

} // namespace
} // namespace refdoc_tests
