#include "tests/system/refdoc/RefdocTest.hpp"

#include <algorithm>

namespace refdoc_tests {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class HostileNameTest : public RefdocTest {
protected:
    void expectNotFound(const std::string& product, const std::string& shownAs) const {
        const Outcome outcome = run({"show", "--", product});
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.out, "");
        EXPECT_THAT(outcome.err,
                    StartsWith("refdoc: no resources for \"" + shownAs + "\"; tried "));
        EXPECT_EQ(std::ranges::count(outcome.err, '\n'), 1);
        EXPECT_EQ(outcome.err.find('\x1b'), outcome.err.npos);
    }
};

TEST_F(HostileNameTest, DoesNotFindNamesOfNoProduct) {
    expectNotFound("", "");
    expectNotFound(".", ".");
    expectNotFound("../../../../../../etc/passwd", "../../../../../../etc/passwd");
    expectNotFound("/etc/passwd", "/etc/passwd");
    expectNotFound("a/b\\c", "a/b\\c");
    expectNotFound("{} %s %n {0}", "{} %s %n {0}");
    expectNotFound(std::string(10000, 'x'), std::string(10000, 'x'));
}

TEST_F(HostileNameTest, ControlCharactersBecomeVisible) {
    expectNotFound("\x1b]0;title\x07 a\nb\tc\x7f", "␛]0;title␇ a␊b␉c␡");
    expectNotFound("\xc2\x9b"
                   "31m",
                   "\xef\xbf\xbd"
                   "31m");
}

TEST_F(HostileNameTest, IllFormedBytesBecomeReplacementCharacters) {
    expectNotFound("a\xff\xe3"
                   "b",
                   "a\xef\xbf\xbd\xef\xbf\xbd"
                   "b");
    expectNotFound("\xed\xa0\x80", "\xef\xbf\xbd\xef\xbf\xbd\xef\xbf\xbd");
}

TEST_F(HostileNameTest, NameMayHaveSeparators) {
    add("help/docCatalog/referenceapi/deep/er/P.json", section("p", ""));
    EXPECT_THAT(run({"show", "deep/er/P"}).out, StartsWith("p name\n"));
    EXPECT_THAT(run({"show", "deep/../deep/er/P"}).out, StartsWith("p name\n"));
}

TEST_F(HostileNameTest, NameMayBeNonAscii) {
    addResource("果樹園🌳", section("p", ""));
    EXPECT_THAT(run({"show", "果樹園🌳"}).out, StartsWith("p name\n"));
}

TEST_F(HostileNameTest, LooksUpLongNameInLargeIndex) {
    std::string items;
    for (int number = 0; number < 2000; ++number)
        items += std::string(number ? ", " : "") + R"({"name": "name)" + std::to_string(number) +
                 R"(", "href": "a", "refpurpose": "b"})";
    addLookup("P", section("p", items));
    const Outcome outcome = run({"lookup", std::string(10000, 'n'), "nane77"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err, StartsWith("refdoc: no entry \"nnnn"));
    EXPECT_THAT(outcome.err, HasSubstr("no entry \"nane77\" in the lookup index; did you mean "
                                       "\"name77\", \"name17\" or \"name177\"?\n"));
}

TEST_F(HostileNameTest, JsonDocumentHasTheNameUnchanged) {
    const Outcome outcome = run({"--json", "show", "a\"\\\n\x1b"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "{\n"
                           "  \"product\": \"a\\\"\\\\\\n\\u001b\",\n"
                           "  \"resources\": {}\n"
                           "}\n");
}

} // namespace
} // namespace refdoc_tests
