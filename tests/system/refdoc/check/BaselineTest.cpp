#include "tests/support/ZipBytes.hpp"
#include "tests/system/refdoc/check/CheckTest.hpp"

namespace refdoc_tests {
namespace {

using testing::HasSubstr;

class BaselineTest : public CheckTest {};

TEST_F(BaselineTest, KnownFindingsAreNotReported) {
    seed();
    for (const char* format : {"--json", "--jsonl", "--sarif"}) {
        add("old", check({".", format}).out);
        EXPECT_EQ(check({".", "--baseline", "old"}),
                  (Outcome{0, "17 files checked, no problems found\n", ""}))
            << format;
    }
}

// A fingerprint in a baseline must still be known to later versions.
TEST_F(BaselineTest, FingerprintsNeverChange) {
    addResource("A", section("a", R"({"href": "a.html", "refpurpose": "", "hint": 1},)"
                                  R"({"href": "a.html", "refpurpose": "", "hint": 1})"));
    docparser_tests::ZipBytes package;
    package.entries = {{.name = "in/A.json", .content = "{"}};
    add("help/docCatalog/referenceapi_lookup/A.zip", package.build());
    std::vector<std::string> fingerprints;
    for (const boost::json::value& finding : documents(check({"help", "--jsonl"}).out))
        fingerprints.emplace_back(finding.at("fingerprint").as_string());
    EXPECT_THAT(fingerprints,
                testing::ElementsAre("00278c924a5cbe60", "00278c924a5cbe60-2", "273e1aa3051b8033"));
}

TEST_F(BaselineTest, FindingIsKnownAfterLinesAreInserted) {
    const std::string item = R"({"href": "a.html", "refpurpose": "", "unknown": 1})";
    addResource("A", section("a", item));
    add("old", check({"help", "--json"}).out);
    addResource("A", "\n\n" + section("a", R"({"href": "b.html", "refpurpose": ""},)" + item));
    EXPECT_EQ(check({"help", "--baseline", "old"}).out, "1 file checked, no problems found\n");
}

TEST_F(BaselineTest, NewFindingIsReported) {
    addResource("A", section("a", R"({"href": "a.html", "refpurpose": "", "unknown": 1})"));
    add("old", check({"help", "--json"}).out);
    addResource("A",
                section("a", R"({"href": "a.html", "refpurpose": "", "unknown": 1, "more": 1})"));
    EXPECT_THAT(linesOf(check({"help", "--baseline", "old"}).out),
                testing::ElementsAre(HasSubstr("unknown key \"more\""),
                                     "1 warning in 1 file; 1 file checked"));
}

TEST_F(BaselineTest, FailsIfTheFileIsNotAReport) {
    for (const char* text : {"hello", "{}", "[]", "{\"findings\": [{}]}"}) {
        add("old", text);
        EXPECT_EQ(check({"--baseline", "old"}),
                  (Outcome{3, "",
                           "refdoc: can't use the baseline \"old\": not the output of refdoc check "
                           "--json, --jsonl or --sarif\n"}))
            << text;
    }
    EXPECT_EQ(check({"--baseline", "gone"}),
              (Outcome{3, "", "refdoc: the baseline \"gone\" does not exist\n"}));
    add("folder/file", "");
    EXPECT_EQ(check({"--baseline", "folder"}),
              (Outcome{3, "", "refdoc: the baseline \"folder\" is not a file\n"}));
}

TEST_F(BaselineTest, LinesMayBeEmptyOrFromSeveralReports) {
    seed();
    add("old", check({"help/docCatalog/referenceapi/NoKey.json", "--jsonl"}).out + "\n\r\n" +
                   check({".", "--jsonl"}).out);
    EXPECT_EQ(check({".", "--baseline", "old"}),
              (Outcome{0, "17 files checked, no problems found\n", ""}));
    add("old", "");
    EXPECT_EQ(check({".", "--baseline", "old"}), check({"."}));
}

class SeverityTest : public CheckTest {
protected:
    SeverityTest() {
        addResource("A", section("a", R"({"href": "a.html", "refpurpose": "", "unknown": 1,
                                          "deprecationstatus": "old",
                                          "refentity": [{"name": "a"}]})"));
        addLookupFolder();
    }
};

TEST_F(SeverityTest, WarningsAndNotesAreNotErrors) {
    const Outcome outcome = check({"help"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.out, HasSubstr("2 warnings, 1 note in 1 file; 1 file checked\n"));
}

TEST_F(SeverityTest, WerrorTurnsWarningsIntoErrors) {
    const Outcome outcome = check({"help", "--werror"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.out, HasSubstr("2 errors, 1 note in 1 file; 1 file checked\n"));
}

TEST_F(SeverityTest, WerrorAppliesToSingleRules) {
    const Outcome outcome = check({"--werror=unknown-key", "--werror=page-without-lookup", "help"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.out, HasSubstr("2 errors, 1 warning in 1 file; 1 file checked\n"));
}

TEST_F(SeverityTest, PathMayFollowWerror) {
    EXPECT_EQ(check({"--werror", "help"}).status, 1);
}

TEST_F(SeverityTest, RulesCanBeIgnored) {
    EXPECT_EQ(check({"help", "--ignore", "unknown-key", "--ignore=unknown-word", "--ignore",
                     "page-without-lookup"}),
              (Outcome{0, "1 file checked, no problems found\n", ""}));
}

TEST_F(SeverityTest, UnknownRuleIsWrongUsage) {
    for (const char* option :
         {"--ignore=unknown-kez", "--werror=unknown-kez", "--explain=unknown-kez"}) {
        EXPECT_EQ(check({"help", option}),
                  (Outcome{2, "",
                           "refdoc: unknown rule \"unknown-kez\"; did you mean "
                           "\"unknown-key\"?; see refdoc check --rules\n"}));
    }
}

} // namespace
} // namespace refdoc_tests
