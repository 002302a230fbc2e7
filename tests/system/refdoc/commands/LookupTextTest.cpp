#include "tests/system/refdoc/RefdocTest.hpp"

namespace refdoc_tests {
namespace {

class LookupTextTest : public RefdocTest {
protected:
    LookupTextTest() {
        addManifest(R"({"topLevelProducts": [{"shortName": "orchard"}],
                        "hardwareSupportPackages": ["kit"]})");
        addLookup("Orchard",
                  section("orchard",
                          R"({"name": "prune", "href": "prune.html", "refpurpose": "Cut back"},
                             {"name": "graft", "href": "graft.html", "refpurpose": "Join trees",
                              "type": "method", "fcntype": "static"},
                             {"name": "graft", "href": "grafting.html", "refpurpose": "All of it",
                              "type": "class", "deprecated": false})",
                          R"(, "supportPackages": [{"productName": "The kit", "baseCode": "kit",
                               "helpFolder": "x", "helpLocation": "y", "refItems": [
                               {"name": "接続", "href": "k.html", "refpurpose": "Connect"}]}])"));
        addLookup("Cellar", section("cellar", R"({"name": "press", "href": "press.html",
                                                  "refpurpose": "Make juice", "type": "command",
                                                  "deprecated": true})"));
    }
};

TEST_F(LookupTextTest, PrintsOneAlignedLinePerRecordInstalledSectionsFirst) {
    EXPECT_EQ(run({"lookup"}), (Outcome{0, R"(The kit  kit
  接続   function       Connect     Orchard

orchard name  orchard
  graft  static method  Join trees  Orchard
  graft  class          All of it   Orchard  deprecated
  prune  function       Cut back    Orchard

cellar name  cellar  not installed
  press  command        Make juice  Cellar   deprecated, not installed
)",
                                        ""}));
}

TEST_F(LookupTextTest, NamesSelectRecordsAndShowTheirLinks) {
    EXPECT_EQ(run({"lookup", "press", "graft"}), (Outcome{0, R"(orchard name  orchard
  graft  static method  Join trees  Orchard  graft.html
  graft  class          All of it   Orchard  grafting.html  deprecated

cellar name  cellar  not installed
  press  command        Make juice  Cellar   press.html     deprecated, not installed
)",
                                                          ""}));
}

TEST_F(LookupTextTest, EachUnknownNameIsAComplaintWithNearNames) {
    const Outcome outcome = run({"lookup", "prun", "press", "Graft", "zzz", "prun"});
    EXPECT_EQ(outcome,
              (Outcome{1,
                       "cellar name  cellar  not installed\n"
                       "  press  command  Make juice  Cellar  press.html  "
                       "deprecated, not installed\n",
                       "refdoc: no entry \"prun\" in the lookup index; did you mean "
                       "\"prune\"?\n"
                       "refdoc: no entry \"Graft\" in the lookup index; did you mean "
                       "\"graft\"?\n"
                       "refdoc: no entry \"zzz\" in the lookup index; see refdoc lookup\n"}));
}

TEST_F(LookupTextTest, SuggestsAtMostThreeNamesNearestFirst) {
    addLookup("More", section("more", R"({"name": "prunes", "href": "a", "refpurpose": "b"},
                                         {"name": "pruner", "href": "a", "refpurpose": "b"},
                                         {"name": "prunet", "href": "a", "refpurpose": "b"},
                                         {"name": "brune", "href": "a", "refpurpose": "b"})"));
    EXPECT_EQ(run({"lookup", "prunex"}).err,
              "refdoc: no entry \"prunex\" in the lookup index; did you mean \"prune\", \"pruner\" "
              "or \"prunes\"?\n");
}

TEST_F(LookupTextTest, RecordStaysOnOneLine) {
    addLookup("Odd", section("odd", R"({"name": "odd\u001b", "href": "a",
                                        "refpurpose": "one\ntwo\u0007"})"));
    EXPECT_EQ(run({"lookup", "odd\x1b"}).out,
              "odd name  odd  not installed\n"
              "  odd␛  function  one two␇  Odd  a  not installed\n");
}

class EmptyIndexTest : public RefdocTest {};

TEST_F(EmptyIndexTest, NoteNamesTheCause) {
    const auto expectNote = [&](const std::string& cause) {
        EXPECT_EQ(run({"lookup"}),
                  (Outcome{0, "", "refdoc: the lookup index is empty: " + cause + '\n'}));
    };
    const std::string remedy = "; --install or --root names another folder";
    expectNote(path("help") + " does not exist" + remedy);
    add("help/readme.txt", "");
    expectNote(path("help/docCatalog") + " does not exist" + remedy);
    addResource("Orchard", section("orchard", ""));
    const std::string lookups = path("help/docCatalog/referenceapi_lookup");
    expectNote(lookups + " does not exist" + remedy);
    add("help/docCatalog/referenceapi_lookup/readme.txt", "");
    expectNote(lookups + " has no lookup files" + remedy);
    addLookup("Orchard", "{");
    expectNote("the files in " + lookups + " have no valid records; run refdoc check");
}

TEST_F(EmptyIndexTest, JsonIsStatus0) {
    EXPECT_EQ(run({"lookup", "--json"}),
              (Outcome{0, "{\n  \"installed\": {},\n  \"notInstalled\": {}\n}\n", ""}));
}

TEST_F(EmptyIndexTest, HasNoName) {
    EXPECT_EQ(run({"lookup", "graft"}),
              (Outcome{1, "",
                       "refdoc: no entry \"graft\" in the lookup index; --install or --root "
                       "names another folder\n"}));
}

} // namespace
} // namespace refdoc_tests
