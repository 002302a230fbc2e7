#include "tests/system/refdoc/check/CheckTest.hpp"

namespace refdoc_tests {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

const std::string kItems =
    R"({"href": "a.html", "refpurpose": "", "seealso": [{"url": "../b/b.html", "name": ""}]})";
const std::string kRecords = R"({"name": "a", "href": "a.html", "refpurpose": ""})";

class ConsequenceTest : public CheckTest {};

TEST_F(ConsequenceTest, TruncatedFileIsOneFinding) {
    addResource("A", section("a", kItems));
    addLookup("A", section("a", kRecords));
    addResource("B", R"({"productName": "", "helpFolder": "b", "refItems": [)");
    addLookup("B", section("b", R"({"name": "b", "href": "c.html", "refpurpose": ""})"));
    EXPECT_THAT(linesOf(check({"help"}).out),
                ElementsAre(HasSubstr("referenceapi/B.json:1:53: error: invalid JSON"),
                            "2 consequences of these findings not shown; see --show-consequences",
                            "1 error in 1 file; 4 files checked"));
    EXPECT_THAT(linesOf(check({"help", "--show-consequences"}).out),
                ElementsAre(HasSubstr("[broken-link]"), HasSubstr("[malformed-json]"),
                            HasSubstr("[lookup-without-resources]"),
                            "1 error, 2 warnings in 3 files; 4 files checked"));
}

TEST_F(ConsequenceTest, RepeatedListOfItemsIsOneFinding) {
    addLookup("A", section("a", kRecords));
    std::string twice = section("a", kItems);
    twice.insert(twice.rfind('}'), R"(, "refItems": [])");
    addResource("A", twice);
    EXPECT_THAT(linesOf(check({"help"}).out),
                ElementsAre(HasSubstr("[repeated-key]"), HasSubstr("the value that is ignored"),
                            "1 consequence of these findings not shown; see --show-consequences",
                            "1 error in 1 file; 2 files checked"));
}

TEST_F(ConsequenceTest, BrokenLookupFileHidesThatItemsCannotBeFound) {
    addResource("A", section("a", R"({"href": "a.html", "refpurpose": "",
                                      "refentity": [{"name": "a"}]})"));
    addLookup("A", "{");
    EXPECT_THAT(check({"help"}).out, testing::Not(HasSubstr("[page-without-lookup]")));
    EXPECT_THAT(check({"help", "--show-consequences"}).out, HasSubstr("[page-without-lookup]"));
}

TEST_F(ConsequenceTest, ErrorOfAnotherProductHidesNothing) {
    addResource("A", section("a", kItems));
    addLookup("A", section("a", kRecords));
    addResource("C", "{");
    EXPECT_THAT(check({"help"}).out, HasSubstr("[broken-link]"));
}

class SuffixTest : public CheckTest {};

TEST_F(SuffixTest, SeparatorOrCaseOfLanguageIsWrong) {
    addManifest(R"({"supportedDocLanguages": ["en", "de"]})");
    for (const char* name : {"A", "A-de", "A.de", "A_DE", "B-de"})
        addResource(name, section("a", ""));
    EXPECT_THAT(linesOf(check({"."}).out),
                ElementsAre(HasSubstr("A-de.json: warning: the separator before a language must be "
                                      "\"_\", as in \"A_de\"; the file is read as the English "
                                      "file of a product \"A-de\" [unsupported-language]"),
                            HasSubstr("A.de.json: warning: the separator"),
                            HasSubstr("A_DE.json: warning: \"_DE\" differs from the supported "
                                      "language \"de\""),
                            HasSubstr("3 warnings in 3 files")));
}

} // namespace
} // namespace refdoc_tests
