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
  press  command        Make juice  Cellar   deprecated
)",
                                        ""}));
}

TEST_F(LookupTextTest, NamesSelectRecordsAndShowTheirLinks) {
    EXPECT_EQ(run({"lookup", "press", "graft"}), (Outcome{0, R"(orchard name  orchard
  graft  static method  Join trees  Orchard  graft.html
  graft  class          All of it   Orchard  grafting.html  deprecated

cellar name  cellar  not installed
  press  command        Make juice  Cellar   press.html     deprecated
)",
                                                          ""}));
}

TEST_F(LookupTextTest, EachUnknownNameIsAComplaintWithNearNames) {
    const Outcome outcome = run({"lookup", "prun", "press", "Graft", "zzz", "prun"});
    EXPECT_EQ(outcome,
              (Outcome{1,
                       "cellar name  cellar  not installed\n"
                       "  press  command  Make juice  Cellar  press.html  deprecated\n",
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
    EXPECT_EQ(run({"lookup", "odd\x1b"}).out, "odd name  odd  not installed\n"
                                              "  odd␛  function  one two␇  Odd  a\n");
}

class UntranslatedLookupTest : public RefdocTest {
protected:
    UntranslatedLookupTest() {
        addManifest(R"({"supportedDocLanguages": ["en", "ja"],
                        "topLevelProducts": [{"shortName": "orchard"}, {"shortName": "cellar"}]})");
        addLookup("Orchard", section("orchard",
                                     R"({"name": "graft", "href": "a.html", "refpurpose": "Join"},
                                        {"name": "graft", "href": "b.html", "refpurpose": "Mend"},
                                        {"name": "prune", "href": "c.html", "refpurpose": "Cut"},
                                        {"name": "water", "href": "d.html", "refpurpose": "Pour"})"));
        addLookup("Orchard_ja",
                  section("orchard",
                          R"({"name": "graft", "href": "a.html", "refpurpose": "接ぐ"},
                             {"name": "prune", "href": "c.html", "refpurpose": "Cut"})"));
        addLookup("Cellar", section("cellar", R"({"name": "press", "href": "p.html",
                                                  "refpurpose": "Squeeze"})"));
    }
};

TEST_F(UntranslatedLookupTest, MarksEnglishEntriesAndSections) {
    EXPECT_EQ(run({"--lang", "ja", "lookup"}), (Outcome{0, R"(cellar name  cellar  English
  press  function  Squeeze  Cellar

orchard name  orchard
  graft  function  接ぐ     Orchard
  graft  function  Mend     Orchard  English
  prune  function  Cut      Orchard
  water  function  Pour     Orchard  English
)",
                                                        ""}));
}

TEST_F(UntranslatedLookupTest, EntriesOfSupportPackagesAreMarkedToo) {
    addLookup("Kit", section("kit", "", R"(, "supportPackages": [{"productName": "Pump",
        "baseCode": "pump", "helpFolder": "x", "helpLocation": "y",
        "refItems": [{"name": "on", "href": "on.html", "refpurpose": "Start"},
                     {"name": "off", "href": "off.html", "refpurpose": "Stop"}]}])"));
    addLookup("Kit_ja", section("kit", "", R"(, "supportPackages": [{"productName": "ポンプ",
        "baseCode": "pump", "helpFolder": "x", "helpLocation": "y",
        "refItems": [{"name": "on", "href": "on.html", "refpurpose": "始める"}]}])"));
    EXPECT_EQ(run({"--lang", "ja", "lookup", "on", "off"}).out,
              "ポンプ  pump  not installed\n"
              "  off  function  Stop    Kit  off.html  English\n"
              "  on   function  始める  Kit  on.html\n");
}

TEST_F(UntranslatedLookupTest, EntriesOfPackagesAreMarkedToo) {
    const Outcome outcome = runProgram(
        {"--install", samplesFolder(), "--lang", "ja", "lookup", "blend", "tare", "volume"});
    EXPECT_EQ(outcome, (Outcome{0, R"(Cellar – 搾汁と発酵  cellar
  blend   function  Blend batches into a new one        Cellar     ref/blend.html           English
  blend   method    Blend a batch with others in place  Cellar     ref/batch.blend.html     English
  volume  function  寸法から求める容器の容積            Cellar     ref/volume.html

Orchard 巣箱はかりサポート  hivescale
  tare    method    Set the mass of the empty hive      HiveScale  ref/hivescale.tare.html  English
)",
                                ""}));
}

TEST_F(UntranslatedLookupTest, SearchAndShowMarkEnglishEntries) {
    EXPECT_EQ(run({"--lang", "ja", "search", "press"}).out,
              "press  function  Squeeze  Cellar  p.html  English\n");
    EXPECT_THAT(run({"--lang", "ja", "show", "graft"}).out,
                testing::StartsWith("1  graft  function  接ぐ  Orchard  a.html\n"
                                    "2  graft  function  Mend  Orchard  b.html  English\n"));
}

TEST_F(UntranslatedLookupTest, NothingIsMarkedInEnglishOrForPrograms) {
    EXPECT_THAT(run({"lookup"}).out, testing::Not(testing::HasSubstr("English")));
    for (const char* format : {"--json", "--jsonl"})
        EXPECT_THAT(run({"--lang", "ja", format, "lookup"}).out,
                    testing::Not(testing::HasSubstr("English")));
    EXPECT_THAT(run({"--lang", "ja", "lookup", "--plain"}).out,
                testing::Not(testing::HasSubstr("English")));
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
